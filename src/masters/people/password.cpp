#include "masters/people/password.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include "forms/caption.h"
#include "forms/drop_combo.h"
#include "forms/look.h"
#include "forms/settings_dialog.h"
#include "session/login.h"

namespace velmo::masters {
namespace {

constexpr int longestPassword = 255;

class Password : public forms::SettingsDialog {
 public:
  Password(session::Workplace& workplace, QWidget* parent)
      : forms::SettingsDialog(workplace, tr("Password"), parent),
        users_(workplace.context.KORDconn, "Select * from users order by username") {
    setObjectName("Password");
    forms::addDialogHeading(body(), tr("Change Password"), workplace.context.CompanyName, "CoyName");
    body().addLayout(makeFields());
    body().addStretch(1);
    addCommands(
        {.name = "ChangePwd", .caption = "&Save New Password", .hint = "Saves the new password and closes (Ctrl+S)"});
    resize(460, 320);
    showUser();
    oldPassword_->setFocus();
  }

 private:
  QLayout* makeFields() {
    fields_ = new QFormLayout;
    forms::setGrid(*fields_, 0);
    fields_->setHorizontalSpacing(forms::spacing::Section);
    fields_->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    user_ = new forms::DropCombo;
    user_->setEnabled(false);
    addField("UserCombo", tr("User"), *user_);
    oldPassword_ = addSecret("OldPwd", tr("&Old password"));
    newPassword_ = addSecret("NewPwd", tr("&New password"));
    repeated_ = addSecret("NewPwd2", tr("New password, &again"));
    return fields_;
  }

  void addField(const char* name, const QString& caption, QWidget& field) {
    field.setObjectName(QLatin1String(name));
    field.setMinimumHeight(32);
    fields_->addRow(forms::captionFor(field, caption), &field);
  }

  QLineEdit* addSecret(const char* name, const QString& caption) {
    auto* box = new QLineEdit;
    box->setEchoMode(QLineEdit::Password);
    box->setMaxLength(longestPassword);
    addField(name, caption, *box);
    return box;
  }

  void showUser() {
    user_->setSource(users_, "username", "userid");
    user_->setBoundValue(std::int64_t{workplace_.context.UserID});
    users_.moveFirst();
    users_.find("userid = " + std::to_string(workplace_.context.UserID));
  }

  bool refuse(std::initializer_list<QLineEdit*> boxes, const char* title, const char* text) {
    for (QLineEdit* box : boxes) box->clear();
    (*boxes.begin())->setFocus();
    workplace_.prompts.tell(title, text);
    return false;
  }

  bool save() override {
    if (!session::passwordFits(users_, oldPassword_->text().toStdString()))
      return refuse({oldPassword_, newPassword_, repeated_}, "Wrong Password",
                    "The old password provided is incorrect! Please try again!");
    if (newPassword_->text() != repeated_->text())
      return refuse({newPassword_, repeated_}, "Password Mismatch", "Please re-type your new password!");
    users_.update({{"Password", newPassword_->text().toStdString()}});
    users_.close();
    return true;
  }

  store::Recordset users_;
  QFormLayout* fields_ = nullptr;
  forms::DropCombo* user_ = nullptr;
  QLineEdit* oldPassword_ = nullptr;
  QLineEdit* newPassword_ = nullptr;
  QLineEdit* repeated_ = nullptr;
};

}  // namespace

QWidget* makePassword(session::Workplace& workplace, QWidget* parent) {
  return new Password(workplace, parent);
}

}  // namespace velmo::masters
