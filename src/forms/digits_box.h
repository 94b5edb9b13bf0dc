#pragma once

#include "forms/filtered_box.h"

namespace velmo::forms {

// A serial number or the like: digits only, up to a number of characters.
class DigitsBox : public FilteredBox {
  Q_OBJECT

 public:
  explicit DigitsBox(QWidget* parent = nullptr, int maxLength = 9);

 protected:
  bool accepts(QChar typed) const override;
  QString pasteable(const QString& pasted) const override;
};

}  // namespace velmo::forms
