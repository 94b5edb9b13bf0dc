#pragma once

#include <memory>
#include <vector>

#include "printing/paginator.h"

namespace velmo::printing {

// The pages of a report for looking at: made when they are asked for or in idle moments, kept in a compact form until
// the report is closed.
class PageSource {
 public:
  explicit PageSource(Report report);

  const Report& report() const { return report_; }
  // The page of this index, from 0; null behind the last. Makes all pages up to it.
  const Page* page(int index);
  int made() const { return static_cast<int>(pages_.size()); }
  bool complete() const { return paginator_ == nullptr; }
  int total() const { return complete() ? made() : 0; }  // 0: not yet known
  // Makes further pages for about so long, at least one.
  void makeFor(int milliseconds);

 private:
  void makeOne();

  Report report_;
  std::unique_ptr<Paginator> paginator_;  // none when the last page is made
  std::vector<Page> pages_;
};

}  // namespace velmo::printing
