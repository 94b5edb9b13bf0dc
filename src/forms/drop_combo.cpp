#include "forms/drop_combo.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include "forms/shown_part.h"

namespace velmo::forms {
namespace {

// Keys of one kind may come as different number types: a column's Byte, a literal's Long.
bool sameKey(const store::Value& left, const store::Value& right) {
  if (store::isNull(left) || store::isNull(right)) return false;
  if (std::holds_alternative<std::string>(left) || std::holds_alternative<std::string>(right))
    return store::textOf(left) == store::textOf(right);
  return store::numberOf(left) == store::numberOf(right);
}

}  // namespace

DropCombo::DropCombo(QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(10);
  setMaxVisibleItems(16);
  completer()->setCompletionMode(QCompleter::InlineCompletion);
  completer()->setCaseSensitivity(Qt::CaseInsensitive);
  connect(this, &QComboBox::editTextChanged, this, &DropCombo::noteEntry);
  connect(this, &QComboBox::currentIndexChanged, this, &DropCombo::noteEntry);
}

void DropCombo::setSource(store::Recordset rows, std::string_view shownField, std::string_view boundField) {
  clear();
  bound_.clear();
  QStringList shown;
  if (rows.isOpen() && !rows.isEmpty())
    for (rows.moveFirst(); !rows.eof(); rows.moveNext()) {
      shown << shownPart(rows.text(shownField));
      bound_.push_back(rows.value(boundField));
    }
  addItems(shown);
  setCurrentIndex(-1);
  clearEditText();
}

int DropCombo::entryOfText() const {
  const QString text = currentText();
  if (text.isEmpty()) return -1;
  // Two entries may read alike: the one that was picked counts.
  if (currentIndex() >= 0 && itemText(currentIndex()).compare(text, Qt::CaseInsensitive) == 0) return currentIndex();
  return findText(text, Qt::MatchFixedString);
}

void DropCombo::noteEntry() {
  const int entry = entryOfText();
  if (std::exchange(shownEntry_, entry) != entry) Q_EMIT entryChanged();
}

bool DropCombo::matchesEntry() const {
  return entryOfText() >= 0;
}

store::Value DropCombo::boundValue() const {
  const int entry = entryOfText();
  return entry < 0 ? store::Value() : bound_[static_cast<std::size_t>(entry)];
}

void DropCombo::setBoundValue(const store::Value& value) {
  const auto found = std::find_if(bound_.begin(), bound_.end(),
                                  [&](const store::Value& candidate) { return sameKey(candidate, value); });
  setCurrentIndex(found == bound_.end() ? -1 : static_cast<int>(found - bound_.begin()));
  if (found == bound_.end()) clearEditText();
}

void DropCombo::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F4 && event->modifiers() == Qt::NoModifier)
    showPopup();
  else
    QComboBox::keyPressEvent(event);
}

// Scrolling a screen past the box must not change its value.
void DropCombo::wheelEvent(QWheelEvent* event) {
  if (hasFocus())
    QComboBox::wheelEvent(event);
  else
    event->ignore();
}

}  // namespace velmo::forms
