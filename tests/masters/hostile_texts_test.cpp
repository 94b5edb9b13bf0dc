#include <gmock/gmock.h>

#include "masters/accounts/modify_accounts.h"
#include "masters/accounts/modify_parties.h"
#include "masters/catalogue/item_settings.h"
#include "masters/catalogue/modify_inventory.h"
#include "masters/catalogue/modify_services.h"
#include "masters/catalogue/search_item.h"
#include "masters/lists/simple_lists.h"
#include "masters/master_company.h"
#include "masters/people/employees.h"
#include "masters/people/user_logins.h"
#include "support/parted.h"
#include "text/blanks.h"
#include "text/number.h"

namespace velmo::masters {
namespace {

using frame::BoxKind;
using frame::MasterPanel;

// What people paste, scan and mistype.
const std::vector<QString>& hostileTexts() {
  static const std::vector<QString> texts = [] {
    std::vector<QString> all = {QString::fromUtf8("nul") + QChar(u'\0') + QStringLiteral("after"),
                                QString(QChar(0xD800)) + QStringLiteral("half"),
                                QString(10000, QLatin1Char('x')),
                                QString::fromUtf8("😀").repeated(5000),
                                QString(10000, QLatin1Char('%')),
                                QString(10000, QLatin1Char('['))};
    for (const std::string_view text : test::parted(
             "'|''; DROP TABLE AccLevel3; --|\" & [x] & \"|[|]|[a|[!a-]|%|_|#11-22-2026#|;|((((|{select} }|%p "
             "%P %d|a\tb\nc\r\nd|  blanks  |😀👨‍👩‍👧 emoji|شركة الميناء \u202Egnp.exe|e\u0301 "
             "﷽ "
             "ẞß|1e308|-0|(5.00)|1,2,3|&HFF|NaN|null"))
      all.push_back(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    return all;
  }();
  return texts;
}

class HostileTexts : public test::MasterCompany {
 protected:
  void openListening(Make make) {
    if (!context) {
      logIn();
      run({"insert into stocklevel1 (catid, catname) values ('A', 'First')",
           "insert into stocklevel2 (subcatid, subcatname, catid) values ('A01', 'First', 'A')",
           "insert into regions1 (region1id, region1name) values (2, 'North')"});
      prompts.listen();
    }
    open(make);
  }
  // What a refusal may say: nothing of statements, of places in them or of the file below.
  static void expectPlainWords(const session::Prompt& told) {
    for (const char* word : {"SELECT", "select ", "near", "syntax", "token", "SQL", "position", "expected"})
      EXPECT_EQ(told.text.find(word), std::string::npos) << told.text.substr(0, 300);
    EXPECT_EQ(told.title, "Cannot Save");
  }
  static void fill(MasterPanel& panel, const QString& text) {
    for (const frame::MasterField& field : panel.level().fields) {
      QWidget* control = panel.box(field.column).control();
      auto* line = qobject_cast<QLineEdit*>(control);
      if (field.kind == BoxKind::Suggestion) static_cast<QComboBox*>(control)->setEditText(text);
      if (!line || line->isReadOnly()) continue;
      if (field.kind != BoxKind::Amount && field.kind != BoxKind::Digits) {
        line->setText(text);
      } else if (text.size() < 100) {
        line->clear();
        test::type(*line, text);
        if (line->text().isEmpty()) line->setText("0");
      }
    }
  }
  // As the column keeps what stands in a box.
  static std::string kept(const QString& text) {
    std::string bytes = text.toStdString();
    return std::string(text::trimmed(bytes));
  }
};

TEST_F(HostileTexts, AreRefusedOrKeptAsTypedByEveryBoxOfEveryDialog) {
  const Make dialogs[] = {makeModifyAccounts,  makeModifyCustomers, makeModifySuppliers, makeModifyBanks,
                          makeModifyInventory, makeModifyServices,  makeRegions,         makeSectors,
                          makeInvBrands,       makeInvLocations,    makeEmployees,       makeUserLogins};
  int saved = 0;
  for (const Make make : dialogs) {
    openListening(make);
    for (int level = 0; level < master().levels(); ++level) {
      MasterPanel& panel = master().panel(level);
      for (const QString& text : hostileTexts()) {
        SCOPED_TRACE(dialog->objectName().toStdString() + " level " + std::to_string(level) + " <" +
                     text.left(30).toStdString() + ">");
        prompts.told.clear();
        panel.add();
        if (!panel.isBusy()) break;  // no more logins
        if (dialog->objectName() == QStringLiteral("ModifyAccounts") && level == 0) pick("FSList", std::int64_t{10});
        fill(panel, text);
        panel.save();
        if (panel.isBusy()) {
          ASSERT_EQ(prompts.told.size(), 1U);
          expectPlainWords(prompts.told.front());
          panel.cancel();
          continue;
        }
        ++saved;
        EXPECT_TRUE(prompts.told.empty());
        const bool isBank = dialog->objectName() == QStringLiteral("ModifyBanks");
        for (const frame::MasterField& field : panel.level().fields) {
          const bool isTyped = field.kind == BoxKind::Text && field.use == frame::BoxUse::Open;
          if (!isTyped || (isBank && field.column == "AccName")) continue;
          EXPECT_EQ(panel.rows().text(field.column), kept(text.left(255))) << field.column;
        }
      }
    }
    dialog->close();
  }
  EXPECT_GT(saved, 300);
  for (const char* table : {"AccLevel3", "StockLevel3", "Users"})
    EXPECT_FALSE(rows(std::string("select * from ") + table).isEmpty()) << table;
}

TEST_F(HostileTexts, NoListTakesThemForAnEntry) {
  openListening(makeModifyCustomers);
  for (const char* list : {"RegionList1", "RegionList2", "SectorList", "EmpList"})
    for (const QString& text : hostileTexts()) {
      click("AddBttn3");
      write("AccCodeTxt", "Someone");
      prompts.told.clear();
      control<forms::DropCombo>(list).setEditText(text);
      click("SaveBttn3");
      ASSERT_EQ(prompts.told.size(), 1U) << list << text.left(20).toStdString();
      EXPECT_TRUE(prompts.told.front().text.starts_with("Select correct ")) << prompts.told.front().text;
      click("CancelBttn3");
    }
}

TEST_F(HostileTexts, PickersSearchesFiltersAndCellsBearThem) {
  for (const Make make : {Make(makeModifyAccounts), Make(makeModifyInventory)}) {
    openListening(make);
    inDialogOf("FindBttn", [](QDialog& picker) {
      for (const QString& text : hostileTexts()) {
        picker.findChild<QLineEdit*>("SearchBox")->setText(text);
        picker.grab();
      }
    });
    EXPECT_TRUE(prompts.told.empty());
  }
  openListening(makeSearchItem);
  for (const QString& text : hostileTexts()) {
    control<QLineEdit>("SearchBox").setText(text);
    click("FindBttn");
  }
  for (const session::Prompt& told : prompts.told) ADD_FAILURE() << told.title << ": " << told.text.substr(0, 300);
  openListening(makeInvPrices);
  click("ItemOpt_1");
  for (const QString& text : hostileTexts()) {
    control<QComboBox>("CatList").setEditText(text);
    prompts.told.clear();
    control<QLineEdit>("ProfitTxt").setText(text);
    click("UpdateBttn");
    const bool isNumber = text::numberFrom(text.toStdString()).has_value();
    EXPECT_EQ(prompts.told.size(), isNumber ? 0U : 1U) << text.left(20).toStdString();
  }
}

}  // namespace
}  // namespace velmo::masters
