#include "forms/number_box.h"

#include <QFocusEvent>

#include "forms/figure_fit.h"
#include "forms/look.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::forms {

NumberBox::NumberBox(QWidget* parent, NumberBoxOptions options) : FilteredBox(parent), options_(std::move(options)) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setFont(figureFont());
  keepFigureWhole(*this);
}

double NumberBox::amount() const {
  return text::amountFrom(text().toStdString());
}

bool NumberBox::isNumber() const {
  return text::isNumeric(text().toStdString());
}

bool NumberBox::accepts(QChar typed) const {
  if (amount() > options_.keyLimit) return false;
  if (typed >= QLatin1Char('0') && typed <= QLatin1Char('9')) return true;
  if (typed == QLatin1Char('.')) return !textBesideSelection().contains(QLatin1Char('.'));
  return typed == QLatin1Char('-') && options_.sign == Sign::Signed;
}

QString NumberBox::pasteable(const QString& pasted) const {
  const std::optional<double> number = text::numberFrom(pasted.toStdString());
  if (!number || *number > options_.keyLimit || amount() > options_.keyLimit) return {};
  if (*number < 0 && (options_.sign == Sign::PositiveOnly || *number < -options_.keyLimit)) return {};
  const QString plain = QString::fromStdString(text::formatNumber(*number, "0.00##########"));
  const QString rest = textBesideSelection();
  return rest.isEmpty() || !rest.contains(QLatin1Char('.')) ? plain : QString();
}

void NumberBox::focusInEvent(QFocusEvent* event) {
  if (!options_.editFormat.empty() && !isReadOnly()) showAs(options_.editFormat);
  FilteredBox::focusInEvent(event);
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
  FilteredBox::focusOutEvent(event);
  if (isReadOnly() || event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) return;
  if (!isNumber()) Q_EMIT leftWithoutNumber();
  showAs(options_.restFormat);
  Q_EMIT left();
}

void NumberBox::showAs(const std::string& pattern) {
  const QString shown = QString::fromStdString(text::formatText(text().toStdString(), pattern));
  if (shown != text()) setText(shown);
}

}  // namespace velmo::forms
