#include "frame/trade/totals_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/number_box.h"
#include "frame/document/figure_field.h"
#include "session/prompts.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::frame {

namespace {

// What stands in a box between two key presses of one number: not yet a figure, but on its way to one.
bool beginsNumber(const QString& text) {
  return text == "-" || text == "." || text == "-.";
}

}  // namespace

TotalsPanel::TotalsPanel(std::string_view receivedCaption, session::Prompts& prompts, QWidget* parent)
    : QFrame(parent), prompts_(prompts) {
  forms::makeCard(*this);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setHorizontalSpacing(forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  grTot_ = addFigure(*grid, 0, 0, "GrTot", tr("Gross Amount "));
  disc_ = addFigure(*grid, 1, 0, "Disc", tr("Discount "));
  tExc_ = addFigure(*grid, 2, 0, "TExc", tr("Net Amount "));
  discount_ = addAmount(*grid, 0, 2, "Discount", tr("Additonal Discount "), false);
  gTotal_ = addFigure(*grid, 1, 2, "GTotal", tr("Gross Total "));
  carriage_ = addAmount(*grid, 2, 2, "Carriage", tr("Carriage and Freight "), true);
  netTotal_ = addFigure(*grid, 0, 4, "NetTotal", tr("Net Total "));
  received_ = addAmount(*grid, 1, 4, "Received", forms::shownText(receivedCaption), false);
  balance_ = addFigure(*grid, 2, 4, "Balance", tr("Balance "));
  forms::makeTotal(*netTotal_);
  forms::makeTotal(*balance_);
  for (QWidget* total : {netTotal_, balance_}) total->setFixedWidth(figureWidth + 32);
  received_->setFixedWidth(figureWidth + 32);

  words_ = new QLabel;
  words_->setObjectName("AmtWords");
  words_->setAccessibleName(tr("Amount in words"));
  words_->setWordWrap(true);
  words_->setTextFormat(Qt::PlainText);
  words_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  grid->addWidget(words_, 3, 0, 1, 6);

  connect(carriage_, &forms::NumberBox::leftWithoutNumber, this,
          [this] { prompts_.tell("Numeric Carriage", "Carriage must be a numeric figure."); });
  for (forms::NumberBox* box : {discount_, carriage_, received_}) {
    connect(box, &QLineEdit::textChanged, this, &TotalsPanel::RecalculateTotals);
    connect(box, &forms::NumberBox::left, this, &TotalsPanel::RecalculateTotals);
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

forms::NumberBox* TotalsPanel::addAmount(QGridLayout& grid, int row, int column, const char* name,
                                         const QString& caption, bool isSigned) {
  forms::NumberBoxOptions options;
  if (isSigned) options = {.sign = forms::Sign::Signed, .editFormat = "#0.00", .restFormat = "#0.00; (#0.00)"};
  auto* amount = new forms::NumberBox(nullptr, options);
  amount->setObjectName(name);
  amount->setFixedWidth(figureWidth);
  addCaptioned(grid, row, column, *amount, caption);
  return amount;
}

void TotalsPanel::setSums(const LineSums& sums) {
  sums_ = sums;
  RecalculateTotals();
}

void TotalsPanel::setCurrencyName(const std::string& name) {
  currencyName_ = name;
}

void TotalsPanel::setReceivedRule(ReceivedRule rule) {
  if (std::exchange(rule_, rule) != rule) RecalculateTotals();
}

void TotalsPanel::setTyped(const TypedAmounts& typed) {
  {
    const QScopedValueRollback guard(recalculating_, true);
    discount_->setText(QString::fromStdString(typed.Discount));
    carriage_->setText(QString::fromStdString(typed.Carriage));
    received_->setText(QString::fromStdString(typed.Received));
  }
  RecalculateTotals();
}

QWidget* TotalsPanel::firstBox() const {
  return discount_;
}

void TotalsPanel::finishTyping() {
  frame::finishTyping(*discount_, totals_.Discount);
  frame::finishTyping(*carriage_, totals_.Carriage);
  frame::finishTyping(*received_, totals_.Received);
}

// What is being typed stays as it is, unless another amount is counted in its place.
void TotalsPanel::showTyped(forms::NumberBox& box, const std::string& counted) {
  const auto asMoney = [](double amount) { return text::formatNumber(amount, "0.00"); };
  const QString shown = QString::fromStdString(counted);
  const bool counts = box.isNumber() && asMoney(box.amount()) == asMoney(text::amountFrom(counted));
  if (box.text() == shown || (box.hasFocus() && (counts || beginsNumber(box.text())))) return;
  box.setText(shown);
  if (box.hasFocus()) box.selectAll();
}

void TotalsPanel::RecalculateTotals() {
  if (recalculating_) return;
  const QScopedValueRollback guard(recalculating_, true);
  const auto textOf = [](const QLineEdit* box) { return box->text().toStdString(); };
  totals_ = frame::RecalculateTotals(
      sums_, {.Discount = textOf(discount_), .Carriage = textOf(carriage_), .Received = textOf(received_)}, rule_,
      currencyName_);
  showTyped(*discount_, totals_.Discount);
  showTyped(*carriage_, totals_.Carriage);
  showTyped(*received_, totals_.Received);
  const auto show = [](QLineEdit* figure, const std::string& text) { figure->setText(QString::fromStdString(text)); };
  show(grTot_, totals_.GrTot);
  show(disc_, totals_.Disc);
  show(tExc_, totals_.TExc);
  show(gTotal_, totals_.GTotal);
  show(netTotal_, totals_.NetTotal);
  show(balance_, totals_.Balance);
  words_->setText(QString::fromStdString(totals_.AmtWords));
}

}  // namespace velmo::frame
