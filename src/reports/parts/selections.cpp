#include "reports/parts/selections.h"

#include "store/connection/connection.h"

namespace velmo::reports {
namespace {

using frame::ReportFilter;
using frame::ReportFilters;

bool hasName(const ReportFilter& input) {
  return std::holds_alternative<frame::ReportAccount>(input) || std::holds_alternative<frame::ReportItem>(input);
}

// The controls whose values the user chooses: of a code box without the name beside it.
std::vector<std::string> valueControls(const std::vector<ReportFilter>& inputs) {
  std::vector<std::string> controls;
  for (const ReportFilter& input : inputs) {
    std::vector<std::string> own = frame::controlsOf(input);
    if (hasName(input)) own.resize(1);
    controls.insert(controls.end(), own.begin(), own.end());
  }
  return controls;
}

std::vector<std::string> governedBy(const Selection& selection) {
  std::vector<std::string> names;
  const auto add = [&names](const std::vector<std::string>& further) {
    names.insert(names.end(), further.begin(), further.end());
  };
  for (const ReportFilter& input : selection.inputs) add(frame::controlsOf(input));
  for (const Selection& narrower : selection.narrower) {
    names.push_back(narrower.box);
    add(governedBy(narrower));
  }
  return names;
}

bool isInForce(const ReportFilters& filters, const Selection& selection) {
  return selection.box.empty() || filters.chosen(selection.box);
}

// The selections that say something: a narrower one for the one that it narrows.
std::vector<const Selection*> speaking(const ReportFilters& filters, const Selection& selection) {
  std::vector<const Selection*> found;
  if (isInForce(filters, selection))
    for (const Selection& narrower : selection.narrower)
      if (isInForce(filters, narrower)) found.push_back(&narrower);
  if (found.empty()) found.push_back(&selection);
  return found;
}

std::string literalOf(const store::Value& value, std::string_view before) {
  if (const auto* day = std::get_if<text::DateTime>(&value)) return store::dateLiteral(*day);
  if (const auto* words = std::get_if<std::string>(&value))
    return before.ends_with("like ") || before.ends_with("Like ") ? store::quotedWhole(*words) : store::quoted(*words);
  return store::textOf(value);
}

// A pattern whose marks are replaced one after the other; `next` is given what stands before each.
template <typename Next>
std::string filledIn(std::string_view pattern, Next next) {
  std::string result;
  for (const char each : pattern)
    if (each == '?')
      result += next(result);
    else
      result += each;
  return result;
}

std::string clauseOf(const ReportFilters& filters, const Selection& selection) {
  if (!isInForce(filters, selection)) return selection.otherwise;
  const std::vector<std::string> controls = valueControls(selection.inputs);
  return filledIn(selection.clause, [&, at = std::size_t{0}](const std::string& before) mutable {
    return literalOf(filters.value(controls.at(at++)), before);
  });
}

// What the user sees of each value.
std::vector<std::string> shownValues(const ReportFilters& filters, const std::vector<ReportFilter>& inputs) {
  std::vector<std::string> shown;
  for (const ReportFilter& input : inputs) {
    const std::vector<std::string> controls = frame::controlsOf(input);
    if (std::holds_alternative<frame::ReportPeriodBoxes>(input))
      for (const std::string& day : controls) shown.push_back(frame::dayInWords(filters.day(day)));
    else
      shown.push_back(filters.text(hasName(input) ? controls[1] : controls[0]));
  }
  return shown;
}

}  // namespace

frame::ReportFilterRow selectionRow(const Selection& selection) {
  frame::ReportFilterRow row;
  if (!selection.box.empty())
    row.emplace_back(frame::ReportOption{.name = selection.box,
                                         .caption = selection.caption,
                                         .group = selection.group,
                                         .inputs = governedBy(selection)});
  row.insert(row.end(), selection.inputs.begin(), selection.inputs.end());
  for (const Selection& narrower : selection.narrower)
    for (ReportFilter& filter : selectionRow(narrower)) row.push_back(std::move(filter));
  return row;
}

std::vector<frame::ReportFilterRow> selectionRows(const std::vector<Selection>& selections, std::size_t sideBySide) {
  std::vector<frame::ReportFilterRow> rows;
  for (std::size_t i = 0; i < selections.size(); ++i) {
    if (i % sideBySide == 0) rows.emplace_back();
    for (ReportFilter& filter : selectionRow(selections[i])) rows.back().push_back(std::move(filter));
  }
  return rows;
}

bool checkSelections(frame::ReportScreen& screen, frame::ReportUse use, const std::vector<Selection>& selections) {
  const ReportFilters& filters = screen.filters();
  for (const Selection& selection : selections)
    for (const Selection* each : speaking(filters, selection)) {
      if (!isInForce(filters, *each)) continue;
      for (const auto& [control, title, text, onPrint] : each->refusals) {
        if (!store::isNull(filters.value(control))) continue;
        const bool printed = use == frame::ReportUse::Print && !onPrint.empty();
        return screen.refuse(title.c_str(), (printed ? onPrint : text).c_str(), control.c_str());
      }
    }
  return true;
}

std::string clausesOf(const ReportFilters& filters, const std::vector<Selection>& selections) {
  std::string clauses;
  for (const Selection& selection : selections)
    for (const Selection* each : speaking(filters, selection)) clauses += clauseOf(filters, *each);
  return clauses;
}

std::string withDays(std::string_view words, const std::vector<text::DateTime>& days) {
  return filledIn(words,
                  [&, at = std::size_t{0}](const std::string&) mutable { return frame::dayInWords(days.at(at++)); });
}

std::string wordsOf(frame::ReportScreen& screen, const Selection& selection) {
  const ReportFilters& filters = screen.filters();
  if (!isInForce(filters, selection)) return withDays(selection.otherwiseWords, {screen.workplace().clock.today()});
  const std::vector<std::string> shown = shownValues(filters, selection.inputs);
  return filledIn(selection.words, [&, at = std::size_t{0}](const std::string&) mutable { return shown.at(at++); });
}

std::string singleSpaced(std::string words) {
  const auto blanks = [](char one, char next) { return one == ' ' && next == ' '; };
  words.erase(std::unique(words.begin(), words.end(), blanks), words.end());
  return words;
}

}  // namespace velmo::reports
