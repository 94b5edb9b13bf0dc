#include "vouchers/journal/journal_body.h"

#include <QPushButton>

#include "forms/look.h"
#include "frame/document/command_bar.h"
#include "frame/document/compose_document.h"
#include "frame/document/open_master.h"
#include "frame/posting/posted_accounts.h"
#include "frame/sheets/ledger_grid.h"
#include "vouchers/journal/journal_totals_panel.h"

namespace velmo::vouchers {

namespace {

constexpr frame::MasterCommand newAccount{.caption = "New Account", .right = 12, .dialog = "ModifyAccounts"};

}  // namespace

frame::DocumentBody::Parts JournalBody::build() {
  AccCodeList_ = new frame::AccountDropList(&place_.screen);
  AccCodeList_->setObjectName("AccCodeList");
  Grid_ = new frame::LedgerGrid(frame::LedgerSides::Both, place_.workplace, *AccCodeList_);
  totals_ = new JournalTotalsPanel;
  connect(Grid_, &frame::SheetGrid::linesChanged, this, &JournalBody::recalculate);
  connect(Grid_, &frame::SheetGrid::saveRequested, this, &JournalBody::saveRequested);
  return {.lines = Grid_, .totals = totals_};
}

void JournalBody::addCommands(frame::CommandBar& commands) {
  auto* CA = new QPushButton(tr("New Account"));
  CA->setObjectName("CA");
  CA->setAccessibleName(CA->text());
  CA->setToolTip(tr("Opens the chart of accounts"));
  forms::makeQuiet(*CA);
  commands.place(*CA);
  addMasterCommand(commands, *CA, newAccount, place_.workplace);
}

void JournalBody::open(std::int64_t tranNo) {
  detach();
  frame::openLedgerSheet(place_.workplace.context.KORDconn, SubTran_, tranNo);
}

void JournalBody::clear() {
  totals_->setCurrencyName(place_.workplace.context.currencyname);
}

void JournalBody::bind() {
  Grid_->bind(SubTran_);
  recalculate();
}

void JournalBody::detach() {
  Grid_->detach();
}

bool JournalBody::commitEdit() {
  return Grid_->commitEdit();
}

void JournalBody::focusFirst() {
  Grid_->focusFirstCell();
}

// Between the lines and the remarks, which every line without a description of its own takes over.
void JournalBody::focusNextPart(const QWidget* focus) {
  if (!Grid_->isAncestorOf(focus))
    Grid_->focusCurrentCell();
  else if (auto* remarks = place_.screen.findChild<QWidget*>("Desc"); remarks && commitEdit())
    remarks->setFocus(Qt::TabFocusReason);
}

void JournalBody::recalculate() {
  totals_->setSums(Grid_->sums());
}

void JournalBody::fill(frame::DocumentValues& values) const {
  values.fields["DTot"] = totals_->totals().DTot;
  values.fields["CTot"] = totals_->totals().CTot;
}

tl::expected<frame::DocumentWrite, std::string> JournalBody::compose(const frame::DocumentValues& values,
                                                                     const text::DateTime& now,
                                                                     frame::HeaderWrite mode) {
  return frame::composeHeader(place_.type, values, place_.workplace.context, now, mode);
}

void JournalBody::writeRows(const frame::DocumentValues& values, std::int64_t tranNo) {
  frame::writeLedgerSheet(SubTran_, tranNo, values.Desc);
  frame::demandAccounts(place_.workplace.context.KORDconn, tranNo);
}

}  // namespace velmo::vouchers
