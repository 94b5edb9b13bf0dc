#pragma once

#include <QAction>
#include <string>

#include "session/prompts.h"

class QTableView;
class QWidget;

namespace velmo::spreadsheet {

struct TableRows;

// Asks for a file, saves what the table shows and tells how it went; progress can be seen and stopped. The title names
// the sheet and proposes the file's name.
void saveAsSpreadsheet(const QTableView& table, const std::string& title, session::FileChooser& files,
                       session::Prompts& prompts);

// The same of a list that no table shows; the window is that which asks.
void saveAsSpreadsheet(const TableRows& list, QWidget* window, session::FileChooser& files, session::Prompts& prompts);

// The same as a ready command "Save as Spreadsheet..." (Ctrl+E) named `SaveAsSpreadsheet`, in the table's context menu.
// The shortcut works in the table; a dialog with one table adds the action to itself (QWidget::addAction), a tool
// button shows it (QToolButton::setDefaultAction). The chooser and the prompts outlive the table.
QAction* addSaveAsSpreadsheet(QTableView& table, const std::string& title, session::FileChooser& files,
                              session::Prompts& prompts);

}  // namespace velmo::spreadsheet
