#include "documents/production/production_type.h"

#include "documents/production/production_body.h"
#include "documents/production/production_posting.h"
#include "documents/trade/find_columns.h"
#include "frame/document/find_columns.h"

namespace velmo::documents {

namespace {

using enum frame::FindCondition;

// The party is a code in a text; without one it is 0.
frame::FindType findProduction() {
  return {.title = "FIND PRODUCTION",
          .select =
              "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, AccLevel3.AccName, "
              "Transactions.[Desc] AS Remarks, Transactions.TrAmount, Employees.EmpName, "
              "StockLocation.LocationName, iif(Transactions.Cancel=0, '', 'CANCELLED') AS CStatus, "
              "Users.UserName AS AddedBy, Transactions.TimeAdded, Users_1.UserName AS EditedBy, "
              "Transactions.TimeEdited",
          .columns = {find_columns::serialNo,
                      find_columns::date,
                      {"Outsource Party", "AccLevel3.AccName", Contains, "Give outsource party to find."},
                      {"Remarks", "Transactions.[Desc]", Contains, "Give remarks to find."},
                      find_columns::amount},
          .result = frame::findColumns({{.caption = "Outsource Party", .field = "AccName", .width = 24},
                                        {.caption = "Remarks", .field = "Remarks", .width = 28},
                                        frame::findAmount("Amount", "TrAmount")},
                                       frame::FindLocation::Joined),
          .joined = "LEFT JOIN AccLevel3 ON AccLevel3.AccCode = Val(Transactions.Text3)"};
}

}  // namespace

const frame::DocumentType& productionType() {
  static const frame::DocumentType type{
      .form = schema::documentForm("Production"),
      .title = "PRODUCTION",
      .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
      .find = findProduction(),
      .makeBody = [](const frame::BodyPlace& place) -> std::shared_ptr<frame::DocumentBody> {
        return std::make_shared<ProductionBody>(place);
      },
      .costsOnOpening = frame::CostsOnOpening::ToYearEnd,
      .afterPrint = frame::AfterPrint::ShowSaved,
      .validation = productionSteps(),
      .header = productionHeader};
  return type;
}

}  // namespace velmo::documents
