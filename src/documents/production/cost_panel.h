#pragma once

#include <QFrame>
#include <map>
#include <string>
#include <vector>

class QLabel;
class QLineEdit;

namespace velmo::forms {
class NumberBox;
}

namespace velmo::documents {

// Costs as texts, by the names of their boxes; "AmtWords" are the words of the one that the document is about.
using Costs = std::map<std::string, std::string, std::less<>>;

enum class CostKind { Typed, Computed, Total };

struct CostBox {
  const char* name;
  const char* caption;
  CostKind kind;
};

// What a product costs: boxes to type in, figures that follow from them and from the lines, and the amount in words.
class CostPanel : public QFrame {
  Q_OBJECT

 public:
  // The boxes stand column by column, so many in each.
  CostPanel(const std::vector<CostBox>& boxes, int rows);

  Costs typed() const;  // the texts of the boxes that are typed into
  void setTyped(const Costs& typed);
  // Shows the figures. What is being typed stays as it is where it counts as much.
  void show(const Costs& costs);
  // The typed amounts stand as they are counted, whatever the keyboard is still in.
  void finishTyping();
  QWidget* firstBox() const;

 Q_SIGNALS:
  void changed();  // something was typed

 private:
  QLineEdit* addBox(const CostBox& box, int row, int column);

  Costs shown_;
  std::map<std::string, forms::NumberBox*, std::less<>> typed_;
  std::map<std::string, QLineEdit*, std::less<>> computed_;
  forms::NumberBox* first_ = nullptr;
  QLabel* words_;
  bool showing_ = false;
};

}  // namespace velmo::documents
