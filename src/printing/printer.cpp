#include "printing/printer.h"

#include <QPrinter>

#include "printing/painter.h"

namespace velmo::printing {

PrintJob::PrintJob(PageSource& pages, std::unique_ptr<QPrinter> printer)
    : PageJob(pages, {printer->fromPage(), printer->toPage()}), printer_(std::move(printer)) {}

PrintJob::~PrintJob() {
  if (!painter_.isActive()) return;
  printer_->abort();
  painter_.end();
}

void PrintJob::setPaper(const Page& page) {
  const QSizeF size(page.width / 20.0, page.height / 20.0);
  printer_->setPageSize(QPageSize(size, QPageSize::Point, {}, QPageSize::FuzzyMatch));
}

bool PrintJob::begin(const Page& first) {
  printer_->setFullPage(true);
  printer_->setDocName(QString::fromStdString(pages_.report().title));
  setPaper(first);
  if (painter_.begin(printer_.get())) return true;
  return failed("The printer '" + printer_->printerName().toStdString() + "' did not start.");
}

bool PrintJob::write(const Page& page) {
  if (!isFirst()) {
    setPaper(page);
    if (!printer_->newPage()) return failed("The printer refused page " + std::to_string(page.number) + ".");
  }
  const double scale = printer_->logicalDpiX() / 1440.0;
  painter_.save();
  painter_.scale(scale, scale);
  paintPage(painter_, page, pages_.total());
  painter_.restore();
  return true;
}

void PrintJob::finish() {
  painter_.end();
}

}  // namespace velmo::printing
