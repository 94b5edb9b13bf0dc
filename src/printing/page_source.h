#pragma once

#include <deque>
#include <exception>
#include <memory>
#include <utility>

#include "printing/page_spool.h"
#include "printing/paginator.h"

namespace velmo::printing {

// The pages of a report for looking at: made once, in their order, when they are asked for or in idle moments, and put
// by. The data are let go of behind the last page, and with them the state of the file that they were read from. Where
// they fail, so does every further attempt.
class PageSource {
 public:
  explicit PageSource(Report report);
  ~PageSource();
  PageSource(const PageSource&) = delete;
  PageSource& operator=(const PageSource&) = delete;

  const Report& report() const { return report_; }  // without its data once all pages are made
  // The page of this index, from 0; null behind the last, and when it cannot be read back. Makes all pages up to it.
  std::shared_ptr<const Page> page(int index);
  // Of pages that are made.
  PageSize sizeOf(int index) const { return spool_.sizeOf(index); }
  QString words(int index) const { return spool_.words(index); }  // as PageSpool gives them
  int made() const { return spool_.count(); }
  bool complete() const { return paginator_ == nullptr; }
  int total() const { return complete() ? made() : 0; }  // 0: not yet known
  // Makes further pages for about so long, at least one.
  void makeFor(int milliseconds);

 private:
  void makeOne();

  Report report_;
  std::unique_ptr<Paginator> paginator_;  // none when the last page is made
  std::exception_ptr failure_;            // of the data
  PageSpool spool_;
  std::deque<std::pair<int, std::shared_ptr<const Page>>> lookedAt_;  // by index, the latest first
};

}  // namespace velmo::printing
