#include "vouchers/settlement/settlement_body.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "forms/caption.h"
#include "forms/look.h"
#include "frame/document/command_bar.h"
#include "frame/document/open_master.h"
#include "frame/sheets/ledger_grid.h"
#include "text/format.h"
#include "vouchers/settlement/pending_items.h"
#include "vouchers/settlement/pending_screen.h"
#include "vouchers/settlement/settlement_card.h"
#include "vouchers/settlement/settlement_grid.h"
#include "vouchers/settlement/settlement_totals_panel.h"

namespace velmo::vouchers {

namespace {

constexpr frame::MasterCommand newAccount{.caption = "New Account", .right = 12, .dialog = "ModifyAccounts"};

std::string codeText(std::int64_t code) {
  return code == 0 ? std::string() : std::to_string(code);
}

}  // namespace

SettlementBody::SettlementBody(const SettlementKind& kind, const frame::BodyPlace& place)
    : kind_(kind), place_(place) {}

frame::DocumentBody::Parts SettlementBody::build() {
  AccCodeList_ = new frame::AccountDropList(&place_.screen);
  AccCodeList_->setObjectName("AccCodeList");
  card_ = new SettlementCard(kind_, *AccCodeList_, place_.workplace);
  totals_ = new SettlementTotalsPanel(kind_);
  pages_ = new QStackedWidget;
  pages_->addWidget(buildSettled());
  Grid_ = new frame::LedgerGrid(isReceipt(kind_) ? frame::LedgerSides::Credit : frame::LedgerSides::Debit,
                                place_.workplace, *AccCodeList_);
  pages_->addWidget(Grid_);

  connect(card_, &SettlementCard::modeChanged, this, &SettlementBody::showMode);
  connect(card_, &SettlementCard::partyChanged, this, &SettlementBody::partyChanged);
  connect(card_, &SettlementCard::employeeFound, this, &SettlementBody::employeeFound);
  connect(card_, &SettlementCard::moveOn, this, &SettlementBody::focusLines);
  connect(AgingGrid_, &frame::SheetGrid::linesChanged, this, &SettlementBody::RecalculateSettlementTotals);
  connect(AgingGrid_, &frame::SheetGrid::saveRequested, this, &SettlementBody::saveRequested);
  connect(AgingGrid_, &frame::SheetGrid::lookUpRequested, this, &SettlementBody::choosePending);
  connect(Grid_, &frame::LedgerGrid::linesChanged, this, &SettlementBody::RecalculatePettyTotal);
  connect(Grid_, &frame::LedgerGrid::saveRequested, this, &SettlementBody::saveRequested);
  return {.beside = card_, .lines = pages_, .totals = totals_};
}

QWidget* SettlementBody::buildSettled() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  forms::setGrid(*column, 0, forms::spacing::Tight);
  auto* heading = new QLabel(forms::shownText(kind_.gridCaption));
  forms::makeCaption(*heading);
  AgingGrid_ = new SettlementGrid(kind_, place_.workplace, heading->text());
  auto* hint = new QLabel(tr("Press F4 to view pending invoices."));
  forms::makeCaption(*hint);
  column->addWidget(heading);
  column->addWidget(AgingGrid_, 1);
  column->addWidget(hint);
  return page;
}

void SettlementBody::addCommands(frame::CommandBar& commands) {
  addMasterCommand(commands, card_->newAccountCommand(), newAccount, place_.workplace);
}

// What stands in it

void SettlementBody::open(std::int64_t tranNo) {
  detach();
  openRows(tranNo, RowsAs::Written);
}

void SettlementBody::openRows(std::int64_t tranNo, RowsAs rowsAs) {
  store::Connection& connection = place_.workplace.context.KORDconn;
  openPettyLines(kind_, connection, SubTran_, tranNo, rowsAs);
  openSettlement(kind_, connection, AgingTran_, tranNo, rowsAs);
}

void SettlementBody::clear() {
  card_->setMoney({});
  card_->setParty({});
  totals_->setCurrencyName(place_.workplace.context.currencyname);
  totals_->setAdvance("0.00");
}

void SettlementBody::show(const store::Recordset& tran) {
  const bool petty = tran.text("Nature") == kind_.pettyNature;
  card_->setMode(petty ? SettlementMode::Petty : SettlementMode::Party);
  card_->setMoney(codeText(tran.integer("partycode2")));
  card_->setParty(petty ? std::string() : codeText(tran.integer("partycode")));
  totals_->setAdvance(text::formatNumber(tran.number("balance"), "#0.00; (#0.00)"));
}

void SettlementBody::bind() {
  AgingGrid_->bind(AgingTran_);
  Grid_->bind(SubTran_);
  RecalculateSettlementTotals();
  RecalculatePettyTotal();
}

void SettlementBody::detach() {
  AgingGrid_->detach();
  Grid_->detach();
}

// What was saved moved the balances and settled invoices.
void SettlementBody::reopen(std::int64_t tranNo, frame::HeaderWrite nextSave) {
  openRows(tranNo, nextSave == frame::HeaderWrite::Add ? RowsAs::New : RowsAs::Written);
  card_->ShowCashBalance();
  card_->ShowPartyBalance();
  partyChanged();
}

bool SettlementBody::commitEdit() {
  const bool settles = card_->mode() == SettlementMode::Party;
  if (!(settles ? AgingGrid_->commitEdit() : Grid_->commitEdit())) return false;
  totals_->finishTyping();
  return true;
}

void SettlementBody::focusFirst() {
  card_->focusFirst();
}

void SettlementBody::focusLines() {
  if (card_->mode() == SettlementMode::Party)
    AgingGrid_->focusFirstCell();
  else
    Grid_->focusFirstCell();
}

// Accounts, lines, amounts, and round again: what would be a long way by Tab.
void SettlementBody::focusNextPart(const QWidget* focus) {
  if (pages_->isAncestorOf(focus)) {
    if (!commitEdit()) return;
    if (card_->mode() == SettlementMode::Party)
      totals_->firstBox()->setFocus(Qt::TabFocusReason);
    else
      card_->focusFirst();
  } else if (totals_->isAncestorOf(focus)) {
    card_->focusFirst();
  } else {
    focusLines();
  }
}

void SettlementBody::showMode() {
  pages_->setCurrentIndex(card_->mode() == SettlementMode::Party ? 0 : 1);
  totals_->setMode(card_->mode());
}

std::int64_t SettlementBody::partyCode() const {
  return store::integerOf(card_->party().code);
}

// The open invoices are those of this moment: another user may settle them meanwhile, and so does each save.
void SettlementBody::partyChanged() {
  session::LoginContext& context = place_.workplace.context;
  store::Recordset pending;
  place_.workplace.attempt("Cannot Show", [&] {
    if (!card_->party().name.empty())
      pending.open(context.KORDconn, pendingStatement(kind_, partyCode(), context.FYID), store::LockType::ReadOnly);
  });
  AgingGrid_->sheet().setPending(std::move(pending));
}

void SettlementBody::choosePending() {
  const SettlementCard::AccountName party = card_->party();
  if (party.name.empty()) {
    const bool customer = isReceipt(kind_);
    place_.workplace.prompts.tell(customer ? "Select Customer" : "Select Vendor",
                                  customer ? "Select correct customer to view pending invoices."
                                           : "Select correct vendor to view pending invoices.");
    return;
  }
  AgingGrid_->cancelEdit();
  const int row = AgingGrid_->currentRow();
  if (!AgingGrid_->sheet().isBound() || row < 0) return;
  const auto chosen = vouchers::choosePending(kind_, partyCode(), party.name, place_.workplace, &place_.screen);
  if (!chosen) return;
  AgingGrid_->sheet().chooseItem(row, *chosen);
  AgingGrid_->rowChanged(row);
  RecalculateSettlementTotals();
}

void SettlementBody::RecalculateSettlementTotals() {
  totals_->setSums(AgingGrid_->sheet().sums());
}

void SettlementBody::RecalculatePettyTotal() {
  const frame::LedgerSums sums = Grid_->sums();
  totals_->setPettyTotal(isReceipt(kind_) ? sums.credit : sums.debit);
}

SettlementValues SettlementBody::settlement() const {
  return {.mode = card_->mode(),
          .totals = totals_->totals(),
          .TAmt = totals_->TAmt(),
          .invoices = AgingGrid_->sheet().invoiceList()};
}

void SettlementBody::fill(frame::DocumentValues& values) const {
  const SettlementCard::AccountName money = card_->money();
  const SettlementCard::AccountName party = card_->party();
  values.PartyCodeTxt = party.code;
  values.PartyNameTxt = party.name;
  values.ACodeTxt = money.code;
  values.Acc = money.name;
  values.fields["RecOpt"] = card_->mode() == SettlementMode::Party ? "0" : "1";
  values.fields["TAmt"] = totals_->TAmt();
}

// Saving

bool SettlementBody::refuses(const frame::DocumentValues& values) {
  if (card_->mode() != SettlementMode::Party) return false;
  const std::optional<int> row = AgingGrid_->sheet().foreignRow(partyCode());
  if (!row) return false;
  AgingGrid_->setCurrentCell(*row, settlement::Invoice);
  AgingGrid_->focusCurrentCell();
  place_.workplace.prompts.tell("Cannot Save", std::string(kind_.foreignInvoice) +
                                                   AgingGrid_->sheet().plainText(*row, settlement::Invoice) +
                                                   " does not belong to " + values.PartyNameTxt + ".");
  return true;
}

tl::expected<frame::DocumentWrite, std::string> SettlementBody::compose(const frame::DocumentValues& values,
                                                                        const text::DateTime& now,
                                                                        frame::HeaderWrite mode) {
  composed_ = settlement();
  return composeSettlement(place_.type, kind_, values, composed_, place_.workplace.context, now, mode);
}

void SettlementBody::writeRows(const frame::DocumentValues& values, std::int64_t tranNo) {
  session::LoginContext& context = place_.workplace.context;
  if (composed_.mode == SettlementMode::Party)
    writeSettlement(kind_, AgingTran_, values, tranNo, context.FYID);
  else
    writePetty(kind_, context.KORDconn, SubTran_, AgingTran_, values, composed_, tranNo);
}

}  // namespace velmo::vouchers
