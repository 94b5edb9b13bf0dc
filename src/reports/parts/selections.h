#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/report/report_screen.h"

// What a report may be narrowed to, as rows of data: what the user ticks and chooses, what the statement says of it,
// what he is told when he ticked and did not choose, and how the title names it.
namespace velmo::reports {

// What is said when a selection is in force and one of its controls stands for nothing, which is led to.
struct Refusal {
  std::string control = {};
  std::string title;
  std::string text;
  std::string onPrint = {};  // none: `text` as well
};

// A "?" stands for a value of the inputs in their order: in a clause for its literal, in words for what is shown of it.
// A text stands for itself alone behind "like".
struct Selection {
  std::string box = {};      // check box, or button of the group; none: always in force
  std::string caption = {};  // with its access key
  std::string group = {};
  std::vector<frame::ReportFilter> inputs = {};  // enabled while it is ticked
  std::vector<Refusal> refusals = {};
  std::string clause = {};
  std::string otherwise = {};            // the clause while it is not in force
  std::string words = {};                // "Location: ?", "From  ?  To  ?"
  std::string otherwiseWords = {};       // "All Locations"; a "?" is today
  std::vector<Selection> narrower = {};  // boxes behind the inputs; one that is ticked takes this one's place
};

// The row of a selection, and the rows of several, so many side by side.
frame::ReportFilterRow selectionRow(const Selection& selection);
std::vector<frame::ReportFilterRow> selectionRows(const std::vector<Selection>& selections, std::size_t sideBySide);

// Whether all that is in force has been chosen; tells the first that has not.
bool checkSelections(frame::ReportScreen& screen, frame::ReportUse use, const std::vector<Selection>& selections);

// The clauses one behind the other, as they are written: a clause brings its own " AND ".
std::string clausesOf(const frame::ReportFilters& filters, const std::vector<Selection>& selections);

// The words of a selection as it stands, days like "November 22, 2026"; and such words with days that are given.
std::string wordsOf(frame::ReportScreen& screen, const Selection& selection);
std::string withDays(std::string_view words, const std::vector<text::DateTime>& days);

// Words as spreadsheets have them: without the wide gaps of print-outs.
std::string singleSpaced(std::string words);

}  // namespace velmo::reports
