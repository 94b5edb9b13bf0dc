#include "frame/trade/trade_body.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/caption.h"
#include "forms/date_picker.h"
#include "forms/digits_box.h"
#include "forms/look.h"
#include "forms/name_box.h"
#include "forms/number_box.h"
#include "frame/document/command_bar.h"
#include "frame/document/compose_document.h"
#include "frame/document/open_master.h"
#include "frame/items/item_grid.h"
#include "frame/trade/counter_strip.h"
#include "frame/trade/party_card.h"
#include "frame/trade/payment_panel.h"
#include "frame/trade/scan_listener.h"
#include "frame/trade/totals_panel.h"
#include "text/format.h"

namespace velmo::frame {

namespace {

constexpr MasterCommand newItem{.caption = "New Item", .right = 22, .dialog = "ModifyInventory"};

std::string shownAmount(const store::Recordset& tran, std::string_view column) {
  return text::formatNumber(tran.number(column), "#0.00; (#0.00)");
}

std::string codeText(std::int64_t code) {
  return code == 0 ? std::string() : std::to_string(code);
}

// Controls that a scan would leave with another day, choice or figure.
bool isSpoiltByScans(const QWidget& focus) {
  for (const QWidget* widget = &focus; widget; widget = widget->parentWidget())
    if (qobject_cast<const forms::DatePicker*>(widget) || qobject_cast<const QComboBox*>(widget) ||
        qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const forms::NumberBox*>(widget) ||
        qobject_cast<const forms::DigitsBox*>(widget))
      return true;
  return false;
}

}  // namespace

std::shared_ptr<DocumentBody> makeTradeBody(const BodyPlace& place) {
  return std::make_shared<TradeBody>(place);
}

TradeBody::TradeBody(const BodyPlace& place) : place_(place) {}

// The widgets

DocumentBody::Parts TradeBody::build() {
  const DocumentType& type = place_.type;
  PartyList_ = new AccountDropList(&place_.screen);
  PartyList_->setObjectName("PartyList");
  Parts parts;
  party_ = new PartyCard(type.party, *PartyList_, place_.workplace, nullptr);
  parts.beside = party_;
  lines_ = new ItemGrid(type.lines, place_.workplace, &place_.screen);
  parts.lines = lines_;
  if (type.counter) parts.strip = buildCounterStrip();
  if (type.head || type.counter) parts.aboveRemarks = buildAccounts();
  totals_ = new TotalsPanel(type.receivedCaption, place_.workplace.prompts, nullptr);
  parts.totals = totals_;
  if (type.counter) buildPayment();
  listenToScanner();

  connect(party_, &PartyCard::partyChanged, this, &TradeBody::partyChanged);
  connect(party_, &PartyCard::employeeFound, this, &TradeBody::employeeFound);
  connect(lines_, &ItemGrid::linesChanged, this, &TradeBody::recalculate);
  connect(lines_, &ItemGrid::escapePressed, this, &TradeBody::recalculate);
  connect(lines_, &ItemGrid::saveRequested, this, &TradeBody::saveRequested);
  return parts;
}

void TradeBody::buildPayment() {
  party_->fixCode(place_.type.counter->partyCode, place_.type.counter->termsWithoutParty);
  totals_->setReceivedRule(ReceivedRule::Tendered);
  BalPic_ = new PaymentPanel(*totals_, place_.workplace, &place_.screen);
  connect(BalPic_, &PaymentPanel::givenUp, this, &TradeBody::closePayment);
}

TradeBody::AccountLine TradeBody::buildAccount(std::string_view caption, AccountBoxKind kind, AccountDropList& list,
                                               const char* codeName, const char* accountName) {
  AccountLine line;
  line.whole = new QWidget;
  auto* row = new QHBoxLayout(line.whole);
  forms::setGrid(*row, 0);
  line.code = new AccountCodeBox(place_.workplace.context, list, std::move(kind));
  line.code->setObjectName(codeName);
  line.code->setFixedWidth(96);
  line.name = new QLineEdit;
  line.name->setObjectName(accountName);
  forms::makeNameBox(*line.name);
  line.name->setAccessibleName(tr("%1 name").arg(forms::shownText(caption)));
  row->addWidget(forms::captionFor(*line.code, forms::shownText(caption)));
  row->addWidget(line.code);
  row->addWidget(line.name, 1);
  connect(line.code, &AccountCodeBox::accountResolved, line.name,
          [name = line.name](const Account& account) { name->setText(QString::fromStdString(account.name)); });
  connect(line.code, &AccountCodeBox::accountCleared, line.name, &QLineEdit::clear);
  connect(line.code, &AccountCodeBox::moveOn, lines_, &ItemGrid::focusFirstCell);
  return line;
}

// At the counter, where the money goes stands in place of the income account, which the counter does not change.
QWidget* TradeBody::buildAccounts() {
  const DocumentType& type = place_.type;
  auto* accounts = new QWidget;
  auto* column = new QVBoxLayout(accounts);
  forms::setGrid(*column, 0, forms::spacing::Tight);
  if (type.head) {
    income_ = buildAccount(
        type.head->caption,
        {.listCondition = std::string(type.head->listCondition), .withoutAccounts = WithoutAccounts::LeaveAsIs},
        *PartyList_, "IncomeCode", "IncomeAcc");
    column->addWidget(income_.whole);
    income_.whole->setVisible(!type.counter);
  }
  if (type.counter) {
    auto* list = new AccountDropList(&place_.screen);
    list->setObjectName("AccCodeList");
    debit_ = buildAccount(type.counter->caption, {.listCondition = std::string(type.counter->listCondition)}, *list,
                          "ACodeTxt", "Acc");
    column->addWidget(debit_.whole);
  }
  return accounts;
}

// At the counter every scan is an item, but for one into a line that waits for it; elsewhere one that went astray only
// changes nothing.
void TradeBody::listenToScanner() {
  const bool counter = place_.type.counter.has_value();
  auto* scanner = new ScanListener(place_.screen, [this, counter](const QWidget& focus) {
    if (lines_->isAncestorOf(&focus)) return counter ? !lines_->waitsForCode() : !lines_->isInCode();
    return counter ? !lines_->isSerialBox(focus) : isSpoiltByScans(focus);
  });
  connect(scanner, &ScanListener::scanned, this, [this, counter](const QString& code) {
    for (AccountDropList* list : place_.screen.findChildren<AccountDropList*>()) list->hide();
    if (counter && !BalPic_->isVisible()) return lines_->scan(code);
    QApplication::beep();
    if (counter) BalPic_->tellScan(code);
  });
}

// What the cashier needs to know of keys and scans, below the lines.
QWidget* TradeBody::buildCounterStrip() {
  auto* strip = new CounterStrip(place_.workplace);
  lines_->setScannedAgain(strip->scannedAgain());
  connect(strip, &CounterStrip::scannedAgainChosen, lines_, &ItemGrid::setScannedAgain);
  connect(lines_, &ItemGrid::scanned, strip, &CounterStrip::clear);
  connect(lines_, &ItemGrid::unknownScanned, strip, &CounterStrip::tellUnknown);
  counterStrip_ = strip;
  return strip;
}

void TradeBody::addCommands(CommandBar& commands) {
  addMasterCommand(commands, party_->newPartyCommand(), place_.type.party.newParty, place_.workplace);
  auto* CI = new QPushButton(tr("New Item"));
  CI->setObjectName("CI");
  CI->setAccessibleName(CI->text());
  CI->setToolTip(tr("Opens the list of items to add one"));
  forms::makeQuiet(*CI);
  commands.place(*CI);
  addMasterCommand(commands, *CI, newItem, place_.workplace);
}

// What stands in it

void TradeBody::open(std::int64_t tranNo) {
  lines_->detach();
  openSheet(place_.workplace.context.KORDconn, SubTran_, tranNo);
}

void TradeBody::clear() {
  party_->clear();
  if (income_.code) income_.code->setText(QString::number(place_.type.head->initialCode));
  if (debit_.code) debit_.code->setText(QString::number(place_.type.counter->debitCode));
  if (counterStrip_) counterStrip_->clear();
  totals_->setCurrencyName(place_.workplace.context.currencyname);
  totals_->setTyped({.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"});
  recalculate();
}

void TradeBody::show(const store::Recordset& tran) {
  party_->show({.code = codeText(tran.integer("partycode2")),
                .name = tran.text("text1"),
                .address = tran.text("text2"),
                .telephone = tran.text("text3"),
                .terms = tran.text("Nature")});
  if (income_.code) income_.code->setText(QString::fromStdString(codeText(tran.integer("partycode"))));
  if (debit_.code) debit_.code->setText(QString::fromStdString(tran.text("text4")));
  totals_->setTyped({.Discount = shownAmount(tran, "Discount"),
                     .Carriage = shownAmount(tran, "Carriage"),
                     .Received = shownAmount(tran, "Received")});
  party_->ShowPartyBalance();
  recalculate();
}

void TradeBody::bind() {
  lines_->bind(SubTran_);
}

void TradeBody::detach() {
  lines_->detach();
}

bool TradeBody::commitEdit() {
  if (!lines_->commitEdit()) return false;
  totals_->finishTyping();
  return true;
}

void TradeBody::focusFirst() {
  if (place_.type.counter)
    lines_->focusFirstCell();
  else
    party_->focusCode();
}

// Heading, lines, amounts, and round again: what would be a long way by Tab.
void TradeBody::focusNextPart(const QWidget* focus) {
  if (lines_->isAncestorOf(focus)) {
    if (lines_->commitEdit()) totals_->firstBox()->setFocus(Qt::TabFocusReason);
  } else if (totals_->isAncestorOf(focus)) {
    party_->focusCode();
  } else {
    lines_->focusCurrentCell();
  }
}

void TradeBody::recalculate() {
  totals_->setSums(sumLines(SubTran_));
}

void TradeBody::partyChanged() {
  const PartyCard::Party party = party_->party();
  lines_->setParty(party.code, party.name);
  if (place_.type.counter) return;
  totals_->setReceivedRule(party_->isCashParty() ? place_.type.party.cashRule : ReceivedRule::AsTyped);
}

void TradeBody::fill(DocumentValues& values) const {
  const PartyCard::Party party = party_->party();
  values.PartyCodeTxt = party.code;
  values.PartyNameTxt = party.name;
  values.PartyAddress = party.address;
  values.PartyTel = party.telephone;
  values.Terms = party.terms;
  values.PartyBalance = party_->PartyBalance();
  values.CreditLimit = party_->CreditLimit();
  values.totals = totals_->totals();
  if (income_.code) {
    values.IncomeCode = income_.code->text().toStdString();
    values.IncomeAcc = income_.name->text().toStdString();
  }
  if (debit_.code) {
    values.ACodeTxt = debit_.code->text().toStdString();
    values.Acc = debit_.name->text().toStdString();
  }
}

// Saving

// An amount without an item would be in the total and not among the goods.
bool TradeBody::refuses(const DocumentValues&) {
  const std::optional<int> row = lines_->sheet().lineWithoutItem();
  if (!row) return false;
  lines_->setCurrentCell(*row, GridColumn::ItemCode);
  lines_->focusCurrentCell();
  place_.workplace.prompts.tell("Cannot Save",
                                "Line " + std::to_string(*row + 1) +
                                    " has an amount and no item. Give an item code, or Service, or clear the line.");
  return true;
}

// The money is taken before the document is saved.
void TradeBody::beforeSave(std::function<void()> save) {
  if (!BalPic_) return save();
  place_.form.setEnabled(false);
  disconnect(BalPic_, &PaymentPanel::taken, this, nullptr);
  connect(BalPic_, &PaymentPanel::taken, this, [this, save = std::move(save)] {
    closePayment();
    save();
  });
  BalPic_->open();
}

void TradeBody::closePayment() {
  BalPic_->hide();
  place_.form.setEnabled(true);
  lines_->setFocus(Qt::OtherFocusReason);
}

tl::expected<DocumentWrite, std::string> TradeBody::compose(const DocumentValues& values, const text::DateTime& now,
                                                            HeaderWrite mode) {
  return composeDocument(place_.type, values, place_.workplace.context, now, SubTran_, mode);
}

void TradeBody::writeRows(const DocumentValues& values, std::int64_t tranNo) {
  writeLines(SubTran_, {.tranNo = tranNo, .locationId = values.LocationList.id, .jobId = values.JobList.id});
}

}  // namespace velmo::frame
