#include "frame/document/own_fields.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "forms/caption.h"
#include "forms/date_picker.h"
#include "forms/look.h"
#include "frame/posting/day_text.h"

namespace velmo::frame {

namespace {

constexpr int longestText = 255;

// The index of a stored choice; a value that stands for none counts as the initial one.
int choiceIndex(const DocumentField& field, const std::string& stored) {
  for (std::size_t i = 0; i < field.choices.size(); ++i)
    if (stored == std::to_string(i)) return static_cast<int>(i);
  return std::stoi(std::string(field.initial));
}

}  // namespace

OwnFields::OwnFields(const std::vector<DocumentField>& fields) : fields_(fields) {}

QWidget* OwnFields::makeControl(const DocumentField& field) {
  QWidget* control = nullptr;
  if (field.kind == FieldKind::Choice) {
    auto* list = new QComboBox;
    for (const std::string_view choice : field.choices) list->addItem(forms::shownText(choice));
    control = list;
  } else if (field.kind == FieldKind::Day) {
    control = new forms::DatePicker;
  } else {
    auto* line = new QLineEdit;
    line->setMaxLength(longestText);
    control = line;
  }
  control->setObjectName(forms::shownText(field.name));
  control->setAccessibleName(forms::shownText(field.label).trimmed());
  controls_[field.name] = control;
  return control;
}

void OwnFields::setInitial(const text::DateTime& today) {
  for (const DocumentField& field : fields_)
    setText(field.name, field.kind == FieldKind::Day ? dayText(today) : std::string(field.initial));
}

// A date that nobody can read gives way to the document's, lest the one shown before stays.
void OwnFields::show(const store::Recordset& tran) {
  for (const DocumentField& field : fields_) {
    const std::string stored = tran.text(field.column);
    const bool isUnreadable = field.kind == FieldKind::Day && !dayFrom(stored);
    setText(field.name, isUnreadable ? dayText(tran.date("TranDate")) : stored);
  }
}

std::map<std::string, std::string, std::less<>> OwnFields::texts() const {
  std::map<std::string, std::string, std::less<>> all;
  for (const DocumentField& field : fields_) all[std::string(field.name)] = text(field.name);
  return all;
}

std::string OwnFields::text(std::string_view name) const {
  const auto found = controls_.find(name);
  if (found == controls_.end()) return unseen_.at(name);
  if (const auto* list = qobject_cast<const QComboBox*>(found->second)) return std::to_string(list->currentIndex());
  if (const auto* day = qobject_cast<const forms::DatePicker*>(found->second)) return dayText(day->day());
  return static_cast<const QLineEdit*>(found->second)->text().toStdString();
}

void OwnFields::setText(std::string_view name, const std::string& text) {
  const auto field = std::ranges::find(fields_, name, &DocumentField::name);
  const auto found = controls_.find(name);
  if (found == controls_.end()) {
    unseen_[field->name] = text;
  } else if (auto* list = qobject_cast<QComboBox*>(found->second)) {
    list->setCurrentIndex(choiceIndex(*field, text));
  } else if (auto* picker = qobject_cast<forms::DatePicker*>(found->second)) {
    if (const auto day = dayFrom(text)) picker->setDay(*day);
  } else {
    auto* line = static_cast<QLineEdit*>(found->second);
    line->setText(QString::fromStdString(text));
    line->setCursorPosition(0);
  }
}

}  // namespace velmo::frame
