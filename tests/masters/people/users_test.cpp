#include <gmock/gmock.h>

#include <QLabel>

#include "masters/master_company.h"
#include "masters/people/password.h"
#include "masters/people/user_logins.h"
#include "masters/people/user_rights.h"
#include "session/login.h"

namespace velmo::masters {
namespace {

using testing::ElementsAre;

class Users : public test::MasterCompany {
 protected:
  void addOperators(int last) {
    if (!context) logIn();
    for (int id = 2; id <= last; ++id)
      context->KORDconn.execute("insert into users (userid, username, [password]) values (" + std::to_string(id) +
                                ", 'Operator " + std::to_string(id) + "', 'p" + std::to_string(id) + "')");
  }
  std::string password(int id) {
    return rows("select * from users where userid=" + std::to_string(id)).text("password");
  }
  QTableView& rights() { return control<QTableView>("RightsGrid"); }
  std::vector<int> shownColumns() {
    std::vector<int> shown;
    for (int column = 0; column < rights().model()->columnCount(); ++column)
      if (!rights().isColumnHidden(column)) shown.push_back(column);
    return shown;
  }
  void flip(int row) { Q_EMIT rights().doubleClicked(rights().model()->index(row, 1)); }
};

TEST_F(Users, TenLoginsAtMostWithDenseNumbers) {
  addOperators(8);
  open(makeUserLogins);
  EXPECT_EQ(control<QLabel>("UserType").text(), QStringLiteral("Administrator"));
  for (const char* id : {"9", "10"}) {
    click("AddBttn");
    EXPECT_EQ(read("UserID"), id);
    EXPECT_FALSE(control<QTableView>("UserList").isEnabled() || control<QPushButton>("SetPwd").isEnabled());
    refused("SaveBttn", "Cannot Save", "Give login name to save record.");
    write("LoginTxt", "O'Brien");
    click("SaveBttn");
    EXPECT_EQ(control<QLabel>("UserType").text(), QStringLiteral("Operator"));
    EXPECT_EQ(password(std::stoi(id)), "");
  }
  prompts.expect("Cannot Add", "You have already created maximum number of user logins allowed.");
  click("AddBttn");
  EXPECT_EQ(read("UserID"), "10");
  EXPECT_TRUE(control<QTableView>("UserList").isEnabled());
  EXPECT_EQ(dialog->findChild<QWidget*>("DelBttn"), nullptr);
  EXPECT_EQ(rows("select * from users").recordCount(), 10);
}

TEST_F(Users, PasswordsOutliveOtherChangesUntilTheyAreReset) {
  addOperators(3);
  open(makeUserLogins);
  choose("UserList", "2");
  write("LoginTxt", "Renamed");
  write("Notes", "night shift");
  click("SaveBttn");
  EXPECT_EQ(password(2), "p2");
  EXPECT_EQ(rows("select * from users where userid=2").text("notes"), "night shift");
  click("SetPwd");
  EXPECT_EQ(password(2), "");
  EXPECT_EQ(password(3), "p3");
  session::LoginRecords records(context->KORDconn);
  records.users.find("userid = 2");
  EXPECT_TRUE(session::passwordFits(records.users, ""));
}

TEST_F(Users, RightsShowTheColumnOfTheChosenOperatorAlone) {
  addOperators(10);
  open(makeUserRights);
  EXPECT_EQ(control<forms::DropCombo>("LoginList").count(), 9);
  for (int id = 2; id <= 10; ++id) {
    pick("LoginList", std::int64_t{id});
    EXPECT_EQ(read("UID"), std::to_string(id));
    EXPECT_THAT(shownColumns(), ElementsAre(0, 1, id));
  }
  control<forms::DropCombo>("LoginList").setEditText("Nobody");
  EXPECT_THAT(shownColumns(), ElementsAre(0, 1));
  flip(0);
  click("SaveBttn");
  EXPECT_EQ(rows("select * from userrights where operator1=yes or operator9=yes").recordCount(), 0);
}

TEST_F(Users, RightsAreWrittenTogetherAndAtOnceInForce) {
  addOperators(4);
  open(makeUserRights);
  pick("LoginList", std::int64_t{4});
  const auto shown = [this](int row) { return rights().model()->index(row, 4).data().toString(); };
  const int right = rights().model()->index(3, 0).data().toInt();
  session::LoginContext& running = *context;
  running.UserID = 4;
  const auto allowed = [&] { return workplace->rights().allows(right); };
  flip(3);
  flip(5);
  EXPECT_EQ(shown(3), QStringLiteral("Not Allowed"));
  EXPECT_EQ(shown(4), QString());
  flip(5);
  EXPECT_EQ(shown(5), QString());
  EXPECT_TRUE(allowed()) << "not saved yet";
  click("CancelBttn");
  EXPECT_EQ(shown(3), QString());
  EXPECT_TRUE(dialog->isVisible());
  flip(3);
  flip(6);
  pick("LoginList", std::int64_t{2});
  flip(6);
  click("SaveBttn");
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_FALSE(allowed());
  running.UserID = 3;
  EXPECT_TRUE(allowed());
  EXPECT_EQ(rows("select * from userrights where operator3=yes").recordCount(), 2);
  EXPECT_EQ(rows("select * from userrights where operator1=yes").recordCount(), 1);

  flip(7);
  prompts.expect("Not Saved", "There are changes that have not been saved. Do you want to drop them?",
                 session::Answer::No);
  EXPECT_FALSE(dialog->close());
  prompts.expect("Not Saved", "There are changes that have not been saved. Do you want to drop them?",
                 session::Answer::Yes);
  EXPECT_TRUE(dialog->close());
  EXPECT_EQ(rows("select * from userrights where operator1=yes").recordCount(), 1);
}

struct Attempt {
  const char* old;
  const char* fresh;
  const char* repeated;
  const char* refusal;  // its title; nullptr when it is saved
};

TEST_F(Users, PasswordIsChangedByWhoKnowsIt) {
  addOperators(3);
  run({"update users set [password]='Se''cret %' where userid=2", "update users set username='Aa' where userid=3"});
  context->UserID = 2;
  for (const Attempt& attempt :
       {Attempt{"", "x", "x", "Wrong Password"}, Attempt{"se'cret %", "x", "x", "Wrong Password"},
        Attempt{"%", "x", "x", "Wrong Password"}, Attempt{"Se'cret %", "new", "New", "Password Mismatch"},
        Attempt{"Se'cret %", "new", "", "Password Mismatch"}, Attempt{"Se'cret %", "'; drop --", "'; drop --", nullptr},
        Attempt{"'; drop --", "пароль 😀  ", "пароль 😀  ", nullptr}, Attempt{"пароль 😀  ", "", "", nullptr},
        Attempt{"", "again", "again", nullptr}}) {
    SCOPED_TRACE(std::string(attempt.old) + " > " + attempt.fresh);
    open(makePassword);
    EXPECT_EQ(control<QComboBox>("UserCombo").currentText(), QStringLiteral("Operator 2"));
    EXPECT_FALSE(control<QComboBox>("UserCombo").isEnabled());
    EXPECT_TRUE(control<QWidget>("OldPwd").hasFocus());
    write("OldPwd", attempt.old);
    write("NewPwd", attempt.fresh);
    write("NewPwd2", attempt.repeated);
    const std::string before = password(2);
    if (!attempt.refusal) {
      test::press(control<QLineEdit>("NewPwd2"), Qt::Key_Return);
      EXPECT_FALSE(dialog->isVisible());
      session::LoginRecords records(context->KORDconn);
      records.users.find("userid = 2");
      EXPECT_TRUE(session::passwordFits(records.users, attempt.fresh));
      continue;
    }
    const bool wrong = attempt.refusal == std::string("Wrong Password");
    refused("ChangePwd", attempt.refusal,
            wrong ? "The old password provided is incorrect! Please try again!" : "Please re-type your new password!");
    EXPECT_EQ(read("OldPwd"), wrong ? "" : attempt.old);
    EXPECT_EQ(read("NewPwd") + read("NewPwd2"), "");
    EXPECT_TRUE(control<QWidget>(wrong ? "OldPwd" : "NewPwd").hasFocus());
    EXPECT_EQ(password(2), before);
    click("CancelBttn");
    EXPECT_FALSE(dialog->isVisible());
  }
  EXPECT_EQ(password(1) + password(3), "p3") << "those of the others stay";
}

}  // namespace
}  // namespace velmo::masters
