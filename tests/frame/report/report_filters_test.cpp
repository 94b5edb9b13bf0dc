#include "frame/report/report_filters.h"

#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "frame/report/sample_report.h"

namespace velmo::frame {
namespace {

using test::focus;
using test::press;

class ReportFiltersOf : public test::SampleReport {
 protected:
  ReportFiltersOf() {
    test::NewCompany::run(context.KORDconn,
                          {"INSERT INTO StockLevel1 (CatID, CatName) VALUES ('PWR', 'Power Tools')",
                           "INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('PWR01', 'Drills', 'PWR')",
                           "INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('PWR02', 'Saws', 'PWR')"});
    ReportType type = numbers();
    type.filters = {
        {ReportOption{.name = "Which_0", .caption = "&All", .group = "Which"}},
        {ReportOption{
             .name = "Which_1", .caption = "&Category", .group = "Which", .inputs = {"Cat", "SubOpt", "SubCat"}},
         ReportList{.name = "Cat",
                    .shown = "CatName",
                    .bound = "CatID",
                    .statement = [](const store::Value&) { return std::string("select * from StockLevel1"); }},
         ReportOption{.name = "SubOpt", .caption = "&Sub Category", .inputs = {"SubCat"}},
         ReportList{.name = "SubCat",
                    .shown = "SubCatName",
                    .bound = "SubCatID",
                    .statement =
                        [](const store::Value& category) {
                          return "select * from StockLevel2 where CatID=" + store::quoted(store::textOf(category));
                        },
                    .parent = "Cat"}},
        {ReportOption{.name = "ItemOpt", .caption = "&Item", .inputs = {"ICode", "IName"}}, ReportItem{}},
        {ReportAccount{}},
        {ReportPeriodBoxes{.check = "DateOpt"}, ReportDigits{.name = "Serial", .caption = "Serial"}}};
    open(std::move(type));
  }
  ReportFilters& filters() { return screen->filters(); }
};

TEST_F(ReportFiltersOf, EnableWhatIsTickedAndClearTheRest) {
  EXPECT_EQ(filters().choice("Which"), 0) << "the first of a group is chosen at first";
  for (const char* off : {"Cat", "SubOpt", "SubCat", "ICode", "IName", "LedgerDt_0", "LedgerDt_1"})
    EXPECT_FALSE(isEnabled(off)) << off;
  filters().choose("Which_1");
  EXPECT_TRUE(isEnabled("Cat") && isEnabled("SubOpt"));
  EXPECT_FALSE(isEnabled("SubCat")) << "its own box is not ticked";
  control<forms::DropCombo>("Cat").setBoundValue(std::string("PWR"));
  filters().choose("SubOpt");
  EXPECT_TRUE(isEnabled("SubCat"));
  control<forms::DropCombo>("SubCat").setBoundValue(std::string("PWR02"));
  EXPECT_EQ(filters().text("SubCat"), "Saws");
  filters().choose("Which_0");
  EXPECT_FALSE(isEnabled("Cat") || isEnabled("SubOpt") || isEnabled("SubCat"));
  EXPECT_FALSE(filters().chosen("SubOpt"));
  for (const char* list : {"Cat", "SubCat"}) EXPECT_TRUE(store::isNull(filters().value(list))) << list;
}

TEST_F(ReportFiltersOf, ListsFollowTheirParent) {
  filters().choose("Which_1");
  auto& categories = control<forms::DropCombo>("Cat");
  auto& below = control<forms::DropCombo>("SubCat");
  EXPECT_EQ(below.count(), 0);
  categories.setBoundValue(std::string("PWR"));
  EXPECT_EQ(below.count(), 2);
  below.setBoundValue(std::string("PWR01"));
  categories.setBoundValue(std::string("HND"));
  EXPECT_EQ(below.count(), 1);
  EXPECT_TRUE(store::isNull(filters().value("SubCat"))) << "what was chosen belongs to the other";
}

TEST_F(ReportFiltersOf, SayWhatTheirControlsStandFor) {
  for (const char* nothing : {"ICode", "ACodeTxt", "Cat", "Serial"})
    EXPECT_TRUE(store::isNull(filters().value(nothing))) << nothing;
  filters().choose("ItemOpt");
  filters().setText("ICode", "o'n-1");
  EXPECT_EQ(store::textOf(filters().value("ICode")), "O'N-1");
  EXPECT_EQ(filters().text("IName"), "O'Neil [steel] 100%_x");
  filters().setText("ICode", "O'N");
  EXPECT_TRUE(store::isNull(filters().value("ICode")));
  EXPECT_EQ(filters().text("IName"), "");
  filters().setText("ACodeTxt", "12001901");
  EXPECT_EQ(filters().value("ACodeTxt"), store::Value(std::int64_t{12001901}));
  EXPECT_EQ(filters().account("ACodeTxt"), 12001901);
  EXPECT_EQ(filters().text("Acc"), "Yard");
  filters().setText("Serial", "007");
  EXPECT_EQ(store::textOf(filters().value("Serial")), "007");
  control<forms::DatePicker>("LedgerDt_0").setDay(text::DateTime::fromCalendar(2026, 3, 31));
  EXPECT_EQ(store::dateOf(filters().value("LedgerDt_0")).iso(), "2026-03-31");
  EXPECT_EQ(filters().period().from.iso(), "2026-03-31");
  EXPECT_THROW(filters().value("Nobody"), std::logic_error);
  EXPECT_THROW(filters().choice("Nobody"), std::logic_error);
}

TEST_F(ReportFiltersOf, RunTheReportByEnterInADate) {
  int runs = 0;
  QObject::connect(&control<QAbstractButton>("ViewBttn"), &QAbstractButton::clicked, [&] { ++runs; });
  filters().choose("DateOpt");
  focus(control<QWidget>("LedgerDt_1"));
  press(control<QWidget>("LedgerDt_1"), Qt::Key_Return);
  EXPECT_EQ(runs, 1);
  focus(control<QWidget>("ACodeTxt"));
  press(control<QWidget>("ACodeTxt"), Qt::Key_Return);
  EXPECT_EQ(runs, 1) << "a code leads on";
  EXPECT_TRUE(control<QWidget>("DateOpt").hasFocus() || control<QWidget>("Acc").hasFocus());
}

}  // namespace
}  // namespace velmo::frame
