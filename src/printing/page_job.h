#pragma once

#include <algorithm>
#include <optional>
#include <string>

namespace velmo::printing {

// Pages of a report, counted from 1. As a printer counts them, 0 stands for its first and its last one.
struct PageRange {
  int first = 0;
  int last = 0;
};

// Work that goes through the pages of a report one at a time, so that whoever runs it can repaint, tell how far it is,
// and stop between two of them by letting go of it: what it has written by then is taken back where that can be.
class PageJob {
 public:
  PageJob() = default;
  virtual ~PageJob() = default;
  PageJob(const PageJob&) = delete;
  PageJob& operator=(const PageJob&) = delete;

  // Does the next piece. False when there is nothing more to do, or it has failed. Failures of the data throw as they
  // come; the job is over then.
  virtual bool step() = 0;
  int written() const { return written_; }
  int total() const { return total_; }  // 0 until the pages are counted
  // A full sentence when it has failed.
  const std::optional<std::string>& problem() const { return problem_; }

 protected:
  bool failed(std::string sentence) {
    problem_ = std::move(sentence);
    return false;
  }

  // Sets the total by what the range takes of a report of so many pages, and the first of them, from 1. False, with its
  // sentence, when it takes none.
  bool take(const PageRange& range, int pages) {
    const int last = range.last > 0 ? std::min(range.last, pages) : pages;
    first_ = std::max(range.first, 1);
    if (first_ > last) return failed("The report has no page " + std::to_string(first_) + ".");
    total_ = last - first_ + 1;
    return true;
  }

  int written_ = 0;
  int total_ = 0;
  int first_ = 1;

 private:
  std::optional<std::string> problem_;
};

}  // namespace velmo::printing
