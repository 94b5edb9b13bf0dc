#include "vouchers/journal/journal_totals_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "forms/look.h"
#include "frame/document/figure_field.h"
#include "frame/posting/document_totals.h"
#include "text/decimal_sum.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::vouchers {

namespace {

constexpr int totalWidth = 176;  // pixels; fourteen characters in the larger figures of a total

// Room for so many lines is kept, lest the lines above jump while amounts are typed.
QLabel* addText(QGridLayout& grid, int row, const char* name, const QString& accessibleName, int lines) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setAccessibleName(accessibleName);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setMinimumHeight(lines * label->fontMetrics().lineSpacing());
  grid.addWidget(label, row, 0, 1, 4);
  return label;
}

void showText(QLineEdit& box, const std::string& text) {
  box.setText(QString::fromStdString(text));
  box.setCursorPosition(0);
}

}  // namespace

JournalTotals journalTotals(const frame::LedgerSums& sums) {
  return {.DTot = text::formatNumber(sums.debit, "0.00"), .CTot = text::formatNumber(sums.credit, "0.00")};
}

std::string differenceText(const JournalTotals& totals) {
  if (totals.areEqual()) return {};
  const double difference = text::sumOf({text::amountFrom(totals.DTot), -text::amountFrom(totals.CTot)});
  return "There is a difference of Rs. " + text::formatNumber(difference, "0.00") + " in totals.";
}

JournalTotalsPanel::JournalTotalsPanel() {
  forms::makeCard(*this);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  DTot_ = frame::addFigure(*grid, 0, 0, "DTot", tr("Total Debits"));
  CTot_ = frame::addFigure(*grid, 0, 2, "CTot", tr("Total Credits"));
  for (QLineEdit* total : {DTot_, CTot_}) {
    forms::makeTotal(*total);
    total->setFixedWidth(totalWidth);
  }
  DiffLbl_ = addText(*grid, 1, "DiffLbl", tr("Difference of the totals"), 1);
  DiffLbl_->setProperty("look", "warning");
  AmtWords_ = addText(*grid, 2, "AmtWords", tr("Amount in words"), 2);
  grid->setRowStretch(2, 1);
}

void JournalTotalsPanel::setSums(const frame::LedgerSums& sums) {
  totals_ = journalTotals(sums);
  showText(*DTot_, totals_.DTot);
  showText(*CTot_, totals_.CTot);
  DiffLbl_->setText(QString::fromStdString(differenceText(totals_)));
  AmtWords_->setText(
      QString::fromStdString(currencyName_ + " " + frame::amountInWordsOnly(text::amountFrom(totals_.DTot))));
}

}  // namespace velmo::vouchers
