#pragma once

#include <QPainter>
#include <QPdfWriter>
#include <functional>
#include <memory>

#include "forms/whole_file.h"
#include "printing/page_job.h"

namespace velmo::printing {

// Writes pages as a PDF file with real text and embedded fonts. The file appears under its name only when it is whole;
// an older one is replaced then. Text of the paths is UTF-8.
class PdfJob : public PageJob {
 public:
  PdfJob(PageSource& pages, std::string path, PageRange range = {});

 protected:
  bool begin(const Page& first) override;
  bool write(const Page& page) override;
  void finish() override;

 private:
  bool refused();

  const std::string path_;
  forms::WholeFile file_;
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
