#pragma once

#include <span>
#include <string_view>
#include <variant>

#include "frame/document/print_outs.h"
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

// One screen of the program, by the name it is opened by. A dialog's widget is a QDialog. What makes a document is
// handed the print-outs that stand on no floor of its own.
struct ScreenEntry {
  using Make = QWidget* (*)(session::Workplace& workplace, QWidget* parent);
  using MakeDocument = QWidget* (*)(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts);

  std::string_view name;
  ScreenKind kind;
  std::variant<Make, MakeDocument> maker;
  HelpTopic help = HelpTopic::Keys;  // what F1 opens

  QWidget* make(session::Workplace& workplace, QWidget* parent) const;
};

// Every screen that this program has; what is not listed here cannot be opened.
std::span<const ScreenEntry> screenCatalogue();

}  // namespace velmo::shell
