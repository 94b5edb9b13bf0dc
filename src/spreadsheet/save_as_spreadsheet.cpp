#include "spreadsheet/save_as_spreadsheet.h"

#include <QTableView>

#include "forms/work_progress.h"
#include "spreadsheet/csv_writer.h"
#include "spreadsheet/held_figures.h"
#include "spreadsheet/table_rows.h"
#include "text/format.h"

namespace velmo::spreadsheet {
namespace {

constexpr const char* notSaved = "Spreadsheet Not Saved";

std::string proposedName(const std::string& title) {
  QString name = QString::fromStdString(title);
  for (QChar& character : name)
    if (QStringLiteral("/\\:*?\"<>|").contains(character)) character = u'-';
  return name.toStdString() + ".xlsx";
}

std::string endingOf(const std::filesystem::path& place) {
  return QString::fromStdString(place.extension().string()).toLower().toStdString();
}

// The chosen place with the ending of a kind of file that is written; empty when none was chosen. A file dialog may
// leave the program in another folder, and the company's file is found from its folder.
std::filesystem::path askPlace(const std::string& title, session::FileChooser& files, session::Prompts& prompts) {
  const std::filesystem::path folder = std::filesystem::current_path();
  const std::string chosen = files.saveFile(
      "Save as Spreadsheet", "Spreadsheets (*.xlsx);;Comma-separated values (*.csv)", proposedName(title));
  std::filesystem::path place = chosen;
  if (!chosen.empty()) place = std::filesystem::absolute(place);
  std::filesystem::current_path(folder);
  if (chosen.empty() || endingOf(place) == ".xlsx" || endingOf(place) == ".csv") return place;
  place += ".xlsx";
  std::error_code unknown;
  if (!std::filesystem::exists(place, unknown)) return place;
  const session::Answer answer =
      prompts.ask({.title = "Save as Spreadsheet",
                   .text = "The file \"" + place.string() + "\" is already there. Do you want to replace it?",
                   .buttons = session::Buttons::YesNo});
  return answer == session::Answer::Yes ? place : std::filesystem::path();
}

void save(const TableRows& shown, QWidget* window, session::FileChooser& files, session::Prompts& prompts) {
  const std::filesystem::path place = askPlace(shown.design.title, files, prompts);
  if (place.empty()) return;
  const TableRows list = withHeldFigures(shown);
  tl::expected<std::int64_t, std::string> saved;
  {
    constexpr std::int64_t manyRows = 20'000;
    const bool separated = endingOf(place) == ".csv";
    forms::WorkProgress progress(
        window, QStringLiteral("Saving the spreadsheet ..."), list.count * (separated ? 1 : 2),
        list.count > manyRows ? forms::WorkProgress::Shows::AtOnce : forms::WorkProgress::Shows::WhenItTakesLong);
    const auto write = separated ? saveSeparatedValues : saveSheet;
    saved = write(place, list.design, list.rows, [&](std::int64_t steps) { return progress.report(steps); });
  }
  if (saved)
    prompts.tell("Spreadsheet Saved", text::formatNumber(static_cast<double>(*saved), "#,##0") +
                                          (*saved == 1 ? " row was saved in \"" : " rows were saved in \"") +
                                          place.string() + "\".");
  else if (!saved.error().empty())
    prompts.tell(notSaved, saved.error());
}

void tellingFailure(session::Prompts& prompts, const std::function<void()>& work) {
  try {
    work();
  } catch (const store::StoreError& failure) {
    prompts.tell(notSaved, failure.what());
  } catch (const std::filesystem::filesystem_error& failure) {
    prompts.tell(notSaved, failure.what());
  }
}

}  // namespace

void saveAsSpreadsheet(const TableRows& list, QWidget* window, session::FileChooser& files, session::Prompts& prompts) {
  tellingFailure(prompts, [&] { save(list, window, files, prompts); });
}

void saveAsSpreadsheet(const QTableView& table, const std::string& title, session::FileChooser& files,
                       session::Prompts& prompts) {
  tellingFailure(prompts, [&] { save(rowsOf(table, title), table.window(), files, prompts); });
}

QAction* addSaveAsSpreadsheet(QTableView& table, const std::string& title, session::FileChooser& files,
                              session::Prompts& prompts) {
  auto* action = new QAction(QStringLiteral("Save as Spreadsheet..."), &table);
  action->setObjectName(QStringLiteral("SaveAsSpreadsheet"));
  action->setToolTip(QStringLiteral("Saves the list as a spreadsheet (Ctrl+E)"));
  action->setShortcut(Qt::CTRL | Qt::Key_E);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(action, &QAction::triggered, &table,
                   [&table, &files, &prompts, title] { saveAsSpreadsheet(table, title, files, prompts); });
  table.addAction(action);
  table.setContextMenuPolicy(Qt::ActionsContextMenu);
  return action;
}

}  // namespace velmo::spreadsheet
