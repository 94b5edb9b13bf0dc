#pragma once

#include <QPainter>
#include <memory>

#include "printing/page_job.h"
#include "printing/page_source.h"

class QPrinter;

namespace velmo::printing {

// Sends pages to a printer: those of its range, or all. The pages must outlive the job. A job that is let go of before
// its end withdraws what the printer has not yet taken.
class PrintJob : public PageJob {
 public:
  PrintJob(PageSource& pages, std::unique_ptr<QPrinter> printer);
  ~PrintJob() override;
  bool step() override;

 private:
  bool begin();
  void setPaper(const Page& page);

  PageSource& pages_;
  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;
  int next_ = 0;  // number of the page that comes next; 0 before the first
};

}  // namespace velmo::printing
