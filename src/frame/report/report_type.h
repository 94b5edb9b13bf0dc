#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "forms/recordset_model.h"
#include "frame/picking/item_code_box.h"
#include "frame/report/report_period.h"
#include "printing/report.h"

namespace velmo::frame {

class ReportScreen;

// ---- What a report asks for. A name is the objectName of the control; an element of an array is "LedgerDt_0". -----

// One button of a choice, or a check box when it has no group. While it is chosen its inputs are enabled, otherwise
// they are disabled and cleared. Of each group the first button is chosen at first.
struct ReportOption {
  std::string name;
  std::string caption;  // with its access key
  std::string group = {};
  std::vector<std::string> inputs = {};  // names of controls
};

// Many buttons of one group in a frame, row by row.
struct ReportOptions {
  std::string name;     // of the group; the buttons are "<name>_0" and so on
  std::string caption;  // of the frame
  std::vector<std::string> captions;
  int columns = 2;
};

// Two days. With a check box they are disabled, and not in force, until it is checked.
struct ReportPeriodBoxes {
  std::string check = {};  // its name
  std::string caption = "Peri&od From";
  std::string from = "LedgerDt_0";
  std::string to = "LedgerDt_1";
  PeriodStart start = PeriodStart::Today;
};

// A code box that narrows a list as it is typed into, and the name of what it stands for.
struct ReportAccount {
  std::string code = "ACodeTxt";
  std::string name = "Acc";
  std::string caption = "&Account";
  std::string condition = {};  // on acclevel3: "Level1ID=120 or Level1ID=210"
};

// The same for an item.
struct ReportItem {
  std::string code = "ICode";
  std::string name = "IName";
  std::string caption = "&Item";
  ItemKinds kinds = ItemKinds::Goods;
};

// A list to choose from. It is read when the screen opens; one that depends on another list is read again whenever
// something else is chosen there, and is empty while nothing is.
struct ReportList {
  std::string name;
  std::string caption = {};
  std::string shown;                                          // field
  std::string bound;                                          // field
  std::function<std::string(const store::Value&)> statement;  // of what is chosen in `parent`, null without one
  std::string parent = {};
  int width = 24;  // in average characters
};

// What else the statement of a list says of the entry that is chosen there, in read-only boxes, row by row. They are
// "<name>_0" and so on; the width of a column counts for its box.
struct ReportEntryBoxes {
  std::string name;
  std::string list;
  std::vector<forms::TableColumn> boxes;
  int columns = 3;
};

// A text as it is typed.
struct ReportText {
  std::string name;
  std::string caption;
  int width = 40;  // in average characters
};

// Digits, all of them selected when the focus comes.
struct ReportDigits {
  std::string name;
  std::string caption;
  int longest = 10;
};

using ReportFilter = std::variant<ReportOption, ReportOptions, ReportPeriodBoxes, ReportAccount, ReportItem, ReportList,
                                  ReportEntryBoxes, ReportText, ReportDigits>;

// The names of the controls that a filter asks with beside its own button or check box; the first is the one that its
// caption stands for.
std::vector<std::string> controlsOf(const ReportFilter& filter);

// Filters side by side. What leads the first of them (its button, check box or caption) stands in a column of its own,
// and in rows of the same kinds of filters what leads the others does too.
using ReportFilterRow = std::vector<ReportFilter>;

// ---- What it shows ------------------------------------------------------------------------------------------------

// A read-only box under the grid. One with a sum shows it by itself once all rows have been read.
struct ReportFigure {
  std::string name;
  std::string caption = {};
  int width = 16;        // in average characters
  std::string sum = {};  // the field that is summed up
  std::string format = figureFormat;
};

// A line of figures below the totals of a grid, each under one of those; one without a name keeps a place free. It is
// there when ReportScreen::showFurtherTotals() says so.
struct ReportFurtherTotals {
  std::string frame = {};  // its name; none: the grid has no such line
  std::string caption = {};
  std::vector<ReportFigure> figures = {};
};

struct ReportGrid {
  std::string name;
  std::vector<forms::TableColumn> columns;
  std::vector<std::string> sums = {};  // further fields that are summed up as the rows come, beside those of figures
  std::string shownBy = {};            // the option that shows this grid, of many
  std::string totalsFrame = {};        // the name of a frame with figures of this grid alone
  std::vector<ReportFigure> totals = {};
  ReportFurtherTotals further = {};
};

// A second grid, which shows what belongs to the current row of the first and follows when the keys rest. Double click
// or Enter there opens the row's document.
struct ReportDetail {
  std::string name = {};  // of the grid; none: the report has none
  std::string caption = {};
  std::vector<forms::TableColumn> columns = {};
  std::function<std::string(ReportScreen&, std::int64_t row)> statement = {};  // nothing to show when it is empty
  std::string totalsFrame = {};
  std::vector<ReportFigure> totals = {};  // sums over its rows
};

struct ReportType;

// The fields of a grid of which its rows keep sums: those that it names, and those of its figures.
std::vector<std::string> summedFields(const ReportType& type, const ReportGrid& grid);

// What the user wants the rows for.
enum class ReportUse { View, Print, Export };

// A sheet of the report; columns by their fields in the rows of the first grid that is shown.
struct ReportSheet {
  std::string title;                   // proposed for the file
  std::vector<std::string> head = {};  // lines above the captions
  std::vector<forms::TableColumn> columns = {};
  std::vector<store::Value> opening = {};  // a row before the first, column by column
  std::vector<store::Value> totals = {};   // and one behind the last
};

struct ReportCommand {
  std::string name = {};  // none: the report has no such command
  std::string caption = {};
  std::string hint = {};
  std::function<void(ReportScreen&)> run = {};  // of commands beside those that every report has
};

// Whether a report may be asked for again while its rows are still being read.
enum class ReportRuns { AtAnyTime, OneByOne };

// A report as data and the few functions that are its own. Whatever one of them throws as store::StoreError is told to
// the user; the screen stays.
struct ReportType {
  std::string screen;
  std::string caption;            // of the window
  std::string heading = {};       // none: as the caption
  std::string filtersFrame = {};  // the name of the frame around the filters
  std::vector<ReportFilterRow> filters = {};
  std::vector<ReportGrid> grids = {};     // the first is shown; ReportScreen::showGrid() changes that
  std::vector<std::string> labels = {};   // above the grid, at the right: the balance brought forward
  std::string totalsFrame = {};           // the frame's name
  std::string totalsLabel = {};           // shown at its left, named `TtlLbl`
  std::vector<ReportFigure> totals = {};  // sums are those of the first grid
  ReportDetail detail = {};

  ReportCommand view = {};   // F5, and Enter in a date or a text
  ReportCommand print = {};  // Ctrl+P
  ReportCommand sheet = {};  // Ctrl+E
  std::vector<ReportCommand> others = {};
  ReportRuns runs = ReportRuns::AtAnyTime;  // one by one: view, print and sheet are disabled for so long

  // Whether the filters say enough; tells what is missing and leads there. Always, when there is none.
  std::function<bool(ReportScreen&, ReportUse)> check = {};
  // Reads the rows: ReportScreen::setRows() for each grid. Every use runs it.
  std::function<void(ReportScreen&)> load = {};
  // Once all rows have been read: sets the figures.
  std::function<void(ReportScreen&)> figures = {};
  std::function<std::optional<printing::Report>(ReportScreen&)> printOut = {};
  // The rows as a sheet. Without it: the columns of the grid under the heading.
  std::function<ReportSheet(ReportScreen&)> sheetOf = {};
  // Double click or Enter on a row. Without it: the row's document, where the rows name one by TranNo and TranType.
  std::function<void(ReportScreen&, std::int64_t row)> drillDown = {};
  // Once, when the screen has been made.
  std::function<void(ReportScreen&)> opened = {};
  // Whenever the screen is asked for again while it is open.
  std::function<void(ReportScreen&)> reopened = {};
};

}  // namespace velmo::frame
