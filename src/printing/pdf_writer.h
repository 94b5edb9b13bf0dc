#pragma once

#include <QPainter>
#include <QPdfWriter>
#include <functional>
#include <memory>

#include "forms/whole_file.h"
#include "printing/page_job.h"
#include "printing/paginator.h"

namespace velmo::printing {

// Writes a report as a PDF file with real text and embedded fonts, page by page, so that memory does not grow with the
// pages. The file appears under its name only when it is whole; an older one is replaced then. Text of the paths is
// UTF-8. The report must outlive the job.
class PdfJob : public PageJob {
 public:
  // Pages that are already counted are not counted again; 0 when they are not.
  PdfJob(const Report& report, std::string path, int countedPages = 0, PageRange range = {});
  bool step() override;

 private:
  bool write(const Page& page);
  bool begin(const Page& first);
  bool finish();
  bool refused();

  const Report& report_;
  const std::string path_;
  forms::WholeFile file_;
  std::unique_ptr<Paginator> counting_;  // while the pages are counted
  int pages_ = 0;                        // of the whole report
  const PageRange range_;
  std::unique_ptr<Paginator> paginator_;
  std::unique_ptr<QPdfWriter> writer_;
  QPainter painter_;
};

// Called with the pages written so far and their count, 0 while they are counted; false stops the writing.
using Progress = std::function<bool(int written, int total)>;

// The whole job at once. Returns the reason as a full sentence when the file could not be written, "" when the progress
// stopped it, and nothing when the file stands. Failures of the data throw as they come, and leave no file.
[[nodiscard]] std::optional<std::string> writePdf(const Report& report, const std::string& path,
                                                  const Progress& progress = {});

}  // namespace velmo::printing
