#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "printing/report_data.h"
#include "printing/report_design.h"

namespace velmo::printing {

// The rows that a section may look at: the current one of its own level and of every level around it.
class RowScope {
 public:
  virtual ~RowScope() = default;
  // Null when the level has no current row, as in a report without rows. A level that the design does not name throws
  // std::logic_error.
  virtual store::Value value(std::string_view dataMember, std::string_view field) const = 0;
  store::Value value(std::string_view field) const { return value({}, field); }  // of the detail's level
};

enum class Step { ReportHeader, GroupHeader, Detail, GroupFooter, ReportFooter, End };

struct WalkStep {
  Step step = Step::End;
  int level = 0;  // of groups, counted from the outermost; the detail stands behind the last group
};

// The order in which the sections of a report come, drawn from its rows one step at a time. A parent without children
// gives its header and footer. The first row is current from the start, for the headers of the first page.
class ReportWalk : public RowScope {
 public:
  ReportWalk(const ReportDesign& design, const ReportData& data);

  WalkStep next();
  store::Value value(std::string_view dataMember, std::string_view field) const override;
  using RowScope::value;
  store::Value valueAt(int level, std::string_view field) const;
  int levelOf(std::string_view dataMember) const;  // "" is the detail, or the innermost group where there is none

 private:
  struct Cursor {
    std::unique_ptr<ReportRows> rows;
    bool onRow = false;
  };
  enum class State { Start, Rows, Footer, Done };

  void open(std::unique_ptr<ReportRows> rows);
  bool hasDetailAt(int level) const;

  const ReportDesign& design_;
  const ReportData& data_;
  std::vector<std::string> members_;  // of every level, the detail last
  std::vector<Cursor> cursors_;
  State state_ = State::Start;
  bool rowAhead_ = false;  // the innermost cursor already stands on the row that comes next
  bool descend_ = false;   // a group header was given: its children come next
};

}  // namespace velmo::printing
