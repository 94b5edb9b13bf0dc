#include "printing/page_job.h"

#include <algorithm>

namespace velmo::printing {

namespace {

constexpr int CountingSlice = 20;  // milliseconds of page making in one step

}  // namespace

bool PageJob::failed(std::string sentence) {
  problem_ = std::move(sentence);
  return false;
}

bool PageJob::step() {
  if (problem_ || (total_ > 0 && written_ == total_)) return false;
  if (!pages_.complete()) {
    pages_.makeFor(CountingSlice);
    return true;
  }
  if (total_ == 0 && !take()) return false;
  if (!writeNext()) return false;
  if (written_ == total_) finish();
  return written_ < total_;
}

// What the range takes of the report.
bool PageJob::take() {
  const int last = range_.last > 0 ? std::min(range_.last, pages_.total()) : pages_.total();
  const int first = std::max(range_.first, 1);
  if (first > last) return failed("The report has no page " + std::to_string(first) + ".");
  first_ = first - 1;
  total_ = last - first_;
  return true;
}

bool PageJob::writeNext() {
  const std::shared_ptr<const Page> page = pages_.page(first_ + written_);
  if (!page) return failed("Page " + std::to_string(first_ + written_ + 1) + " of the report could not be read back.");
  if ((isFirst() && !begin(*page)) || !write(*page)) return false;
  ++written_;
  return true;
}

}  // namespace velmo::printing
