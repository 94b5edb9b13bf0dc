#include "reports/parts/selections.h"

#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "reports/ledger_company.h"
#include "reports/parts/common_selections.h"

namespace velmo::reports {
namespace {

using frame::ReportScreen;
using frame::ReportUse;

Selection period() {
  return {.box = "SelectionOpt_0",
          .caption = "Peri&od From",
          .inputs = {frame::ReportPeriodBoxes{.caption = "", .from = "DateFrom", .to = "DateTo"}},
          .clause = " AND ((Transactions.TranDate)>=? And (Transactions.TranDate)<=?)",
          .words = "For The Period From  ?  To  ?",
          .otherwiseWords = "For The Period Ended On  ?"};
}

Selection party() {
  return {.box = "SelectionOpt_1",
          .caption = "&Customer",
          .inputs = {frame::ReportAccount{}},
          .refusals = {{.control = "ACodeTxt",
                        .title = "Invalid Party",
                        .text = "Select a valid party to view report",
                        .onPrint = "Select a valid party to print report"}},
          .clause = " AND ((PartyCode) = ?)",
          .otherwise = " AND ((PartyCode) > 0)",
          .words = "Customer: ?",
          .otherwiseWords = "All Customers"};
}

Selection item() {
  return {.box = "SelectionOpt_2",
          .caption = "&Item",
          .inputs = {frame::ReportItem{}},
          .refusals = {{.control = "ICode", .title = "Invalid Item", .text = "Select a valid item to view report"}},
          .clause = " AND (ItemCode = ?)"};
}

Selection category() {
  const auto listOf = [](const char* name, const char* shown, const char* bound, std::string statement) {
    return frame::ReportList{
        .name = name, .shown = shown, .bound = bound, .statement = [statement](const store::Value&) {
          return statement;
        }};
  };
  return {.box = "SelectOpt",
          .caption = "Categor&y",
          .group = "Which",
          .inputs = {listOf("Cat", "CatName", "CatID", "select * from stocklevel1")},
          .refusals = {{.control = "Cat", .title = "Select Category", .text = "Select a category."}},
          .clause = " AND (CatID like ?)",
          .words = "Category: ?",
          .narrower = {{.box = "SubTypeOpt",
                        .caption = "Su&b Category",
                        .inputs = {listOf("SubList", "SubCatName", "SubCatID", "select * from stocklevel2")},
                        .refusals = {{.control = "SubList", .title = "Select Sub", .text = "Select a sub category."}},
                        .clause = " AND (SubCatID like ?)"}}};
}

const std::vector<Selection>& all() {
  static const std::vector<Selection> selections = {
      period(),
      party(),
      employeeSelection({.box = "SelectionOpt_3", .clause = " AND (Empid=?)", .toPrint = "to print analysis"}),
      departmentSelection({.box = "SelectionOpt_4", .clause = " AND (Department like ?)"}),
      {.box = "AllOpt", .caption = "&All", .group = "Which"},
      category()};
  return selections;
}

class Selections : public test::LedgerCompany {
 protected:
  Selections() {
    test::NewCompany::run(
        context->KORDconn,
        {"INSERT INTO StockLevel1 (CatID, CatName) VALUES ('50%', 'Half')",
         "INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('H1', 'Quarter', '50%')",
         "INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, SubCatID, Status) VALUES ('N%', 'Nail', '50%', 'H1', No)",
         "INSERT INTO Employees (EmpID, EmpName, Department, Status) VALUES (5, 'Salma', 'O''Hara_s', No)"});
    context->ItemsRS.open(context->KORDconn, "SELECT * FROM StockLevel3 ORDER BY ItemCode");
    context->AccountsRS.requery();
    open([](session::Workplace& place, QWidget* parent) -> QWidget* {
      std::vector<frame::ReportFilterRow> rows = selectionRows(all(), 1);
      rows.push_back(selectionRow(item()));
      return new ReportScreen({.screen = "Sample", .caption = "Sample", .filters = rows}, place, parent);
    });
    control<forms::DatePicker>("DateFrom").setDay(text::DateTime::fromCalendar(2026, 7, 1));
    control<forms::DatePicker>("DateTo").setDay(text::DateTime::fromCalendar(2026, 7, 31));
  }
  ReportScreen& screen() { return *static_cast<ReportScreen*>(dialog.get()); }
  std::string clauses() { return clausesOf(screen().filters(), all()); }
  void choose(const char* box) { screen().filters().choose(box); }
  void chooseEntry(const char* list, const store::Value& value) {
    control<forms::DropCombo>(list).setBoundValue(value);
  }
  bool check(ReportUse use) { return checkSelections(screen(), use, all()); }
};

TEST_F(Selections, SayTheirClausesTogether) {
  EXPECT_EQ(clauses(), " AND ((PartyCode) > 0)");
  choose("SelectionOpt_0");
  choose("SelectionOpt_1");
  write("ACodeTxt", "12,001,002");
  choose("SelectionOpt_3");
  chooseEntry("EmployeeList", 5);
  choose("SelectionOpt_4");
  chooseEntry("EmpDeptt", std::string("O'Hara_s"));
  EXPECT_EQ(clauses(),
            " AND ((Transactions.TranDate)>=#07-01-2026# And (Transactions.TranDate)<=#07-31-2026#) AND ((PartyCode) = "
            "12001002) AND (Empid=5) AND (Department like " +
                store::quotedWhole("O'Hara_s") + ")");
  choose("SelectionOpt_2");
  write("ICode", "n%");
  EXPECT_EQ(clausesOf(screen().filters(), {item()}), " AND (ItemCode = 'N%')");
  Selection like = item();
  like.clause = " AND (ItemCode Like ?)";
  EXPECT_EQ(clausesOf(screen().filters(), {like}), " AND (ItemCode Like " + store::quotedWhole("N%") + ")");
}

TEST_F(Selections, ANarrowerOneTakesThePlaceOfTheOther) {
  const std::vector<Selection> one = {category()};
  EXPECT_EQ(clausesOf(screen().filters(), one), "");
  choose("SelectOpt");
  chooseEntry("Cat", std::string("50%"));
  EXPECT_EQ(clausesOf(screen().filters(), one), " AND (CatID like " + store::quotedWhole("50%") + ")");
  choose("SubTypeOpt");
  prompts.expect("Select Sub", "Select a sub category.");
  EXPECT_FALSE(checkSelections(screen(), ReportUse::View, one));
  EXPECT_TRUE(control<QWidget>("SubList").hasFocus());
  chooseEntry("SubList", std::string("H1"));
  EXPECT_EQ(clausesOf(screen().filters(), one), " AND (SubCatID like 'H1')");
  choose("AllOpt");
  EXPECT_TRUE(checkSelections(screen(), ReportUse::View, one));
  EXPECT_EQ(clausesOf(screen().filters(), one), "");
}

TEST_F(Selections, TellTheFirstThatWantsAChoiceByItsUse) {
  EXPECT_TRUE(check(ReportUse::View));
  choose("SelectionOpt_3");
  prompts.expect("Invalid Employee", "Select a valid employee to view report");
  EXPECT_FALSE(check(ReportUse::Export));
  prompts.expect("Invalid Employee", "Select a valid employee to print analysis");
  EXPECT_FALSE(check(ReportUse::Print));
  choose("SelectionOpt_1");
  write("ACodeTxt", "1");
  prompts.expect("Invalid Party", "Select a valid party to print report");
  EXPECT_FALSE(check(ReportUse::Print));
  EXPECT_TRUE(control<QWidget>("ACodeTxt").hasFocus());
  write("ACodeTxt", "12001003");
  chooseEntry("EmployeeList", 5);
  EXPECT_TRUE(check(ReportUse::Print));
}

TEST_F(Selections, HaveWordsForTheTitle) {
  EXPECT_EQ(wordsOf(screen(), period()), "For The Period Ended On  November 22, 2026");
  EXPECT_EQ(wordsOf(screen(), party()), "All Customers");
  choose("SelectionOpt_0");
  choose("SelectionOpt_1");
  choose("SelectOpt");
  write("ACodeTxt", "12001002");
  chooseEntry("Cat", std::string("50%"));
  EXPECT_EQ(wordsOf(screen(), period()), "For The Period From  July 01, 2026  To  July 31, 2026");
  EXPECT_EQ(singleSpaced(wordsOf(screen(), period())), "For The Period From July 01, 2026 To July 31, 2026");
  EXPECT_EQ(wordsOf(screen(), party()), "Customer: O'Brien & Sons");
  EXPECT_EQ(wordsOf(screen(), category()), "Category: Half");
}

}  // namespace
}  // namespace velmo::reports
