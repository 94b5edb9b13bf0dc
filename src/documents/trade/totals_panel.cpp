#include "documents/trade/totals_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/number_box.h"
#include "frame/document/figure_field.h"
#include "session/prompts.h"

namespace velmo::documents {

namespace {

constexpr int totalWidth = frame::figureWidth + 32;

void makeGrandTotal(QLineEdit& figure) {
  forms::makeTotal(figure);
  figure.setFixedWidth(totalWidth);
}

}  // namespace

TotalsPanel::TotalsPanel(TradeFigures figures, std::string_view receivedCaption, session::Prompts& prompts,
                         QWidget* parent)
    : QFrame(parent), prompts_(prompts) {
  forms::makeCard(*this);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setHorizontalSpacing(forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  using Totals = frame::DocumentTotals;
  addFigure(*grid, 0, 0, "GrTot", tr("Gross Amount "), &Totals::GrTot);
  addFigure(*grid, 1, 0, "Disc", tr("Discount "), &Totals::Disc);
  QLineEdit* ofLines = addFigure(*grid, 2, 0, "TExc", tr("Net Amount "), &Totals::TExc);
  if (figures == TradeFigures::ToBalance)
    buildBalance(*grid, receivedCaption);
  else
    buildLinesOnly(*ofLines);

  words_ = new QLabel;
  words_->setObjectName("AmtWords");
  words_->setAccessibleName(tr("Amount in words"));
  words_->setWordWrap(true);
  words_->setTextFormat(Qt::PlainText);
  words_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  grid->addWidget(words_, 3, 0, 1, figures == TradeFigures::ToBalance ? 6 : 2);
}

// One column of figures, as wide as the last of them.
void TotalsPanel::buildLinesOnly(QLineEdit& total) {
  makeGrandTotal(total);
  for (const Figure& figure : figures_) figure.box->setFixedWidth(totalWidth);
}

void TotalsPanel::buildBalance(QGridLayout& grid, std::string_view receivedCaption) {
  using Totals = frame::DocumentTotals;
  using Typed = frame::TypedAmounts;
  const forms::NumberBoxOptions belowZeroToo{
      .sign = forms::Sign::Signed, .editFormat = "#0.00", .restFormat = "#0.00; (#0.00)"};
  const auto amount = [&](int row, int column, const char* name, const QString& caption, std::string Typed::*typed,
                          Text counted, const forms::NumberBoxOptions& options = {}) {
    forms::NumberBox* box = addAmount(grid, row, column, name, caption, options);
    amounts_.push_back({box, typed, counted});
    return box;
  };
  amount(0, 2, "Discount", tr("Additonal Discount "), &Typed::Discount, &Totals::Discount);
  addFigure(grid, 1, 2, "GTotal", tr("Gross Total "), &Totals::GTotal);
  forms::NumberBox* carriage =
      amount(2, 2, "Carriage", tr("Carriage and Freight "), &Typed::Carriage, &Totals::Carriage, belowZeroToo);
  QLineEdit* netTotal = addFigure(grid, 0, 4, "NetTotal", tr("Net Total "), &Totals::NetTotal);
  received_ = amount(1, 4, "Received", forms::shownText(receivedCaption), &Typed::Received, &Totals::Received);
  balance_ = addFigure(grid, 2, 4, "Balance", tr("Balance "), &Totals::Balance);
  makeGrandTotal(*netTotal);
  makeGrandTotal(*balance_);
  received_->setFixedWidth(totalWidth);

  connect(carriage, &forms::NumberBox::leftWithoutNumber, this,
          [this] { prompts_.tell("Numeric Carriage", "Carriage must be a numeric figure."); });
  for (const Amount& typed : amounts_) {
    connect(typed.box, &QLineEdit::textChanged, this, &TotalsPanel::RecalculateTotals);
    connect(typed.box, &forms::NumberBox::left, this, &TotalsPanel::RecalculateTotals);
  }
}

TotalsPanel::PaymentBoxes TotalsPanel::takePaymentBoxes() {
  auto& grid = static_cast<QGridLayout&>(*layout());
  for (QWidget* box : std::initializer_list<QWidget*>{received_, balance_}) {
    for (auto* caption : findChildren<QLabel*>())
      if (caption->buddy() == box) delete caption;
    grid.removeWidget(box);
  }
  return {received_, balance_};
}

QLineEdit* TotalsPanel::addFigure(QGridLayout& grid, int row, int column, const char* name, const QString& caption,
                                  Text text) {
  QLineEdit* box = frame::addFigure(grid, row, column, name, caption);
  figures_.push_back({box, text});
  return box;
}

forms::NumberBox* TotalsPanel::addAmount(QGridLayout& grid, int row, int column, const char* name,
                                         const QString& caption, forms::NumberBoxOptions options) {
  auto* amount = new forms::NumberBox(nullptr, std::move(options));
  amount->setObjectName(name);
  amount->setFixedWidth(frame::figureWidth);
  frame::addCaptioned(grid, row, column, *amount, caption);
  return amount;
}

void TotalsPanel::setSums(const frame::LineSums& sums) {
  sums_ = sums;
  RecalculateTotals();
}

void TotalsPanel::setCurrencyName(const std::string& name) {
  currencyName_ = name;
}

void TotalsPanel::setReceivedRule(frame::ReceivedRule rule) {
  if (std::exchange(rule_, rule) != rule) RecalculateTotals();
}

void TotalsPanel::setTyped(const frame::TypedAmounts& typed) {
  {
    const QScopedValueRollback guard(recalculating_, true);
    for (const Amount& amount : amounts_) amount.box->setText(QString::fromStdString(typed.*amount.typed));
  }
  RecalculateTotals();
}

QWidget* TotalsPanel::firstBox() const {
  return amounts_.empty() ? nullptr : amounts_.front().box;
}

void TotalsPanel::finishTyping() {
  for (const Amount& amount : amounts_) frame::finishTyping(*amount.box, totals_.*amount.counted);
}

void TotalsPanel::RecalculateTotals() {
  if (recalculating_) return;
  const QScopedValueRollback guard(recalculating_, true);
  frame::TypedAmounts typed{.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"};
  for (const Amount& amount : amounts_) typed.*amount.typed = amount.box->text().toStdString();
  totals_ = frame::RecalculateTotals(sums_, typed, rule_, currencyName_);
  for (const Amount& amount : amounts_) frame::showTyped(*amount.box, totals_.*amount.counted);
  for (const Figure& figure : figures_) figure.box->setText(QString::fromStdString(totals_.*figure.text));
  words_->setText(QString::fromStdString(totals_.AmtWords));
}

}  // namespace velmo::documents
