#include "printing/printer.h"

#include <QPrinter>

#include "printing/painter.h"

namespace velmo::printing {

namespace {

constexpr int CountingSlice = 20;  // milliseconds of page making in one step

}  // namespace

PrintJob::PrintJob(PageSource& pages, std::unique_ptr<QPrinter> printer)
    : pages_(pages), printer_(std::move(printer)) {}

PrintJob::~PrintJob() {
  if (!painter_.isActive()) return;
  printer_->abort();
  painter_.end();
}

void PrintJob::setPaper(const Page& page) {
  const QSizeF size(page.width / 20.0, page.height / 20.0);
  printer_->setPageSize(QPageSize(size, QPageSize::Point, {}, QPageSize::FuzzyMatch));
}

bool PrintJob::begin() {
  if (!take({printer_->fromPage(), printer_->toPage()}, pages_.total())) return false;
  next_ = first_;
  printer_->setFullPage(true);
  printer_->setDocName(QString::fromStdString(pages_.report().title));
  setPaper(*pages_.page(next_ - 1));
  if (!painter_.begin(printer_.get()))
    return failed("The printer '" + printer_->printerName().toStdString() + "' did not start.");
  return true;
}

bool PrintJob::step() {
  if (problem()) return false;
  if (!pages_.complete()) {
    pages_.makeFor(CountingSlice);
    return true;
  }
  if (next_ == 0 && !begin()) return false;
  const Page& page = *pages_.page(next_ - 1);
  if (written_ > 0) {
    setPaper(page);
    if (!printer_->newPage()) return failed("The printer refused page " + std::to_string(next_) + ".");
  }
  const double scale = printer_->logicalDpiX() / 1440.0;
  painter_.save();
  painter_.scale(scale, scale);
  paintPage(painter_, page, pages_.total());
  painter_.restore();
  ++written_;
  ++next_;
  if (written_ < total_) return true;
  painter_.end();
  return false;
}

}  // namespace velmo::printing
