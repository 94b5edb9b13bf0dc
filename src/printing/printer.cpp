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
  last_ = printer_->toPage() > 0 ? std::min(printer_->toPage(), pages_.total()) : pages_.total();
  next_ = std::max(printer_->fromPage(), 1);
  if (next_ > last_) return failed("The report has no page " + std::to_string(next_) + ".");
  total_ = last_ - next_ + 1;
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
  if (++next_ <= last_) return true;
  painter_.end();
  return false;
}

}  // namespace velmo::printing
