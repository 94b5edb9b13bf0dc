#include "documents/stock/stock_totals.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "forms/look.h"
#include "frame/document/figure_field.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

constexpr int totalWidth = 176;  // pixels; fourteen characters in the larger figures of a total
constexpr int wordLines = 2;     // room that is kept, lest the lines above jump while amounts are typed

}  // namespace

StockTotals::StockTotals() {
  forms::makeCard(*this);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  TInc_ = frame::addFigure(*grid, 0, 0, "TInc", tr("Totals"));
  forms::makeTotal(*TInc_);
  TInc_->setFixedWidth(totalWidth);
  AmtWords_ = new QLabel;
  AmtWords_->setObjectName("AmtWords");
  AmtWords_->setAccessibleName(tr("Amount in words"));
  AmtWords_->setWordWrap(true);
  AmtWords_->setTextFormat(Qt::PlainText);
  AmtWords_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  AmtWords_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  AmtWords_->setMinimumHeight(wordLines * AmtWords_->fontMetrics().lineSpacing());
  grid->addWidget(AmtWords_, 1, 0, 1, 2);
  grid->setRowStretch(1, 1);
}

void StockTotals::setSums(const frame::LineSums& sums, const std::string& currencyName) {
  totals_ = frame::RecalculateTotals(sums, {.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"},
                                     frame::ReceivedRule::AsTyped, currencyName);
  totals_.AmtWords = currencyName + " " + frame::amountInWordsOnly(text::amountFrom(totals_.GrTot));
  TInc_->setText(QString::fromStdString(totals_.GrTot));
  TInc_->setCursorPosition(0);
  AmtWords_->setText(QString::fromStdString(totals_.AmtWords));
}

}  // namespace velmo::documents
