#pragma once

#include <QObject>
#include <vector>

class QAbstractButton;
class QWidget;

namespace velmo::frame {

// Buttons and check boxes that enable inputs while they are chosen, and otherwise disable and clear them. An input that
// several have, or a check box that is an input itself, is enabled while all are chosen that stand before it.
class InputGovernor : public QObject {
 public:
  using QObject::QObject;

  void add(QAbstractButton& button, std::vector<QWidget*> inputs);
  void apply();

 private:
  struct Rule {
    QAbstractButton* button;
    std::vector<QWidget*> inputs;
  };

  std::vector<Rule> rules_;
};

}  // namespace velmo::frame
