#include "forms/digits_box.h"

#include "forms/look.h"

namespace velmo::forms {
namespace {

bool isDigit(QChar character) {
  return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

}  // namespace

DigitsBox::DigitsBox(QWidget* parent, int maxLength) : FilteredBox(parent) {
  setMaxLength(maxLength);
  setFont(figureFont());
}

bool DigitsBox::accepts(QChar typed) const {
  return isDigit(typed);
}

QString DigitsBox::pasteable(const QString& pasted) const {
  const bool fits = textBesideSelection().size() + pasted.size() <= maxLength();
  return fits && std::all_of(pasted.begin(), pasted.end(), isDigit) ? pasted : QString();
}

}  // namespace velmo::forms
