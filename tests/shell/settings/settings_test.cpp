#include <QAbstractButton>
#include <QListWidget>
#include <QPlainTextEdit>

#include "shell/settings/print_format.h"
#include "shell/settings/settings_company.h"

namespace velmo::shell {
namespace {

using Settings = test::SettingsCompany;

TEST_F(Settings, CompanyIsWrittenWithItsNewNameAndHeadsTheNextPrintOut) {
  open("CompanyInfo");
  const char* typed[] = {"O'Brien \"&\" Sons", "1, High St.", "111", "", "w", "a@b.pk", "N1", "S1", "کریانہ 😀"};
  for (int i = 0; i < 9; ++i) write(("Info_" + std::to_string(i)).c_str(), typed[i]);
  ASSERT_TRUE(saveCloses());
  EXPECT_EQ(context->CompanyName, typed[0]);
  EXPECT_EQ(context->CompanyAddress, typed[1]);
  EXPECT_EQ(context->CompanyTelLine, "Tel: 111");
  EXPECT_EQ(context->CompanyEmailLine, "E-Mail: a@b.pk");
  const store::Recordset row = rows("select * from businessinfo");
  const char* columns[] = {"name",  "address", "telephones",  "fax",        "website",
                           "email", "ntn",     "salestaxreg", "description"};
  for (int i = 0; i < 9; ++i) EXPECT_EQ(row.text(columns[i]), typed[i]);

  open("CompanyInfo");  // and once more: nothing is mandatory, not even the name
  for (int i = 0; i < 9; ++i) write(("Info_" + std::to_string(i)).c_str(), i == 3 ? "222" : "");
  test::press(control<QLineEdit>("Info_8"), Qt::Key_Return);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(context->CompanyName, "");
  EXPECT_EQ(context->CompanyTelLine, "Tel:    Fax: 222");
  EXPECT_EQ(rows("select * from businessinfo").recordCount(), 1);
}

TEST_F(Settings, NothingIsWrittenByCancelOrEscape) {
  for (const bool escape : {false, true}) {
    open("CompanyInfo");
    write("Info_0", "Other");
    if (escape)
      test::press(control<QLineEdit>("Info_0"), Qt::Key_Escape);
    else
      control<QPushButton>("CancelBttn").click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_NE(context->CompanyName, "Other");
    EXPECT_NE(rows("select * from businessinfo").text("name"), "Other");
  }
}

TEST_F(Settings, WhatAnotherProgramChangedMeanwhileIsNotOverwritten) {
  open("CompanyInfo");
  write("Info_1", "mine");
  test::NewCompany::run({"update businessinfo set address='theirs'"});
  prompts.expect("Cannot Save",
                 "The record of BusinessInfo was changed or deleted since it was read. Nothing was saved; show it "
                 "again and repeat the change.");
  EXPECT_FALSE(saveCloses());
  EXPECT_EQ(rows("select * from businessinfo").text("address"), "theirs");
}

TEST_F(Settings, CurrencyOfTheChosenCountryIsCorrectedInTheListToo) {
  open("CurrencySettings");
  auto& countries = control<QListWidget>("CountryList");
  EXPECT_EQ(countries.currentItem()->text().toStdString(), rows("select * from businessinfo").text("country"));
  const auto found = countries.findItems(QStringLiteral("Pakistan"), Qt::MatchExactly);
  ASSERT_EQ(found.size(), 1);
  countries.setCurrentItem(found.front());
  const store::Recordset listed = rows("select * from Currencies where Country='Pakistan'");
  EXPECT_EQ(control<QLineEdit>("CName").text().toStdString(), listed.text("Curency\xC2\xA0\xC2\xA0"));
  EXPECT_EQ(control<QLineEdit>("CSymbol").text().toStdString(), listed.text("CCode\xC2\xA0\xC2\xA0"));
  write("CName", "Rupees o' Pakistan");
  write("CSymbol", "₨'");
  ASSERT_TRUE(saveCloses());
  EXPECT_EQ(context->currencyname, "Rupees o' Pakistan");
  EXPECT_EQ(context->ccode, "₨'");
  const store::Recordset row = rows("select * from businessinfo");
  EXPECT_EQ(row.text("country") + row.text("currencyname") + row.text("ccode"), "PakistanRupees o' Pakistan₨'");
  const store::Recordset corrected = rows("select * from Currencies where Currencies.CCode\xC2\xA0\xC2\xA0 = '₨'''");
  EXPECT_EQ(corrected.recordCount(), 1);
  EXPECT_EQ(corrected.text("Country"), "Pakistan");
}

TEST_F(Settings, CurrencyOfACountryThatIsNotListedLeavesTheListAlone) {
  test::NewCompany::run({"update businessinfo set country='Atlantis', currencyname='Shell', ccode='S'"});
  open("CurrencySettings");
  EXPECT_EQ(control<QLineEdit>("CName").text(), QStringLiteral("Shell"));
  write("CName", "Pearl");
  ASSERT_TRUE(saveCloses());
  EXPECT_EQ(rows("select * from businessinfo").text("country"), "Atlantis");
  EXPECT_EQ(context->currencyname, "Pearl");
  EXPECT_TRUE(rows("select * from Currencies where Currencies.Curency\xC2\xA0\xC2\xA0 = 'Pearl'").isEmpty());
}

struct InvoiceFormat {
  int stored, size, type;
  bool letterhead;
};

TEST_F(Settings, InvoiceFormatsAreShownAndStored) {
  for (const InvoiceFormat& c : std::initializer_list<InvoiceFormat>{{1, 1, 1, false},
                                                                     {11, 1, 1, true},
                                                                     {2, 1, 2, false},
                                                                     {12, 1, 2, true},
                                                                     {3, 3, 1, false},
                                                                     {13, 3, 1, true},
                                                                     {4, 4, 1, false},
                                                                     {14, 4, 1, true},
                                                                     {6, 2, 1, false},
                                                                     {16, 2, 1, true},
                                                                     {7, 2, 2, false},
                                                                     {17, 2, 2, true}}) {
    SCOPED_TRACE(c.stored);
    const auto option = [this](const char* name, int index) -> QAbstractButton& {
      return control<QAbstractButton>((std::string(name) + std::to_string(index)).c_str());
    };
    if (!context) logIn();
    test::NewCompany::run(context->KORDconn, {"update businessinfo set SIF=5, SITM=777"});
    open("InvoiceSettings");  // 5 is no format
    EXPECT_TRUE(option("InvSize_", 1).isChecked() && option("InvType_", 1).isChecked());
    EXPECT_FALSE(control<QWidget>("TM").isVisible() || control<QWidget>("MarginLbl").isVisible());
    option("InvSize_", c.size).click();
    option("InvType_", c.type).click();
    if (c.letterhead) control<QAbstractButton>("HeadCheck").click();
    EXPECT_EQ(control<QWidget>("TM").isVisible(), c.letterhead);
    context->sitm = 1;
    ASSERT_TRUE(saveCloses());
    EXPECT_EQ(context->sif, c.stored);
    EXPECT_EQ(context->sitm, c.letterhead ? 777 : 1);
    EXPECT_EQ(rows("select SIF from businessinfo").integer("SIF"), c.stored);
    open("InvoiceSettings");
    EXPECT_TRUE(option("InvSize_", c.size).isChecked());
    EXPECT_TRUE(option("InvType_", c.type).isChecked());
    EXPECT_EQ(control<QAbstractButton>("HeadCheck").isChecked(), c.letterhead);
    EXPECT_EQ(option("InvType_", 1).isEnabled(), c.size <= 2);
  }
}

struct Screen {
  const char* name;
  const char* format;
  const char* margin;
  int session::LoginContext::*formatMember;
  int session::LoginContext::*marginMember;
  int withHeaders, onLetterhead, smallest;
};
constexpr Screen screensOfTheFamily[] = {
    {"InvoiceSettings", "SIF", "SITM", &session::LoginContext::sif, &session::LoginContext::sitm, 1, 11, 200},
    {"POSettings", "POF", "POTM", &session::LoginContext::pof, &session::LoginContext::potm, 1, 2, 300},
    {"QuoteSettings", "QF", "QTM", &session::LoginContext::qf, &session::LoginContext::qtm, 1, 11, 300},
    {"DCSettings", "DCF", "DCTM", &session::LoginContext::dcf, &session::LoginContext::dctm, 1, 2, 300},
};

TEST_F(Settings, MarginsHaveTheirRanges) {
  for (const Screen& screen : screensOfTheFamily) {
    const std::string range = std::to_string(screen.smallest) + " and 4000";
    open(screen.name);
    if (!control<QAbstractButton>("HeadCheck").isChecked()) control<QAbstractButton>("HeadCheck").click();
    for (const char* text : {"", "abc", "1.2.3", ".", "4000 twips"}) {
      control<QLineEdit>("TM").setMaxLength(20);
      write("TM", text);
      prompts.expect("Cannot Save", "Please enter a numeric value between " + range);
      EXPECT_FALSE(saveCloses()) << text;
    }
    for (const char* text : {"0", "4001", "99999", "-300", "1e9", "199.9", "4000.1"}) {
      write("TM", text);
      prompts.expect("Cannot Save", "Please enter a value between " + range);
      EXPECT_FALSE(saveCloses()) << text;
    }
    write("TM", std::to_string(screen.smallest - 1).c_str());
    prompts.expect("Cannot Save", "Please enter a value between " + range);
    EXPECT_FALSE(saveCloses());
    for (const int margin : {screen.smallest, 4000}) {
      write("TM", std::to_string(margin).c_str());
      ASSERT_TRUE(saveCloses());
      EXPECT_EQ((*context).*screen.marginMember, margin);
      EXPECT_EQ((*context).*screen.formatMember, screen.onLetterhead);
      const store::Recordset row = rows("select * from businessinfo");
      EXPECT_EQ(row.integer(screen.margin), margin);
      EXPECT_EQ(row.integer(screen.format), screen.onLetterhead);
      open(screen.name);
      EXPECT_TRUE(control<QWidget>("TM").isVisible());
    }
    control<QAbstractButton>("HeadCheck").click();
    ASSERT_TRUE(saveCloses());
    EXPECT_EQ((*context).*screen.formatMember, screen.withHeaders);
  }
}

// Lines, quotes, what looks like a statement or rich text, and other scripts come back as they were typed.
TEST_F(Settings, StandingTermsOfQuotationsAndPurchaseOrdersAreKept) {
  const QString terms = QStringLiteral("1. O'Brien's \"price\"; drop table x -- \n\n2. <b>50%</b> _ *\n\tاردو 😀\n") +
                        QString(20000, QLatin1Char('W'));
  for (const auto& [screen, column] : {std::pair{"QuoteSettings", "TermsQuote"}, std::pair{"POSettings", "TermsPO"}}) {
    open(screen);
    control<QPlainTextEdit>("Terms").setPlainText(terms);
    control<QAbstractButton>("HeadCheck").click();
    write("TM", "1");
    prompts.expect("Cannot Save", "Please enter a value between 300 and 4000");
    EXPECT_FALSE(saveCloses());
    EXPECT_EQ(rows("select * from businessinfo").text(column), "");
    write("TM", "300");
    ASSERT_TRUE(saveCloses());
    EXPECT_EQ(rows("select * from businessinfo").text(column), terms.toStdString());
    open(screen);
    EXPECT_EQ(control<QPlainTextEdit>("Terms").toPlainText(), terms);
    const std::string byOther = std::string("update businessinfo set ") + column + "='theirs'";
    test::NewCompany::run({byOther.c_str()});
    write("TM", "4000");
    control<QPlainTextEdit>("Terms").setPlainText("mine");
    prompts.expectTitle("Cannot Save");
    EXPECT_FALSE(saveCloses());
    EXPECT_EQ(rows("select * from businessinfo").text(std::string(column) == "TermsPO" ? "POTM" : "QTM"), "300");
    EXPECT_EQ(rows("select * from businessinfo").text(column), "theirs");
  }
}

TEST_F(Settings, MarginTakesFiveDigitsAtMost) {
  open("QuoteSettings");
  control<QAbstractButton>("HeadCheck").click();
  auto& margin = control<QLineEdit>("TM");
  test::focus(margin);
  margin.clear();
  test::type(margin, QStringLiteral("a1-2.3e4 5678"));
  EXPECT_EQ(margin.text(), QStringLiteral("12345"));
  test::press(margin, Qt::Key_Backspace);
  EXPECT_EQ(margin.text(), QStringLiteral("1234"));
}

TEST_F(Settings, TabFollowsTheEyeAndEveryAccessKeyIsTakenOnce) {
  const struct {
    const char* screen;
    std::vector<std::string> stops;  // the first has the focus
  } cases[] = {
      {"CompanyInfo",
       {"Info_0", "Info_1", "Info_2", "Info_3", "Info_4", "Info_5", "Info_6", "Info_7", "Info_8", "SaveBttn",
        "CancelBttn"}},
      {"CurrencySettings", {"CountryList", "CName", "CSymbol", "SaveBttn", "CancelBttn"}},
      {"InvoiceSettings", {"InvSize_1", "InvType_1", "HeadCheck", "TM", "SaveBttn", "CancelBttn"}},
      {"POSettings", {"HeadCheck", "TM", "Terms", "SaveBttn", "CancelBttn"}},
      {"LogoSetting", {"NewBttn", "CloseBttn"}},
      {"About", {"OkBttn", "Bluff"}},
  };
  for (const auto& [screen, stops] : cases) {
    SCOPED_TRACE(screen);
    open(screen);
    if (auto* letterhead = dialog->findChild<QAbstractButton*>(QStringLiteral("HeadCheck")))
      letterhead->setChecked(true);
    QApplication::setActiveWindow(dialog.get());
    for (const std::string& stop : stops) {
      ASSERT_TRUE(QApplication::focusWidget());
      EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), stop);
      test::press(*QApplication::focusWidget(), Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
    }
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), stops.front()) << "and round again";
    std::map<QString, int> keys;
    for (QWidget* widget : dialog->findChildren<QWidget*>())
      for (const char* words : {"text", "title"}) {
        const QKeySequence key = QKeySequence::mnemonic(widget->property(words).toString());
        if (!key.isEmpty()) ++keys[key.toString()];
      }
    for (const auto& [key, uses] : keys) EXPECT_EQ(uses, 1) << key.toStdString();
    EXPECT_GE(keys.size(), 2U);
    test::press(*QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
  }
}

TEST(PrintFormat, EveryChoiceIsShownAsItWasStored) {
  for (const auto formats : {invoiceFormats(), orderFormats(), quotationFormats()})
    for (const PrintFormat& format : formats)
      for (const bool letterhead : {false, true}) {
        const int number =
            formatNumberOf(formats, {.size = format.size, .type = format.type, .onLetterhead = letterhead});
        const PrintChoice choice = choiceOf(formats, number);
        EXPECT_EQ(choice.size, format.size) << number;
        EXPECT_EQ(choice.type, format.type) << number;
        EXPECT_EQ(choice.onLetterhead, letterhead) << number;
      }
  EXPECT_THROW(formatNumberOf(invoiceFormats(), {.size = 5, .type = 1}), std::logic_error);
}

}  // namespace
}  // namespace velmo::shell
