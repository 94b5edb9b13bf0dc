#include "printing/pdf_writer.h"

#include "printing/painter.h"

namespace velmo::printing {

namespace {

constexpr int TwipsPerInch = 1440;

QPageLayout layoutOf(const Page& page) {
  const QSizeF size(page.width / 20.0, page.height / 20.0);
  QPageLayout layout(QPageSize(size, QPageSize::Point, {}, QPageSize::ExactMatch), QPageLayout::Portrait, QMarginsF());
  layout.setMode(QPageLayout::FullPageMode);
  return layout;
}

}  // namespace

PdfJob::PdfJob(PageSource& pages, std::string path, PageRange range)
    : PageJob(pages, range), path_(std::move(path)), file_(path_) {
  if (!file_.open(QIODevice::WriteOnly)) refused();
}

bool PdfJob::refused() {
  return failed("The file '" + path_ + "' could not be written: " + file_.reason() + ". Nothing was saved.");
}

bool PdfJob::begin(const Page& first) {
  writer_ = std::make_unique<QPdfWriter>(&file_);
  writer_->setResolution(TwipsPerInch);
  writer_->setTitle(QString::fromStdString(pages_.report().title));
  writer_->setCreator(QString::fromStdString(pages_.report().author));
  writer_->setPageLayout(layoutOf(first));
  return painter_.begin(writer_.get()) || refused();
}

bool PdfJob::write(const Page& page) {
  if (!isFirst()) {
    writer_->setPageLayout(layoutOf(page));
    writer_->newPage();
  }
  paintPage(painter_, page, pages_.total());
  return file_.isSound() || refused();
}

// The end of the file is written as the painter ends; only then is it known that all of it stands.
void PdfJob::finish() {
  painter_.end();
  writer_.reset();
  if (!file_.finish()) refused();
}

std::optional<std::string> writePdf(const Report& report, const std::string& path, const Progress& progress) {
  PageSource pages(report);
  PdfJob job(pages, path);
  while (job.step())
    if (progress && !progress(job.written(), job.total())) return "";
  return job.problem();
}

}  // namespace velmo::printing
