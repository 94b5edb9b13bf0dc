#include "shell/about.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QVBoxLayout>

#include "forms/look.h"
#include "shell/brand_panel.h"

namespace velmo::shell {

QWidget* makeAbout(session::Workplace& workplace, QWidget* parent) {
  auto* dialog = new QDialog(parent);
  dialog->setWindowTitle(QStringLiteral("About Velmo Point of Sale"));
  auto* column = new QVBoxLayout(dialog);
  forms::setGrid(*column, forms::spacing::Page);
  auto* mark = new QLabel(dialog);
  mark->setPixmap(programIcon().pixmap(64, 64));
  column->addWidget(mark);
  auto* name = new QLabel(QStringLiteral("Velmo Point of Sale"), dialog);
  forms::makeHeading(*name);
  column->addWidget(name);
  column->addWidget(new QLabel(QStringLiteral("Version ") + QCoreApplication::applicationVersion(), dialog));
  for (const QString& line : std::initializer_list<QString>{QStringLiteral("Company: ") + QString::fromStdString(workplace.context.CompanyName),
                              QStringLiteral("Data folder: ") + QDir::currentPath()}) {
    auto* label = new QLabel(line, dialog);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    forms::makeCaption(*label);
    column->addWidget(label);
  }
  column->addSpacing(forms::spacing::Normal);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, dialog);
  QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
  column->addWidget(buttons);
  dialog->setMinimumWidth(420);
  return dialog;
}

}  // namespace velmo::shell
