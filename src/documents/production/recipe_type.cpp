#include "documents/production/recipe_type.h"

#include "documents/production/production_costs.h"
#include "documents/production/recipe_body.h"
#include "frame/document/find_columns.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

using frame::DocumentValues;
using frame::SaveSituation;
using enum frame::FindCondition;

frame::FindType findBillMaterial() {
  frame::FindType find{
      .title = "FIND BILL OF MATERIALS",
      .select =
          "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.Text1, "
          "Transactions.Text2, Transactions.Text3, Transactions.[Desc] AS Remarks, Transactions.TrAmount, "
          "Employees.EmpName, Users.UserName AS AddedBy, Transactions.TimeAdded, Users_1.UserName AS "
          "EditedBy, Transactions.TimeEdited",
      .columns = {{"Combination No.", "Transactions.DocNo", Number, "Give combination no. to find."},
                  {"Product Code", "Transactions.Text1", Contains, "Give product code to find."},
                  {"Product Name", "Transactions.Text2", Contains, "Give product name to find."},
                  {"Remarks", "Transactions.[Desc]", Contains, "Give remarks to find."},
                  {"Amount", "Transactions.TrAmount", Number, "Give amount to find."}},
      .result = frame::findColumns({{.caption = "Product Code", .field = "Text1", .width = 14},
                                    {.caption = "Product Name", .field = "Text2", .width = 28},
                                    {.caption = "Unit", .field = "Text3", .width = 6},
                                    {.caption = "Remarks", .field = "Remarks", .width = 28},
                                    frame::findAmount("Amount", "TrAmount")},
                                   frame::FindLocation::None, frame::FindStatus::None),
      .location = frame::FindLocation::None,
      .belongsTo = frame::BelongsTo::NoYear};
  find.result.front().caption = "Combination No.";
  find.result.front().width = 14;
  return find;
}

double amountOf(const DocumentValues& values, const char* name) {
  return text::amountFrom(values.field(name));
}

void header(const DocumentValues& values, const session::LoginContext&, frame::HeaderRow& row) {
  row.set("Text1", values.field("ICode"));
  row.set("Text2", values.field("IName"));
  row.set("Text3", values.field("UnitBox"));
  row.set("Discount", amountOf(values, "TExc"));
  row.set("Tax1", amountOf(values, "Labour"));
  row.set("Tax2", amountOf(values, "FOH"));
  row.set("AdditionalTax", amountOf(values, "QtyBox"));
  row.set("TrAmount", amountOf(values, "TotalCost"));
  row.set("WordsAmt", frame::amountInWordsOnly(amountOf(values, "TotalCost")));
}

std::vector<frame::ValidationStep> validation() {
  return {{.fails = [](const DocumentValues& v, const SaveSituation&) { return v.field("IName").empty(); },
           .text = "Select a correct product name from inventory.",
           .control = "ICode"},
          {.fails = [](const DocumentValues& v, const SaveSituation&) { return !(amountOf(v, "QtyBox") > 0); },
           .text = "Give a positive value for quantity.",
           .control = "QtyBox"},
          notNegative("Labour", "The cost of labour cannot be below zero."),
          notNegative("FOH", "The factory overhead cannot be below zero.")};
}

}  // namespace

const frame::DocumentType& billOfMaterialType() {
  static const frame::DocumentType type{
      .form = schema::documentForm("BillofMaterial"),
      .title = "BILL OF MATERIALS",
      .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
      .find = findBillMaterial(),
      .makeBody = [](const frame::BodyPlace& place) -> std::shared_ptr<frame::DocumentBody> {
        return std::make_shared<RecipeBody>(place);
      },
      .locationChoice = frame::LocationChoice::None,
      .jobChoice = frame::JobChoice::None,
      .employeeChoice = frame::EmployeeChoice::None,
      .belongsTo = frame::BelongsTo::NoYear,
      .dateChoice = frame::DateChoice::DayOfSave,
      .cancelChoice = frame::CancelChoice::Always,
      .numberCaption = "Combination No.",
      .costsOnOpening = frame::CostsOnOpening::ToYearEnd,
      .printCommands = frame::PrintCommands::None,
      .validation = validation(),
      .header = header};
  return type;
}

}  // namespace velmo::documents
