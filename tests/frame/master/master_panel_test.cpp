#include "frame/master/master_panel.h"

#include <QLineEdit>
#include <QPushButton>

#include "forms/table_view.h"
#include "frame/shop_fixture.h"
#include "support/typing.h"

namespace {

using namespace velmo;
using frame::MasterPanel;

// Sectors: one level with a number that is given, a name that must be there, and customers that hold on to one.
frame::MasterLevel sectors() {
  return {
      .frame = "L1Frame",
      .list = "List",
      .suffix = "1",
      .heading = "Sectors",
      .key = "SectorID",
      .statement = [](const std::string&) { return "select * from BizSectors order by sectorname"; },
      .columns = {{.caption = "Sector", .field = "SectorName"}},
      .fields = {{.name = "Code", .caption = "No.", .column = "SectorID", .use = frame::BoxUse::ShownOnly},
                 {.name = "Name", .caption = "Name", .column = "SectorName"}},
      .written = {{"SectorID"}, {"SectorName"}},
      .tests = {{frame::emptyText("SectorName", "Enter a name."), "SectorName"}},
      .deletion =
          frame::MasterDeletion{
              .none = {"None", "There is none."},
              .refusals = {frame::hasRows(
                  "select * from acclevel3 where sectorid = ",
                  [](const frame::MasterEntry& entry) { return entry.stored("SectorID"); },
                  [](const frame::MasterEntry&) { return std::string("It has customers."); })},
              .question = [](const frame::MasterEntry& entry) { return "Delete " + entry.stored("SectorName") + "?"; }},
      .firstColumn = "SectorName",
      .givenCode = frame::GivenCode{.column = "SectorID", .table = "BizSectors", .next = [](const frame::MasterEntry&) {
                                      return std::string("3");
                                    }}};
}

class MasterPanelTest : public test::Shop {
 protected:
  MasterPanelTest() {
    test::NewCompany::run(context.KORDconn, {"delete * from BizSectors",
                                             "insert into BizSectors (SectorID, SectorName) values (1, 'Banks')",
                                             "insert into BizSectors (SectorID, SectorName) values (2, 'Mills')",
                                             "update acclevel3 set sectorid = 1 where acccode = 12001900"});
    panel.load({""});
    dialog.show();
  }
  std::string names() {
    std::string all;
    for (int row = 0; row < panel.model().rowCount(); ++row)
      all += (row ? "|" : "") + panel.model().index(row, 0).data().toString().toStdString();
    return all;
  }
  void type(const char* name) {
    auto* box = panel.findChild<QLineEdit*>("Name");
    box->setFocus();
    box->selectAll();
    test::type(*box, QString::fromUtf8(name));
  }

  const frame::MasterLevel level = sectors();
  QWidget dialog;
  MasterPanel panel{level, workplace, &dialog};
};

TEST_F(MasterPanelTest, AddsChangesAndCancels) {
  EXPECT_EQ(names(), "Banks|Mills");
  EXPECT_EQ(panel.key(), "1");
  panel.add();
  EXPECT_EQ(panel.state(), MasterPanel::State::Adding);
  EXPECT_EQ(panel.text("SectorID"), "3");
  EXPECT_FALSE(panel.findChild<QWidget*>("List")->isEnabled()) << "the list stands still meanwhile";
  prompts.expect("Cannot Save", "Enter a name.");
  panel.save();
  EXPECT_EQ(panel.state(), MasterPanel::State::Adding);
  type("Farms");
  panel.save();
  EXPECT_EQ(names(), "Banks|Farms|Mills");
  EXPECT_EQ(panel.key(), "3");

  ASSERT_TRUE(panel.goTo("2"));
  type("Old mills");
  EXPECT_EQ(panel.state(), MasterPanel::State::Changing);
  panel.cancel();
  EXPECT_EQ(panel.text("SectorName"), "Mills");
  EXPECT_EQ(names(), "Banks|Farms|Mills");
  EXPECT_FALSE(panel.goTo("9"));
}

TEST_F(MasterPanelTest, DeletesWhatNothingHoldsOnTo) {
  prompts.expect("Cannot Delete", "It has customers.");
  panel.remove();
  ASSERT_TRUE(panel.goTo("2"));
  for (const session::Answer answer : {session::Answer::No, session::Answer::Yes}) {
    prompts.expect("Delete Confirmation", "Delete Mills?", answer);
    panel.remove();
  }
  EXPECT_EQ(names(), "Banks");
  test::NewCompany::run(context.KORDconn, {"delete * from BizSectors"});
  panel.load({""});
  prompts.expect("None", "There is none.");
  panel.remove();
}

}  // namespace
