#include "vouchers/settlement/settlement_totals_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/number_box.h"
#include "frame/document/figure_field.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::vouchers {

namespace {

void showText(QLineEdit& box, const std::string& text) {
  box.setText(QString::fromStdString(text));
  box.setCursorPosition(0);
}

}  // namespace

SettlementTotalsPanel::SettlementTotalsPanel(const SettlementKind& kind) : kind_(kind) {
  forms::makeCard(*this);
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, forms::spacing::Normal, forms::spacing::Tight);
  pages_ = new QStackedWidget;
  column->addWidget(pages_);

  auto* settled = new QWidget;
  auto* grid = new QGridLayout(settled);
  forms::setGrid(*grid, 0);
  grid->setVerticalSpacing(forms::spacing::Tight);
  const auto caption = [&](settlement::Column of) {
    return QString::fromStdString(SettlementSheet::caption(kind_, of));
  };
  AdvTxt_ = new forms::NumberBox;
  AdvTxt_->setObjectName("AdvTxt");
  AdvTxt_->setFixedWidth(frame::figureWidth);
  frame::addCaptioned(*grid, 0, 0, *AdvTxt_, tr("Prepayment / Advance "));
  Amt_ = frame::addFigure(*grid, 1, 0, "Amt", caption(settlement::Payment));
  WHTax_ = frame::addFigure(*grid, 2, 0, "WHTax", caption(settlement::WHTax));
  AdvTtl_ = frame::addFigure(*grid, 0, 2, "AdvTtl", tr("Advance in Total"));
  AdvAdj_ = frame::addFigure(*grid, 1, 2, "AdvAdj", caption(settlement::AdvAdj));
  Disc_ = frame::addFigure(*grid, 2, 2, "Disc", caption(settlement::Discount));
  Amt2Party_ = frame::addFigure(*grid, 3, 2, "Amt2Party", caption(settlement::TotPayment));
  forms::makeTotal(*Amt2Party_);
  pages_->addWidget(settled);

  auto* petty = new QWidget;
  auto* pettyGrid = new QGridLayout(petty);
  forms::setGrid(*pettyGrid, 0);
  TAmt_ = frame::addFigure(*pettyGrid, 0, 0, "TAmt", tr("Totals"));
  forms::makeTotal(*TAmt_);
  pettyGrid->setColumnStretch(0, 1);
  pettyGrid->setRowStretch(1, 1);
  pages_->addWidget(petty);

  AmtWords_ = new QLabel;
  AmtWords_->setObjectName("AmtWords");
  AmtWords_->setAccessibleName(tr("Amount in words"));
  AmtWords_->setWordWrap(true);
  AmtWords_->setTextFormat(Qt::PlainText);
  AmtWords_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  column->addWidget(AmtWords_);
  connect(AdvTxt_, &QLineEdit::textChanged, this, &SettlementTotalsPanel::RecalculateSettlementTotals);
  connect(AdvTxt_, &forms::NumberBox::left, this, &SettlementTotalsPanel::RecalculateSettlementTotals);
  setPettyTotal(0);
}

void SettlementTotalsPanel::setMode(SettlementMode mode) {
  mode_ = mode;
  pages_->setCurrentIndex(mode == SettlementMode::Party ? 0 : 1);
  showWords();
}

void SettlementTotalsPanel::setAdvance(const std::string& advance) {
  AdvTxt_->setText(QString::fromStdString(advance));
  RecalculateSettlementTotals();
}

void SettlementTotalsPanel::setSums(const SettlementSums& sums) {
  sums_ = sums;
  RecalculateSettlementTotals();
}

// The box itself is left as it is while something is typed that is no number yet.
void SettlementTotalsPanel::RecalculateSettlementTotals() {
  totals_ = settlementTotals(sums_, AdvTxt_->text().toStdString());
  if (!AdvTxt_->hasFocus()) {
    const QSignalBlocker blocked(AdvTxt_);
    showText(*AdvTxt_, totals_.AdvTxt);
  }
  showText(*AdvTtl_, totals_.AdvTtl);
  showText(*Amt_, totals_.Amt);
  showText(*WHTax_, totals_.WHTax);
  showText(*AdvAdj_, totals_.AdvAdj);
  showText(*Disc_, totals_.Disc);
  showText(*Amt2Party_, totals_.Amt2Party);
  showWords();
}

void SettlementTotalsPanel::finishTyping() {
  frame::finishTyping(*AdvTxt_, totals_.AdvTxt);
}

void SettlementTotalsPanel::setPettyTotal(double total) {
  showText(*TAmt_, text::formatNumber(total, "0.00; (0.00)"));
  showWords();
}

void SettlementTotalsPanel::showWords() {
  const double amount = text::amountFrom(mode_ == SettlementMode::Party ? totals_.Amt2Party : TAmt());
  AmtWords_->setText(QString::fromStdString(currencyName_ + " " + frame::amountInWordsOnly(amount)));
}

std::string SettlementTotalsPanel::TAmt() const {
  return TAmt_->text().toStdString();
}

QWidget* SettlementTotalsPanel::firstBox() const {
  return AdvTxt_;
}

}  // namespace velmo::vouchers
