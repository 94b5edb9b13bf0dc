#pragma once

#include <string>

#include "forms/filtered_box.h"

namespace velmo::forms {

enum class Sign { PositiveOnly, Signed };

// How one amount field behaves.
struct NumberBoxOptions {
  Sign sign = Sign::PositiveOnly;
  // Pattern of the text while it is being edited; "" leaves the text as it stands.
  std::string editFormat = {};
  // Pattern of the text after leaving; text that is no number stays as it is.
  std::string restFormat = "0.00; (0.00)";
  // Once the value is above this, nothing more can be typed.
  double keyLimit = 9999999;
};

// An amount: digits, one decimal point and, when signed, "-"; right-aligned in tabular figures; all of it selected when
// the focus comes.
class NumberBox : public FilteredBox {
  Q_OBJECT

 public:
  explicit NumberBox(QWidget* parent = nullptr, NumberBoxOptions options = {});

  double amount() const;  // 0 when the text is no number
  bool isNumber() const;
  const NumberBoxOptions& options() const { return options_; }

 Q_SIGNALS:
  // The focus went while the text was no number. Comes before left().
  void leftWithoutNumber();
  // The focus went, and the text has its rest format.
  void left();

 protected:
  bool accepts(QChar typed) const override;
  QString pasteable(const QString& pasted) const override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void showAs(const std::string& pattern);

  NumberBoxOptions options_;
};

}  // namespace velmo::forms
