#include "frame/document/command_bar.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

#include "forms/caption.h"
#include "forms/look.h"

namespace velmo::frame {

CommandBar::CommandBar(const DocumentType& type, QWidget* screen)
    : QObject(screen), screen_(screen), navigation_(new QWidget(screen)), actions_(new QWidget(screen)) {
  previous =
      make("PrevBttn", tr("Previous Record"), tr("Shows the document before this one"), Qt::CTRL | Qt::Key_PageUp);
  next = make("NextBttn", tr("Next Record"), tr("Shows the document behind this one"), Qt::CTRL | Qt::Key_PageDown);
  find = make("EditBttn", tr("Find"), tr("Looks for a document of the year"), Qt::CTRL | Qt::Key_F);
  retrieve = make("RetBttn", tr("Retrieve Last Saved"), tr("Shows the document saved last from this screen"),
                  Qt::CTRL | Qt::Key_R);
  save = make("SaveBttn", tr("Save (Ctrl+S)"), tr("Saves the document and begins a new one"), Qt::CTRL | Qt::Key_S);
  add = make("AddBttn", tr("New"), tr("Begins a new document"), Qt::CTRL | Qt::Key_N);
  cancel = make("CancelBttn", tr("Cancel"), tr("Throws away what was changed since the last save"));
  remove = make("DelBttn", tr("Delete"), tr("Deletes the document shown"), Qt::CTRL | Qt::Key_D);
  const bool voucherOnly = type.printCommands == PrintCommands::VoucherOnly;
  const bool hasPrint = !voucherOnly && type.printCommands != PrintCommands::None;
  print = !hasPrint ? nullptr
                    : make("PrintBill_0", tr("Print"), tr("Saves the document and prints it"), Qt::CTRL | Qt::Key_P);
  const bool hasVoucher = voucherOnly || type.printCommands == PrintCommands::DocumentAndVoucher;
  voucher = !hasVoucher ? nullptr
                        : make(voucherOnly ? "PrintBill" : "PrintBill_1", tr("Voucher"),
                               tr("Saves the document and prints its ledger voucher"),
                               voucherOnly ? Qt::CTRL | Qt::Key_P : Qt::CTRL | Qt::SHIFT | Qt::Key_P);
  settings = type.printSettings.empty()
                 ? nullptr
                 : make("SetBttn", tr("Print Settings"), tr("Chooses the layout of the print-out"));
  forms::makePrimary(*save);
  if (settings) forms::makeQuiet(*settings);

  auto* above = new QHBoxLayout(navigation_);
  forms::setGrid(*above, 0, forms::spacing::Tight);
  for (QPushButton* button : {previous, next, find, retrieve}) above->addWidget(button);

  auto* below = new QHBoxLayout(actions_);
  forms::setGrid(*below, 0, forms::spacing::Tight);
  for (QPushButton* button : {save, add, cancel, remove}) below->addWidget(button);
  below->addSpacing(forms::spacing::Section);
  for (QPushButton* button : {print, voucher, settings})
    if (button) below->addWidget(button);
  below->addStretch(1);
  for (const ConversionCommand& conversion : type.conversions) {
    QPushButton* convert = make(std::string(conversion.name).c_str(), forms::shownText(conversion.caption),
                                tr("Makes the next document of the chain from this one"));
    forms::makeQuiet(*convert);
    below->addWidget(convert);
    conversions.push_back(convert);
  }
}

QPushButton* CommandBar::make(const char* name, const QString& caption, const QString& hint, const QKeySequence& keys) {
  auto* button = new QPushButton(caption, screen_);
  button->setObjectName(name);
  button->setAccessibleName(caption);
  button->setAccessibleDescription(hint);
  const QString shownKeys = keys.toString(QKeySequence::NativeText);
  button->setToolTip(shownKeys.isEmpty() ? hint : tr("%1 (%2)").arg(hint, shownKeys));
  if (!keys.isEmpty()) {
    auto* shortcut = new QShortcut(keys, screen_);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, button, [button] { button->click(); });
  }
  if (caption != tr("Previous Record") && caption != tr("Next Record")) switched_.push_back(button);
  return button;
}

void CommandBar::forbid(QAbstractButton& button) {
  forbidden_.push_back(&button);
  button.setEnabled(false);
}

void CommandBar::include(QAbstractButton& button) {
  switched_.push_back(&button);
}

void CommandBar::place(QPushButton& button) {
  auto* row = static_cast<QHBoxLayout*>(actions_->layout());
  for (QPushButton* before : {settings, voucher, print, remove})
    if (before) return row->insertWidget(row->indexOf(before) + 1, &button);
}

void CommandBar::setEnabled(bool enabled) {
  for (QAbstractButton* button : switched_)
    button->setEnabled(enabled && std::ranges::find(forbidden_, button) == forbidden_.end());
}

}  // namespace velmo::frame
