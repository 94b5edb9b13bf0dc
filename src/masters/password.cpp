#include "masters/password.h"

#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "forms/drop_combo.h"
#include "forms/look.h"
#include "frame/own_fields.h"
#include "session/login.h"

namespace velmo::masters {
namespace {

constexpr int longestPassword = 255;

class Password : public QDialog {
 public:
  Password(session::Workplace& workplace, QWidget* parent)
      : QDialog(parent),
        workplace_(workplace),
        users_(workplace.context.KORDconn, "Select * from users order by username") {
    setObjectName("Password");
    setWindowTitle(tr("Password"));
    auto* column = new QVBoxLayout(this);
    forms::setGrid(*column, forms::spacing::Section + forms::spacing::Normal, forms::spacing::Section);
    auto* heading = new QLabel(tr("Change Password"));
    forms::makeHeading(*heading);
    column->addWidget(heading);
    column->addLayout(makeFields());
    column->addStretch(1);
    column->addLayout(makeCommands());
    resize(440, 300);
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
    fields_->addRow(frame::captionFor(field, caption), &field);
  }

  QLineEdit* addSecret(const char* name, const QString& caption) {
    auto* box = new QLineEdit;
    box->setEchoMode(QLineEdit::Password);
    box->setMaxLength(longestPassword);
    addField(name, caption, *box);
    return box;
  }

  QLayout* makeCommands() {
    auto* change = new QPushButton(tr("&Save New Password"));
    change->setObjectName("ChangePwd");
    change->setToolTip(tr("Saves the new password and closes (Ctrl+S)"));
    change->setDefault(true);
    forms::makePrimary(*change);
    auto* cancel = new QPushButton(tr("&Cancel"));
    cancel->setObjectName("CancelBttn");
    cancel->setToolTip(tr("Closes without saving (Esc)"));
    cancel->setAutoDefault(false);
    auto* row = new QHBoxLayout;
    forms::setGrid(*row, 0);
    row->addStretch(1);
    for (QPushButton* button : {change, cancel}) {
      button->setMinimumSize(104, 34);
      row->addWidget(button);
    }
    connect(change, &QPushButton::clicked, this, &Password::save);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, change, [change] { change->click(); });
    return row;
  }

  void showUser() {
    user_->setSource(users_, "username", "userid");
    user_->setBoundValue(std::int64_t{workplace_.context.UserID});
    users_.moveFirst();
    users_.find("userid = " + std::to_string(workplace_.context.UserID));
  }

  void refuse(std::initializer_list<QLineEdit*> boxes, const char* title, const char* text) {
    for (QLineEdit* box : boxes) box->clear();
    (*boxes.begin())->setFocus();
    workplace_.prompts.tell(title, text);
  }

  void save() {
    if (!session::passwordFits(users_, oldPassword_->text().toStdString()))
      return refuse({oldPassword_, newPassword_, repeated_}, "Wrong Password",
                    "The old password provided is incorrect! Please try again!");
    if (newPassword_->text() != repeated_->text())
      return refuse({newPassword_, repeated_}, "Password Mismatch", "Please re-type your new password!");
    try {
      users_.update({{"Password", newPassword_->text().toStdString()}});
    } catch (const store::StoreError& failure) {
      workplace_.prompts.tell("Cannot Save", failure.what());
      return;
    }
    users_.close();
    accept();
  }

  session::Workplace& workplace_;
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
