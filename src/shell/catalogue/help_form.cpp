#include "shell/catalogue/help_form.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "forms/look.h"

namespace velmo::shell {

QWidget* makeHelpForm(session::Workplace& workplace, QWidget* parent) {
  const store::Recordset topic(workplace.context.KORDconn,
                               "select * from helpindex where id=" + std::to_string(workplace.context.HelpTopicID));
  const bool known = !topic.isEmpty();
  auto* dialog = new QDialog(parent);
  dialog->setWindowTitle(QStringLiteral("Help"));
  auto* column = new QVBoxLayout(dialog);
  forms::setGrid(*column, forms::spacing::Section + forms::spacing::Normal, forms::spacing::Section);

  auto* heading = new QLabel(
      known ? QString::fromStdString(topic.text("Heading")) : QStringLiteral("There is no help on this subject."),
      dialog);
  heading->setObjectName(QStringLiteral("Heading"));
  heading->setTextFormat(Qt::PlainText);
  heading->setWordWrap(true);
  forms::makeHeading(*heading);
  column->addWidget(heading);

  auto* matter = new QTextBrowser(dialog);
  matter->setObjectName(QStringLiteral("Matter"));
  matter->setAccessibleName(QStringLiteral("Help text"));
  matter->setOpenLinks(false);
  matter->document()->setDocumentMargin(forms::spacing::Section);
  matter->document()->setDefaultStyleSheet(QStringLiteral("li { margin-bottom: 6px; } p { margin-bottom: 8px; }"));
  if (known) matter->setHtml(QString::fromStdString(topic.text("Matter")));
  column->addWidget(matter, 1);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setMinimumSize(104, 34);
  close->setDefault(true);
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  column->addWidget(buttons);
  dialog->resize(680, 540);
  return dialog;
}

}  // namespace velmo::shell
