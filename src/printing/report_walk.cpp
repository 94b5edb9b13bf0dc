#include "printing/report_walk.h"

#include <QtGlobal>
#include <stdexcept>

namespace velmo::printing {

ReportWalk::ReportWalk(const ReportDesign& design, const ReportData& data) : design_(design), data_(data) {
  for (const Group& group : design.groups) members_.push_back(group.dataMember);
  if (design.detail || design.groups.empty()) members_.push_back(design.detailMember);
  open(data_.rows());
}

void ReportWalk::open(std::unique_ptr<ReportRows> rows) {
  cursors_.push_back({std::move(rows)});
  cursors_.back().onRow = cursors_.back().rows->next();
  rowAhead_ = true;
}

bool ReportWalk::hasDetailAt(int level) const {
  return level == static_cast<int>(design_.groups.size());
}

WalkStep ReportWalk::next() {
  if (state_ == State::Start) {
    state_ = State::Rows;
    return {Step::ReportHeader, -1};
  }
  if (state_ == State::Rows) {
    if (descend_) {
      descend_ = false;
      const auto below = cursors_.size();
      if (below == members_.size()) return {Step::GroupFooter, static_cast<int>(below) - 1};
      open(cursors_.back().rows->children(members_[below]));
    }
    const int level = static_cast<int>(cursors_.size()) - 1;
    Cursor& cursor = cursors_.back();
    if (!rowAhead_) cursor.onRow = cursor.rows->next();
    rowAhead_ = false;
    if (cursor.onRow) {
      if (hasDetailAt(level)) return {Step::Detail, level};
      descend_ = true;
      return {Step::GroupHeader, level};
    }
    cursors_.pop_back();
    if (!cursors_.empty()) return {Step::GroupFooter, level - 1};
    state_ = State::Footer;
  }
  if (state_ == State::Footer) {
    state_ = State::Done;
    return {Step::ReportFooter, -1};
  }
  return {};
}

int ReportWalk::levelOf(std::string_view dataMember) const {
  const int last = static_cast<int>(members_.size()) - 1;
  if (dataMember.empty()) return last;
  for (int level = 0; level <= last; ++level) {
    const std::string& member = members_[static_cast<std::size_t>(level)];
    if (qstrnicmp(member.data(), static_cast<qsizetype>(member.size()), dataMember.data(),
                  static_cast<qsizetype>(dataMember.size())) == 0)
      return level;
  }
  throw std::logic_error("the design has no level '" + std::string(dataMember) + "'");
}

store::Value ReportWalk::value(std::string_view dataMember, std::string_view field) const {
  return valueAt(levelOf(dataMember), field);
}

store::Value ReportWalk::valueAt(int level, std::string_view field) const {
  const auto index = static_cast<std::size_t>(level);
  if (index >= cursors_.size() || !cursors_[index].onRow) return store::Null{};
  return cursors_[index].rows->value(field);
}

}  // namespace velmo::printing
