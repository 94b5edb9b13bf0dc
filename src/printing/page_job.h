#pragma once

#include <optional>
#include <string>

#include "printing/page_source.h"

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
  // The pages must outlive the job.
  PageJob(PageSource& pages, PageRange range) : pages_(pages), range_(range) {}
  virtual ~PageJob() = default;
  PageJob(const PageJob&) = delete;
  PageJob& operator=(const PageJob&) = delete;

  // Does the next piece. False when there is nothing more to do, or it has failed. Failures of the data throw as they
  // come; the job is over then.
  bool step();
  int written() const { return written_; }
  int total() const { return total_; }  // 0 until the pages are counted
  // A full sentence when it has failed.
  const std::optional<std::string>& problem() const { return problem_; }

 protected:
  // False when it has failed().
  virtual bool begin(const Page& first) = 0;
  virtual bool write(const Page& page) = 0;  // the first one, too
  virtual void finish() = 0;

  bool failed(std::string sentence);
  bool isFirst() const { return written_ == 0; }

  PageSource& pages_;

 private:
  bool take();
  bool writeNext();

  const PageRange range_;
  int first_ = 0;  // index
  int written_ = 0;
  int total_ = 0;
  std::optional<std::string> problem_;
};

}  // namespace velmo::printing
