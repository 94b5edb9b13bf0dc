#include "shell/login/login_form.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "forms/drop_combo.h"
#include "forms/look.h"
#include "shell/login/brand_panel.h"

namespace velmo::shell {
namespace {

// Moves to the row with the value, whatever the type of its column.
void moveToValue(store::Recordset& rows, const char* column, const store::Value& wanted) {
  rows.moveFirst();
  rows.find(std::string(column) + " = " + std::to_string(store::integerOf(wanted)));
}

QPushButton* addButton(QWidget* owner, const char* name, const QString& caption) {
  auto* button = new QPushButton(caption, owner);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false);
  return button;
}

void addField(QGridLayout* grid, int row, const QString& caption, QWidget* field, const char* name) {
  auto* label = new QLabel(caption, grid->parentWidget());
  forms::makeCaption(*label);
  label->setBuddy(field);
  field->setObjectName(QLatin1String(name));
  field->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
  field->setMinimumHeight(34);
  grid->addWidget(label, row, 0);
  grid->addWidget(field, row + 1, 0);
  grid->setRowMinimumHeight(row + 2, forms::spacing::Tight);
}

}  // namespace

LoginForm::LoginForm(const store::Catalog& catalog, const std::string& connectionString, session::Prompts& prompts,
                     const schema::FileState& file, QWidget* parent)
    : QDialog(parent), catalog_(catalog), prompts_(prompts), connection_(catalog, schema::schemaVersion) {
  setObjectName(QStringLiteral("LoginForm"));
  setWindowTitle(QStringLiteral("Velmo Point of Sale"));
  connection_.open(connectionString);
  if (!file.damage.empty()) connection_.refuseWriting();
  records_ = std::make_unique<session::LoginRecords>(connection_);
  build();
  userCombo_->setSource(records_->users, "username", "userid");
  yearCombo_->setSource(records_->financialYears, "Abbreviation", "FYID");
  if (!connection_.refusesWriting()) session::cleanUpMasters(connection_);

  connect(userCombo_, &forms::DropCombo::entryChanged, this, &LoginForm::chooseUser);
  connect(yearCombo_, &forms::DropCombo::entryChanged, this, &LoginForm::chooseYear);
  userCombo_->setBoundValue(records_->businessInfo.value("userid"));
  yearCombo_->setBoundValue(records_->businessInfo.value("FYID"));
  for (forms::DropCombo* combo : {userCombo_, yearCombo_})
    if (combo->currentIndex() < 0 && combo->count() > 0) combo->setCurrentIndex(0);
  showChoiceState();
  password_->setFocus();
}

void LoginForm::build() {
  userCombo_ = new forms::DropCombo(this);
  yearCombo_ = new forms::DropCombo(this);
  for (forms::DropCombo* combo : {userCombo_, yearCombo_}) combo->setEditable(false);
  password_ = new QLineEdit(this);
  password_->setEchoMode(QLineEdit::Password);

  auto* fields = new QWidget(this);
  auto* heading = new QLabel(QStringLiteral("Log in"), fields);
  forms::makeHeading(*heading);
  auto* grid = new QGridLayout(fields);
  forms::setGrid(*grid, forms::spacing::Page, forms::spacing::Tight);
  grid->setRowStretch(0, 1);
  grid->addWidget(heading, 1, 0);
  grid->setRowMinimumHeight(2, forms::spacing::Normal);
  addField(grid, 3, QStringLiteral("&User"), userCombo_, "UserCombo");
  addField(grid, 6, QStringLiteral("Financial &year"), yearCombo_, "FYear");
  addField(grid, 9, QStringLiteral("&Password"), password_, "PWD");

  okButton_ = addButton(fields, "OkBttn", QStringLiteral("&OK"));
  okButton_->setDefault(true);
  okButton_->setMinimumHeight(36);
  forms::makePrimary(*okButton_);
  QPushButton* exitButton = addButton(fields, "ExitBttn", QStringLiteral("E&xit"));
  exitButton->setMinimumHeight(36);
  defaultButton_ = addButton(fields, "SetDefault", QStringLiteral("Set as &default"));
  defaultButton_->setToolTip(QStringLiteral("Propose this user and year the next time"));
  forms::makeQuiet(*defaultButton_);
  auto* buttons = new QHBoxLayout;
  forms::setGrid(*buttons, 0);
  buttons->addWidget(okButton_, 2);
  buttons->addWidget(exitButton, 1);
  grid->setRowMinimumHeight(12, forms::spacing::Normal);
  grid->addLayout(buttons, 13, 0);
  grid->addWidget(defaultButton_, 14, 0, Qt::AlignHCenter);
  grid->setRowStretch(15, 1);
  fields->setMinimumWidth(340);

  auto* halves = new QHBoxLayout(this);
  forms::setGrid(*halves, 0, 0);
  halves->addWidget(new BrandPanel(records_->businessInfo.text("Name"), this), 5);
  halves->addWidget(fields, 4);
  resize(800, 480);

  QWidget* const order[] = {userCombo_, yearCombo_, password_, okButton_, exitButton, defaultButton_};
  for (std::size_t i = 1; i < std::size(order); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
  connect(okButton_, &QPushButton::clicked, this, &LoginForm::logIn);
  connect(exitButton, &QPushButton::clicked, this, &LoginForm::reject);
  connect(defaultButton_, &QPushButton::clicked, this, &LoginForm::setDefault);
}

void LoginForm::chooseUser() {
  if (userCombo_->matchesEntry()) moveToValue(records_->users, "userid", userCombo_->boundValue());
  showChoiceState();
}

void LoginForm::chooseYear() {
  if (yearCombo_->matchesEntry()) moveToValue(records_->financialYears, "FYID", yearCombo_->boundValue());
  showChoiceState();
}

void LoginForm::showChoiceState() {
  const bool complete = userCombo_->matchesEntry() && yearCombo_->matchesEntry();
  okButton_->setEnabled(complete);
  defaultButton_->setEnabled(complete);
}

void LoginForm::logIn() {
  if (!session::passwordFits(records_->users, password_->text().toStdString())) {
    password_->clear();
    password_->setFocus();
    prompts_.tell("Wrong Password", "The password provided is incorrect! Please try again!");
    return;
  }
  context_ = std::make_unique<session::LoginContext>(catalog_);
  session::fillLoginContext(*context_, *records_);
  accept();
}

void LoginForm::setDefault() {
  session::saveDefaultLogin(connection_, store::integerOf(userCombo_->boundValue()),
                            store::integerOf(yearCombo_->boundValue()));
}

}  // namespace velmo::shell
