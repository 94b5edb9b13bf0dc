#include "masters/people/user_logins.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "forms/look.h"
#include "frame/master/master_dialog.h"

namespace velmo::masters {
namespace {

using frame::MasterEntry;
using frame::MasterPanel;

constexpr std::int64_t mostUsers = 10;

constexpr const char* tooManyUsers = "You have already created maximum number of user logins allowed.";

// The lowest free number. Users are never deleted, so that it is the count of them with the new one.
std::string nextUser(const MasterEntry& entry) {
  store::Recordset users(entry.connection(), "select userid from Users order by userid", store::LockType::ReadOnly);
  if (users.recordCount() >= mostUsers) return {};
  std::int64_t number = 1;
  for (; !users.eof(); users.moveNext())
    if (users.integer("userid") == number) ++number;
  return std::to_string(number);
}

bool beginUser(MasterPanel& panel) {
  if (!panel.text("UserID").empty()) return true;
  panel.workplace().prompts.tell("Cannot Add", tooManyUsers);
  return false;
}

// The user logs in with an empty box from then on.
void resetPassword(MasterPanel& panel, QLabel& told) {
  panel.workplace().attempt("Cannot Save", [&] {
    panel.rows().update({{"password", std::string()}});
    told.setText(MasterPanel::tr("The password is empty now."));
  });
}

void furnish(MasterPanel& panel) {
  auto* type = new QLabel;
  type->setObjectName("UserType");
  forms::makeCaption(*type);
  panel.heading().addWidget(type);
  auto* reset = new QPushButton(MasterPanel::tr("Reset Password"));
  reset->setObjectName("SetPwd");
  reset->setToolTip(MasterPanel::tr("Empties the password of the selected user"));
  reset->setAutoDefault(false);
  auto* told = new QLabel;
  forms::makeCaption(*told);
  panel.commands().addWidget(told);
  panel.commands().addWidget(reset);
  QObject::connect(reset, &QPushButton::clicked, &panel, [&panel, told] { resetPassword(panel, *told); });
  QObject::connect(&panel, &MasterPanel::busyChanged, reset, [&panel, reset] { reset->setEnabled(!panel.isBusy()); });
  QObject::connect(&panel, &MasterPanel::currentChanged, told, [&panel, told, type] {
    told->clear();
    type->setText(panel.text("UserID") == "1" ? MasterPanel::tr("Administrator") : MasterPanel::tr("Operator"));
  });
}

}  // namespace

QWidget* makeUserLogins(session::Workplace& workplace, QWidget* parent) {
  frame::MasterLevel level = {
      .frame = "ListFrame",
      .list = "UserList",
      .suffix = "",
      .heading = "User logins",
      .key = "UserID",
      .statement = [](const std::string&) { return std::string("select * from Users order by userid"); },
      .columns = {{.caption = "No.", .field = "UserID", .alignment = forms::ColumnAlignment::Right, .width = 5},
                  {.caption = "Login name", .field = "UserName", .width = 24},
                  {.caption = "Notes", .field = "Notes", .width = 30}},
      .fields = {{.name = "UserID", .caption = "No.", .column = "UserID", .use = frame::BoxUse::ShownOnly},
                 {.name = "LoginTxt", .caption = "Login name", .column = "UserName"},
                 {.name = "Notes", .caption = "Notes", .column = "Notes"}},
      // A new user's password is empty.
      .written = {{"userid"},
                  {"username"},
                  {"password", [](const MasterEntry& entry) -> store::Value { return entry.stored("password"); }},
                  {"Notes"}},
      .tests = {{frame::emptyText("UserID", tooManyUsers)},
                {frame::emptyText("UserName", "Give login name to save record."), "UserName"}},
      .firstColumn = "UserName",
      .givenCode = frame::GivenCode{.column = "UserID", .table = "Users", .next = nextUser},
      .begin = beginUser,
      .furnish = furnish};
  std::vector<frame::MasterLevel> levels;
  levels.push_back(std::move(level));
  return new frame::MasterDialog({.screen = "UserLogins", .title = "User Logins", .levels = std::move(levels)},
                                 workplace, parent);
}

}  // namespace velmo::masters
