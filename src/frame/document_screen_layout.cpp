#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/look.h"
#include "frame/account_code_box.h"
#include "frame/command_bar.h"
#include "frame/counter_strip.h"
#include "frame/document_card.h"
#include "frame/document_screen.h"
#include "frame/item_grid.h"
#include "frame/party_card.h"
#include "frame/payment_panel.h"
#include "frame/references_card.h"
#include "frame/scan_listener.h"
#include "frame/totals_panel.h"

// How a document screen is laid out, from the top: title and the ways to other documents; which document, whose, what
// it refers to; the item lines, which take all the room that is left; remarks and totals; the commands.
namespace velmo::frame {

void DocumentScreen::buildLayout() {
  setObjectName(shownText(type_.screen));
  setWindowTitle(shownText(type_.title));
  setAccessibleName(shownText(type_.title));
  commands_ = new CommandBar(type_, this);
  PartyList_ = new AccountDropList(this);
  PartyList_->setObjectName("PartyList");
  TranNo_ = new QLineEdit(this);
  TranNo_->setObjectName("TranNo");
  TranNo_->setReadOnly(true);
  TranNo_->hide();

  auto* whole = new QVBoxLayout(this);
  forms::setGrid(*whole, 0);
  FormPic_ = new QWidget;
  FormPic_->setObjectName("FormPic");
  whole->addWidget(FormPic_);
  auto* layout = new QVBoxLayout(FormPic_);
  forms::setGrid(*layout, forms::spacing::Normal);
  layout->addLayout(buildTitleRow());
  layout->addLayout(buildCards());
  lines_ = new ItemGrid(type_.lines, workplace_, this);
  layout->addWidget(lines_, 1);
  if (type_.counter) layout->addWidget(buildCounterStrip());
  layout->addLayout(buildFoot());
  layout->addWidget(commands_->actions());
  if (type_.counter) buildPayment();
  orderTabs();
}

void DocumentScreen::buildPayment() {
  party_->fixCode(type_.counter->partyCode, type_.counter->termsWithoutParty);
  totals_->setReceivedRule(ReceivedRule::Tendered);
  BalPic_ = new PaymentPanel(*totals_, this);
  connect(BalPic_, &PaymentPanel::givenUp, this, &DocumentScreen::closePayment);
}

QHBoxLayout* DocumentScreen::buildTitleRow() {
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  auto* heading = new QLabel(shownText(type_.title));
  forms::makeHeading(*heading);
  ConvLbl_ = new QLabel(tr("Converted To:"));
  ConvLbl_->setObjectName("ConvLbl");
  forms::makeCaption(*ConvLbl_);
  ConvLbl2_ = new QLabel;
  ConvLbl2_->setObjectName("ConvLbl2");
  ConvLbl2_->setTextFormat(Qt::PlainText);
  row->addWidget(heading);
  row->addSpacing(forms::spacing::Section);
  row->addWidget(ConvLbl_);
  row->addWidget(ConvLbl2_);
  row->addStretch(1);
  row->addWidget(commands_->navigation());
  return row;
}

QHBoxLayout* DocumentScreen::buildCards() {
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  card_ = new DocumentCard(type_, fields_, nullptr);
  party_ = new PartyCard(type_.party, *PartyList_, workplace_, nullptr);
  references_ = new ReferencesCard(type_, fields_, workplace_, nullptr);
  row->addWidget(card_, 0);
  row->addWidget(party_, 1);
  row->addWidget(references_, 1);
  return row;
}

QHBoxLayout* DocumentScreen::buildFoot() {
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  auto* notes = new QFrame;
  forms::makeCard(*notes);
  auto* column = new QVBoxLayout(notes);
  forms::setGrid(*column, forms::spacing::Normal, forms::spacing::Tight);
  if (type_.head) column->addWidget(buildHead());
  if (type_.counter) column->addWidget(buildDebitAccount());
  Desc_ = new QPlainTextEdit;
  Desc_->setObjectName("Desc");
  Desc_->setAccessibleName(tr("Remarks"));
  Desc_->setPlaceholderText(tr("Remarks"));
  Desc_->setTabChangesFocus(true);
  Desc_->setMinimumHeight(40);
  Desc_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  column->addWidget(Desc_, 1);
  totals_ = new TotalsPanel(type_.receivedCaption, workplace_.prompts, nullptr);
  row->addWidget(notes, 1);
  row->addWidget(totals_, 0);
  return row;
}

QWidget* DocumentScreen::buildHead() {
  auto* head = new QWidget;
  auto* row = new QHBoxLayout(head);
  forms::setGrid(*row, 0);
  IncomeCode_ = new AccountCodeBox(
      workplace_.context, *PartyList_,
      {.listCondition = std::string(type_.head->listCondition), .withoutAccounts = WithoutAccounts::LeaveAsIs});
  IncomeCode_->setObjectName("IncomeCode");
  IncomeCode_->setFixedWidth(96);
  IncomeAcc_ = new QLineEdit;
  IncomeAcc_->setObjectName("IncomeAcc");
  IncomeAcc_->setReadOnly(true);
  IncomeAcc_->setFocusPolicy(Qt::NoFocus);
  const QString caption = shownText(type_.head->caption);
  IncomeAcc_->setAccessibleName(tr("%1 name").arg(caption));
  row->addWidget(captionFor(*IncomeCode_, caption));
  row->addWidget(IncomeCode_);
  row->addWidget(IncomeAcc_, 1);
  return head;
}

// What the cashier needs to know of keys and scans, below the lines.
QWidget* DocumentScreen::buildCounterStrip() {
  auto* strip = new CounterStrip(workplace_);
  lines_->setScannedAgain(strip->scannedAgain());
  connect(strip, &CounterStrip::scannedAgainChosen, lines_, &ItemGrid::setScannedAgain);
  auto* scanner = new ScanListener(*FormPic_, *lines_);
  connect(scanner, &ScanListener::scanned, lines_, &ItemGrid::scan);
  connect(lines_, &ItemGrid::scanned, strip, &CounterStrip::clear);
  connect(lines_, &ItemGrid::unknownScanned, strip, &CounterStrip::tellUnknown);
  counterStrip_ = strip;
  return strip;
}

// Where the money goes stands in place of the income account, which the counter does not change.
QWidget* DocumentScreen::buildDebitAccount() {
  IncomeCode_->parentWidget()->hide();
  auto* list = new AccountDropList(this);
  list->setObjectName("AccCodeList");
  auto* debit = new QWidget;
  auto* row = new QHBoxLayout(debit);
  forms::setGrid(*row, 0);
  const CounterRules& rules = *type_.counter;
  ACodeTxt_ = new AccountCodeBox(workplace_.context, *list, {.listCondition = std::string(rules.listCondition)});
  ACodeTxt_->setObjectName("ACodeTxt");
  ACodeTxt_->setFixedWidth(96);
  Acc_ = new QLineEdit;
  Acc_->setObjectName("Acc");
  Acc_->setReadOnly(true);
  Acc_->setFocusPolicy(Qt::NoFocus);
  Acc_->setAccessibleName(tr("%1 name").arg(shownText(rules.caption)));
  row->addWidget(captionFor(*ACodeTxt_, shownText(rules.caption)));
  row->addWidget(ACodeTxt_);
  row->addWidget(Acc_, 1);
  connect(ACodeTxt_, &AccountCodeBox::accountResolved, this,
          [this](const Account& account) { Acc_->setText(QString::fromStdString(account.name)); });
  connect(ACodeTxt_, &AccountCodeBox::accountCleared, Acc_, &QLineEdit::clear);
  connect(ACodeTxt_, &AccountCodeBox::moveOn, this, [this] { lines_->focusFirstCell(); });
  return debit;
}

void DocumentScreen::orderTabs() {
  CI_ = new QPushButton(tr("New Item"), this);
  CI_->setObjectName("CI");
  CI_->setAccessibleName(CI_->text());
  CI_->setToolTip(tr("Opens the list of items to add one"));
  forms::makeQuiet(*CI_);
  static_cast<QHBoxLayout*>(commands_->actions()->layout())->insertWidget(8, CI_);
  // As the eye goes: which document, whose, its references, the lines, the amounts, then the commands.
  QWidget* last = nullptr;
  for (QWidget* part :
       std::initializer_list<QWidget*>{card_, party_, references_, lines_, totals_, IncomeCode_, ACodeTxt_, Desc_,
                                       commands_->actions(), commands_->navigation()}) {
    if (!part) continue;
    QList<QWidget*> stops = part->findChildren<QWidget*>();
    stops.prepend(part);
    for (QWidget* stop : stops) {
      // Drop-down lists are windows of their own.
      if (!(stop->focusPolicy() & Qt::TabFocus) || stop->focusProxy() || stop->window() != window()) continue;
      if (last) setTabOrder(last, stop);
      last = stop;
    }
  }
}

}  // namespace velmo::frame
