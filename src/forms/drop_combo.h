#pragma once

#include <QComboBox>
#include <string_view>
#include <vector>

#include "store/recordset/recordset.h"

namespace velmo::forms {

// A box to type in with a list to drop down (Alt+Down, F4), filled from a recordset: one column is shown, another is
// the value. Typing completes to the first entry that begins so. The text may be anything; matchesEntry() tells
// whether it stands for an entry.
class DropCombo : public QComboBox {
  Q_OBJECT

 public:
  explicit DropCombo(QWidget* parent = nullptr);

  // Reads all rows, from the first; a closed recordset has none. The text becomes empty.
  void setSource(store::Recordset rows, std::string_view shownField, std::string_view boundField);

  // Whether the text is an entry of the list, whatever the case of its letters.
  bool matchesEntry() const;
  // The bound value of the entry that the text stands for; null when it stands for none.
  store::Value boundValue() const;
  // Shows the entry with this value; empty when there is none.
  void setBoundValue(const store::Value& value);

 Q_SIGNALS:
  // The text stands for another entry now, or for none, by whatever way.
  void entryChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void noteEntry();
  int entryOfText() const;  // -1 when none

  std::vector<store::Value> bound_;
  int shownEntry_ = -1;
};

}  // namespace velmo::forms
