#pragma once

#include <span>
#include <string_view>

#include "session/workplace.h"

class QWidget;

namespace velmo::shell {

enum class ScreenKind { ChildWindow, Dialog };

// The texts of the table HelpIndex, by their ID.
enum class HelpTopic {
  DateFormat = 1,
  FirstSteps = 2,
  Keys = 3,
  PaperWidth = 4,
  YearDates = 5,
  BackUp = 6,
};

// One screen of the program, by the name it is opened by. A dialog's widget is a QDialog.
struct ScreenEntry {
  std::string_view name;
  ScreenKind kind;
  QWidget* (*make)(session::Workplace& workplace, QWidget* parent);
  HelpTopic help = HelpTopic::Keys;  // what F1 opens
};

// Every screen that this program has; what is not listed here cannot be opened.
std::span<const ScreenEntry> screenCatalogue();

}  // namespace velmo::shell
