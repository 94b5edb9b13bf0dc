#include "forms/settings_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "forms/look.h"

namespace velmo::forms {

SettingsDialog::SettingsDialog(session::Workplace& workplace, const QString& title, QWidget* parent)
    : QDialog(parent), workplace_(workplace), body_(new QVBoxLayout) {
  setWindowTitle(title);
  auto* column = new QVBoxLayout(this);
  setGrid(*column, spacing::Section + spacing::Normal, spacing::Section);
  setGrid(*body_, 0, spacing::Section);
  column->addLayout(body_, 1);
}

void SettingsDialog::addCommands(const SaveCommand& command) {
  auto* save = new QPushButton(QLatin1String(command.caption), this);
  save->setObjectName(QLatin1String(command.name));
  save->setToolTip(QLatin1String(command.hint));
  save->setDefault(true);
  makePrimary(*save);
  auto* cancel = new QPushButton(QStringLiteral("&Cancel"), this);
  cancel->setObjectName(QStringLiteral("CancelBttn"));
  cancel->setToolTip(QStringLiteral("Closes without saving (Esc)"));
  cancel->setAutoDefault(false);
  auto* row = new QHBoxLayout;
  setGrid(*row, 0);
  row->addStretch(1);
  for (QPushButton* button : {save, cancel}) {
    button->setMinimumSize(104, 34);
    row->addWidget(button);
  }
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  connect(save, &QPushButton::clicked, this, &SettingsDialog::trySave);
  connect(cancel, &QPushButton::clicked, this, &SettingsDialog::reject);
  connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, save, [save] { save->click(); });
}

bool SettingsDialog::refuse(const std::string& text) {
  workplace_.prompts.tell("Cannot Save", text);
  return false;
}

void SettingsDialog::trySave() {
  try {
    if (save()) accept();
  } catch (const store::StoreError& failure) {
    refuse(failure.what());
  }
}

void addDialogHeading(QVBoxLayout& column, const QString& heading, const std::string& companyName,
                      const char* companyLabel) {
  auto* lines = new QVBoxLayout;
  setGrid(*lines, 0, spacing::Tight);
  auto* title = new QLabel(heading);
  makeHeading(*title);
  lines->addWidget(title);
  auto* company = new QLabel(QString::fromStdString(companyName));
  company->setObjectName(QLatin1String(companyLabel));
  company->setTextFormat(Qt::PlainText);
  company->setWordWrap(true);
  makeCaption(*company);
  lines->addWidget(company);
  column.addLayout(lines);
}

}  // namespace velmo::forms
