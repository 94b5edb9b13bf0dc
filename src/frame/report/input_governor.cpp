#include "frame/report/input_governor.h"

#include <QCheckBox>
#include <QLineEdit>
#include <map>

#include "forms/drop_combo.h"

namespace velmo::frame {
namespace {

void clear(QWidget& input) {
  if (auto* list = qobject_cast<forms::DropCombo*>(&input))
    list->setBoundValue({});
  else if (auto* line = qobject_cast<QLineEdit*>(&input))
    line->clear();
  else if (auto* button = qobject_cast<QCheckBox*>(&input))
    button->setChecked(false);
}

}  // namespace

void InputGovernor::add(QAbstractButton& button, std::vector<QWidget*> inputs) {
  if (inputs.empty()) return;
  rules_.push_back({&button, std::move(inputs)});
  connect(&button, &QAbstractButton::toggled, this, &InputGovernor::apply);
}

void InputGovernor::apply() {
  std::map<QWidget*, bool> wanted;
  for (bool settled = false; !settled;) {
    settled = true;
    for (const Rule& rule : rules_) {
      const auto own = wanted.find(rule.button);
      const bool gives = rule.button->isChecked() && (own == wanted.end() || own->second);
      for (QWidget* input : rule.inputs) {
        const auto [entry, isNew] = wanted.try_emplace(input, gives);
        if (isNew || (entry->second && !gives)) settled = false;
        entry->second = entry->second && gives;
      }
    }
  }
  for (const auto& [input, enabled] : wanted) {
    if (!enabled && input->isEnabled()) clear(*input);
    input->setEnabled(enabled);
  }
}

}  // namespace velmo::frame
