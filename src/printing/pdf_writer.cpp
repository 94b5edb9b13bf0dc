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

PdfJob::PdfJob(const Report& report, std::string path, int countedPages, PageRange range)
    : report_(report), path_(std::move(path)), file_(path_), pages_(countedPages), range_(range) {
  if (!file_.open(QIODevice::WriteOnly))
    refused();
  else if (pages_ == 0)
    counting_ = std::make_unique<Paginator>(report_, Output::HeightsOnly);
}

bool PdfJob::refused() {
  return failed("The file '" + path_ + "' could not be written: " + file_.reason() + ". Nothing was saved.");
}

bool PdfJob::step() {
  if (problem()) return false;
  if (counting_) {
    if (counting_->next())
      ++pages_;
    else
      counting_.reset();
    return true;
  }
  if (!paginator_) {
    if (!take(range_, pages_)) return false;
    paginator_ = std::make_unique<Paginator>(report_);
  }
  const std::optional<Page> page = written_ < total_ ? paginator_->next() : std::nullopt;
  if (!page) return finish();
  return page->number < first_ || write(*page);
}

bool PdfJob::write(const Page& page) {
  if (written_ == 0) {
    if (!begin(page)) return refused();
  } else {
    writer_->setPageLayout(layoutOf(page));
    writer_->newPage();
  }
  paintPage(painter_, page, pages_);
  ++written_;
  return file_.isSound() || refused();
}

bool PdfJob::begin(const Page& first) {
  writer_ = std::make_unique<QPdfWriter>(&file_);
  writer_->setResolution(TwipsPerInch);
  writer_->setTitle(QString::fromStdString(report_.title));
  writer_->setCreator(QString::fromStdString(report_.author));
  writer_->setPageLayout(layoutOf(first));
  return painter_.begin(writer_.get());
}

// The end of the file is written as the painter ends; only then is it known that all of it stands.
bool PdfJob::finish() {
  painter_.end();
  writer_.reset();
  if (!file_.finish()) return refused();
  return false;
}

std::optional<std::string> writePdf(const Report& report, const std::string& path, const Progress& progress) {
  PdfJob job(report, path);
  while (job.step())
    if (progress && !progress(job.written(), job.total())) return "";
  return job.problem();
}

}  // namespace velmo::printing
