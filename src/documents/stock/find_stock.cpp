#include "documents/stock/find_stock.h"

#include "documents/trade/find_columns.h"
#include "frame/document/find_columns.h"

namespace velmo::documents {

namespace {

constexpr std::string_view select =
    "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.[Desc] AS Remarks, "
    "Transactions.TrAmount, Employees.EmpName, StockLocation.LocationName, iif(Transactions.Cancel=0, '', "
    "'CANCELLED') AS CStatus, Users.UserName AS AddedBy, Transactions.TimeAdded, Users_1.UserName AS EditedBy, "
    "Transactions.TimeEdited";

}  // namespace

frame::FindType findStock(std::string_view title) {
  return {.title = title,
          .select = select,
          .columns = {find_columns::serialNo,
                      find_columns::date,
                      {"Remarks", "Transactions.[Desc]", frame::FindCondition::Contains, "Give remarks to find."},
                      find_columns::amount},
          .result = frame::findColumns(
              {{.caption = "Remarks", .field = "Remarks", .width = 32}, frame::findAmount("Amount", "TrAmount")},
              frame::FindLocation::Joined)};
}

}  // namespace velmo::documents
