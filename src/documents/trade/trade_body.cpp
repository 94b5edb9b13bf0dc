#include "documents/trade/trade_body.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "documents/trade/counter_strip.h"
#include "documents/trade/party_card.h"
#include "documents/trade/payment_panel.h"
#include "documents/trade/totals_panel.h"
#include "forms/caption.h"
#include "forms/look.h"
#include "forms/name_box.h"
#include "frame/document/command_bar.h"
#include "frame/document/compose_document.h"
#include "frame/document/open_master.h"
#include "frame/items/item_grid.h"
#include "frame/items/scan_listener.h"
#include "frame/items/stray_scans.h"
#include "text/format.h"

namespace velmo::documents {

namespace {

std::string shownAmount(const store::Recordset& tran, std::string_view column) {
  return text::formatNumber(tran.number(column), "#0.00; (#0.00)");
}

std::string codeText(std::int64_t code) {
  return code == 0 ? std::string() : std::to_string(code);
}

}  // namespace

std::function<std::shared_ptr<frame::DocumentBody>(const frame::BodyPlace&)> tradeBody(TradeKind kind) {
  return [kind = std::move(kind)](const frame::BodyPlace& place) -> std::shared_ptr<frame::DocumentBody> {
    return std::make_shared<TradeBody>(kind, place);
  };
}

TradeBody::TradeBody(TradeKind kind, const frame::BodyPlace& place) : kind_(std::move(kind)), place_(place) {}

// The widgets

frame::DocumentBody::Parts TradeBody::build() {
  PartyList_ = new frame::AccountDropList(&place_.screen);
  PartyList_->setObjectName("PartyList");
  Parts parts;
  party_ = new PartyCard(kind_.party, *PartyList_, place_.workplace, nullptr);
  parts.beside = party_;
  lines_ = new frame::ItemGrid(kind_.lines, place_.workplace, &place_.screen);
  parts.lines = lines_;
  if (kind_.counter) parts.strip = buildCounterStrip();
  if (kind_.head || kind_.counter) parts.aboveRemarks = buildAccounts();
  totals_ = new TotalsPanel(kind_.figures, kind_.receivedCaption, place_.workplace.prompts, nullptr);
  parts.totals = totals_;
  if (kind_.counter) buildPayment();
  listenToScanner();

  connect(party_, &PartyCard::partyChanged, this, &TradeBody::partyChanged);
  connect(party_, &PartyCard::employeeFound, this, &TradeBody::employeeFound);
  connect(lines_, &frame::ItemGrid::linesChanged, this, &TradeBody::recalculate);
  connect(lines_, &frame::ItemGrid::escapePressed, this, &TradeBody::recalculate);
  connect(lines_, &frame::ItemGrid::saveRequested, this, &TradeBody::saveRequested);
  return parts;
}

void TradeBody::buildPayment() {
  party_->fixCode(kind_.counter->partyCode, kind_.counter->termsWithoutParty);
  totals_->setReceivedRule(frame::ReceivedRule::Tendered);
  BalPic_ = new PaymentPanel(*totals_, place_.workplace, &place_.screen);
  connect(BalPic_, &PaymentPanel::givenUp, this, &TradeBody::closePayment);
}

TradeBody::AccountLine TradeBody::buildAccount(std::string_view caption, frame::AccountBoxKind kind,
                                               frame::AccountDropList& list, const char* codeName,
                                               const char* accountName) {
  AccountLine line;
  line.whole = new QWidget;
  auto* row = new QHBoxLayout(line.whole);
  forms::setGrid(*row, 0);
  line.code = new frame::AccountCodeBox(place_.workplace.context, list, std::move(kind));
  line.code->setObjectName(codeName);
  line.code->setFixedWidth(96);
  line.name = new QLineEdit;
  line.name->setObjectName(accountName);
  forms::makeNameBox(*line.name);
  line.name->setAccessibleName(tr("%1 name").arg(forms::shownText(caption)));
  row->addWidget(forms::captionFor(*line.code, forms::shownText(caption)));
  row->addWidget(line.code);
  row->addWidget(line.name, 1);
  connect(line.code, &frame::AccountCodeBox::accountResolved, line.name,
          [name = line.name](const frame::Account& account) { name->setText(QString::fromStdString(account.name)); });
  connect(line.code, &frame::AccountCodeBox::accountCleared, line.name, &QLineEdit::clear);
  connect(line.code, &frame::AccountCodeBox::moveOn, lines_, &frame::ItemGrid::focusFirstCell);
  return line;
}

// At the counter, where the money goes stands in place of the income account, which the counter does not change.
QWidget* TradeBody::buildAccounts() {
  auto* accounts = new QWidget;
  auto* column = new QVBoxLayout(accounts);
  forms::setGrid(*column, 0, forms::spacing::Tight);
  if (kind_.head) {
    income_ =
        buildAccount(kind_.head->caption,
                     {.listCondition = kind_.head->listCondition, .withoutAccounts = frame::WithoutAccounts::LeaveAsIs},
                     *PartyList_, "IncomeCode", "IncomeAcc");
    column->addWidget(income_.whole);
    income_.whole->setVisible(!kind_.counter);
  }
  if (kind_.counter) {
    auto* list = new frame::AccountDropList(&place_.screen);
    list->setObjectName("AccCodeList");
    debit_ =
        buildAccount(kind_.counter->caption, {.listCondition = kind_.counter->listCondition}, *list, "ACodeTxt", "Acc");
    column->addWidget(debit_.whole);
  }
  return accounts;
}

// At the counter every scan is an item, but for one into a line that waits for it; elsewhere one that went astray only
// changes nothing.
void TradeBody::listenToScanner() {
  if (!kind_.counter) return frame::dropStrayScans(place_.screen, {lines_});
  auto* scanner = new frame::ScanListener(place_.screen, [this](const QWidget& focus) {
    return lines_->isAncestorOf(&focus) ? !lines_->waitsForCode() : !lines_->isSerialBox(focus);
  });
  connect(scanner, &frame::ScanListener::scanned, this, [this](const QString& code) {
    for (frame::AccountDropList* list : place_.screen.findChildren<frame::AccountDropList*>()) list->hide();
    if (!BalPic_->isVisible()) return lines_->scan(code);
    QApplication::beep();
    BalPic_->tellScan(code);
  });
}

// What the cashier needs to know of keys and scans, below the lines.
QWidget* TradeBody::buildCounterStrip() {
  auto* strip = new CounterStrip(place_.workplace);
  lines_->setScannedAgain(strip->scannedAgain());
  connect(strip, &CounterStrip::scannedAgainChosen, lines_, &frame::ItemGrid::setScannedAgain);
  connect(lines_, &frame::ItemGrid::scanned, strip, &CounterStrip::clear);
  connect(lines_, &frame::ItemGrid::unknownScanned, strip, &CounterStrip::tellUnknown);
  counterStrip_ = strip;
  return strip;
}

void TradeBody::addCommands(frame::CommandBar& commands) {
  frame::addMasterCommand(commands, party_->newPartyCommand(), kind_.party.newParty, place_.workplace);
  frame::addNewItemCommand(commands, place_.workplace);
}

// What stands in it

void TradeBody::open(std::int64_t tranNo) {
  lines_->detach();
  frame::openSheet(place_.workplace.context.KORDconn, SubTran_, tranNo);
}

void TradeBody::clear() {
  party_->clear();
  if (income_.code) income_.code->setText(QString::number(kind_.head->initialCode));
  if (debit_.code) debit_.code->setText(QString::number(kind_.counter->debitCode));
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
  if (kind_.counter)
    lines_->focusFirstCell();
  else
    party_->focusCode();
}

// Heading, lines, amounts, and round again: what would be a long way by Tab.
void TradeBody::focusNextPart(const QWidget* focus) {
  if (lines_->isAncestorOf(focus)) {
    if (!lines_->commitEdit()) return;
    if (QWidget* amount = totals_->firstBox())
      amount->setFocus(Qt::TabFocusReason);
    else
      party_->focusCode();
  } else if (totals_->isAncestorOf(focus)) {
    party_->focusCode();
  } else {
    lines_->focusCurrentCell();
  }
}

void TradeBody::recalculate() {
  totals_->setSums(frame::sumLines(SubTran_));
}

void TradeBody::partyChanged() {
  const PartyCard::Party party = party_->party();
  lines_->setParty(party.code, party.name);
  if (kind_.counter) return;
  totals_->setReceivedRule(party_->isCashParty() ? kind_.party.cashRule : frame::ReceivedRule::AsTyped);
}

void TradeBody::fill(frame::DocumentValues& values) const {
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
bool TradeBody::refuses(const frame::DocumentValues&) {
  const std::optional<int> row = lines_->sheet().lineWithoutItem();
  if (!row) return false;
  lines_->setCurrentCell(*row, frame::GridColumn::ItemCode);
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

tl::expected<frame::DocumentWrite, std::string> TradeBody::compose(const frame::DocumentValues& values,
                                                                   const text::DateTime& now, frame::HeaderWrite mode) {
  return frame::composeDocument(
      place_.type, values, place_.workplace.context, now,
      frame::lineNarrations(SubTran_, kind_.lines.quantityField, place_.workplace.context.ccode), mode);
}

void TradeBody::writeRows(const frame::DocumentValues& values, std::int64_t tranNo) {
  frame::writeLines(SubTran_, {.tranNo = tranNo, .locationId = values.LocationList.id, .jobId = values.JobList.id});
}

}  // namespace velmo::documents
