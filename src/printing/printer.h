#pragma once

#include <QPainter>
#include <memory>

#include "printing/page_job.h"

class QPrinter;

namespace velmo::printing {

// Sends pages to a printer: those of its range, or all. A job that is let go of before its end withdraws what the
// printer has not yet taken.
class PrintJob : public PageJob {
 public:
  PrintJob(PageSource& pages, std::unique_ptr<QPrinter> printer);
  ~PrintJob() override;

 protected:
  bool begin(const Page& first) override;
  bool write(const Page& page) override;
  void finish() override;

 private:
  void setPaper(const Page& page);

  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;
};

}  // namespace velmo::printing
