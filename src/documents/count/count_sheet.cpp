#include "documents/count/count_sheet.h"

#include <algorithm>

#include "text/decimal_sum.h"
#include "text/like.h"

namespace velmo::documents {

void CountSheet::setBook(CountBook book) {
  std::unordered_map<std::string, double> counts;
  for (const Line& line : lines_)
    if (line.counted) counts[text::foldedText(line.goods.code)] = *line.counted;
  lines_.clear();
  byCode_.clear();
  for (Goods& goods : book.goods) {
    const std::string code = text::foldedText(goods.code);
    const auto counted = counts.find(code);
    byCode_[code] = lines_.size();
    lines_.push_back({std::move(goods), counted == counts.end() ? std::nullopt : std::optional(counted->second)});
  }
  later_ = std::move(book.later);
  list(std::string(category_));
}

void CountSheet::list(std::string_view categoryId) {
  category_ = categoryId;
  listed_.clear();
  for (std::size_t i = 0; i < lines_.size(); ++i)
    if (category_.empty() || lines_[i].goods.categoryId == category_ || lines_[i].counted) listed_.push_back(i);
}

void CountSheet::clearCounts() {
  for (Line& line : lines_) line.counted.reset();
  list(std::string(category_));
}

std::size_t CountSheet::counted() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(lines_, [](const Line& line) { return line.counted.has_value(); }));
}

std::optional<std::size_t> CountSheet::find(std::string_view code) const {
  const auto found = byCode_.find(text::foldedText(std::string(code)));
  if (found == byCode_.end()) return std::nullopt;
  return found->second;
}

std::size_t CountSheet::listedPlace(std::size_t line) {
  const auto place = std::ranges::lower_bound(listed_, line);
  const auto at = static_cast<std::size_t>(place - listed_.begin());
  if (place == listed_.end() || *place != line) listed_.insert(place, line);
  return at;
}

std::optional<std::size_t> CountSheet::count(std::string_view code, double quantity) {
  const auto line = find(code);
  if (!line) return std::nullopt;
  lines_[*line].counted = quantity;
  return listedPlace(*line);
}

std::size_t CountSheet::countAll(const std::map<std::string, double>& quantities) {
  std::size_t taken = 0;
  for (const auto& [code, quantity] : quantities) {
    const auto line = find(code);
    if (!line) continue;
    lines_[*line].counted = quantity;
    ++taken;
  }
  list(std::string(category_));
  return taken;
}

std::optional<std::size_t> CountSheet::countOneMore(std::string_view code) {
  const auto line = find(code);
  if (!line) return std::nullopt;
  return count(code, text::sumOf({lines_[*line].counted.value_or(0), 1}));
}

bool CountSheet::differs(const Line& line, NotCounted notCounted) {
  return (line.counted || notCounted == NotCounted::IsNil) && line.counted.value_or(0) != line.goods.book;
}

std::optional<double> CountSheet::difference(const Line& line, NotCounted notCounted) {
  if (!differs(line, notCounted)) return std::nullopt;
  return text::sumOf({line.counted.value_or(0), -line.goods.book});
}

}  // namespace velmo::documents
