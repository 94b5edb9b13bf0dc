#include "shell/login/login_form.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <fstream>

#include "support/damage.h"
#include "support/new_company.h"
#include "support/queued_prompts.h"
#include "support/typing.h"

namespace velmo::shell {
namespace {

class LoginScreen : public testing::Test {
 protected:
  LoginScreen() {
    test::NewCompany::run({"update users set [Password]='' where userid=1",
                           "insert into users (UserID, UserName, [Password]) values (2, 'O''Brien', 'Se''cret')",
                           "insert into financialyear (FYID, FinancialYearStart, FinancialYearEnd, Abbreviation) "
                           "values (77, #07-01-1990#, #06-30-1991#, '1990-91')"});
    reopen();
  }

  void reopen() {
    form_ = std::make_unique<LoginForm>(schema::companyCatalog(), schema::plainConnectionString, prompts_);
    form_->show();
    test::focus(password());
  }
  QComboBox& users() { return *form_->findChild<QComboBox*>(QStringLiteral("UserCombo")); }
  QComboBox& years() { return *form_->findChild<QComboBox*>(QStringLiteral("FYear")); }
  QLineEdit& password() { return *form_->findChild<QLineEdit*>(QStringLiteral("PWD")); }
  QPushButton& button(const char* name) { return *form_->findChild<QPushButton*>(QLatin1String(name)); }
  void choose(QComboBox& combo, const char* text) { combo.setCurrentIndex(combo.findText(QLatin1String(text))); }
  void expectWrongPassword() {
    prompts_.expect("Wrong Password", "The password provided is incorrect! Please try again!");
  }

  test::NewCompany company_;
  test::QueuedPrompts prompts_;
  std::unique_ptr<LoginForm> form_;
};

TEST_F(LoginScreen, LogsTheProposedUserInByEnterAlone) {
  EXPECT_EQ(form_->focusWidget(), &password());
  test::press(password(), Qt::Key_Return);
  EXPECT_EQ(form_->result(), QDialog::Accepted);
  const std::unique_ptr<session::LoginContext> context = form_->takeContext();
  ASSERT_TRUE(context);
  EXPECT_EQ(context->UserID, 1);
  EXPECT_EQ(QString::fromStdString(context->UserName), users().currentText());
}

TEST_F(LoginScreen, TakesTheUserAndYearThatWereChosen) {
  choose(users(), "O'Brien");
  choose(years(), "1990-91");
  test::type(password(), QStringLiteral("Se'cret"));
  button("OkBttn").click();
  const std::unique_ptr<session::LoginContext> context = form_->takeContext();
  ASSERT_TRUE(context);
  EXPECT_EQ(context->UserName, "O'Brien");
  EXPECT_EQ(context->UserID, 2);
  EXPECT_EQ(context->FYID, 77);
  EXPECT_EQ(context->FinancialYearStart, text::DateTime::fromCalendar(1990, 7, 1));
}

TEST_F(LoginScreen, RefusesAWrongPasswordAndAsksAgain) {
  choose(users(), "O'Brien");
  const QString wrong[] = {QString(),
                           QStringLiteral("secret"),
                           QStringLiteral("' or '1'='1"),
                           QStringLiteral("%"),
                           QStringLiteral("[#];--"),
                           QString(10000, QLatin1Char('x')),
                           QString::fromUtf8("😀"),
                           QString::fromUtf8("שלום"),
                           QStringLiteral("Se'cret") + QChar(0) + QLatin1Char('x'),
                           QStringLiteral("1e308")};
  for (const QString& text : wrong) {
    button("ExitBttn").setFocus();
    password().setText(text);
    expectWrongPassword();
    button("OkBttn").click();
    EXPECT_TRUE(form_->isVisible());
    EXPECT_EQ(password().text(), QString());
    EXPECT_EQ(form_->focusWidget(), &password());
    EXPECT_FALSE(form_->takeContext());
  }
  test::type(password(), QStringLiteral("Se'cret"));
  button("OkBttn").click();
  EXPECT_TRUE(form_->takeContext());
}

TEST_F(LoginScreen, ProposesTheDefaultsTheNextTime) {
  choose(users(), "O'Brien");
  choose(years(), "1990-91");
  button("SetDefault").click();  // needs no password
  EXPECT_TRUE(form_->isVisible());
  form_.reset();
  reopen();
  EXPECT_EQ(users().currentText(), QStringLiteral("O'Brien"));
  EXPECT_EQ(years().currentText(), QStringLiteral("1990-91"));
}

TEST_F(LoginScreen, ProposesSomebodyWhenTheDefaultUserIsGone) {
  form_.reset();
  test::NewCompany::run({"update businessinfo set userid=9, FYID=123"});
  reopen();
  EXPECT_FALSE(users().currentText().isEmpty());
  EXPECT_FALSE(years().currentText().isEmpty());
  EXPECT_TRUE(button("OkBttn").isEnabled());
}

// Before the first screen, and as a sentence.
TEST_F(LoginScreen, SaysWhatAFileLacksForALogin) {
  form_.reset();
  const auto failure = [this]() -> std::string {
    try {
      schema::prepareCompanyFile(schema::plainConnectionString, text::DateTime::fromCalendar(2026, 11, 22));
      reopen();
    } catch (const store::StoreError& error) {
      return error.what();
    }
    return "none";
  };
  const std::filesystem::path file = company_.file();
  const std::string company = "The company's file is damaged: it lacks ";
  const std::string named = "The file \"Uninstall/Uninstall.MDB\" is damaged: it lacks ";
  for (const auto& [sql, lacks] :
       {std::pair{"DELETE FROM Users", company + "a user who could log in (the table \"Users\" is empty)"},
        {"DELETE FROM FinancialYear", company + "a financial year (the table \"FinancialYear\" is empty)"},
        {"DELETE FROM BusinessInfo", company + "the details of the company (the table \"BusinessInfo\" is empty)"},
        {"DROP TABLE Users", named + "the table \"Users\", which the program needs"},
        {"DROP TABLE StockFlow", named + "the table \"StockFlow\", which the program needs"}}) {
    std::filesystem::copy_file(file, file.string() + ".whole");
    test::past(file, sql);
    EXPECT_EQ(failure(), lacks + ". It was not changed. Restore it from a back-up copy.");
    std::filesystem::rename(file.string() + ".whole", file);
  }
}

TEST_F(LoginScreen, EndsWithoutAWordByExitOrEscape) {
  button("ExitBttn").click();
  EXPECT_EQ(form_->result(), QDialog::Rejected);
  reopen();
  test::press(password(), Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_FALSE(form_->takeContext());
}

TEST_F(LoginScreen, SaysWhyAFileCannotBeOpened) {
  form_.reset();
  const std::filesystem::path file = company_.file();
  std::ofstream(file, std::ios::trunc) << "this is no company";
  try {
    reopen();
    FAIL() << "a file that is no company was opened";
  } catch (const store::StoreError& error) {
    EXPECT_GT(std::string(error.what()).size(), 20U);
  }
}

}  // namespace
}  // namespace velmo::shell
