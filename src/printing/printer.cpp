#include "printing/printer.h"

#include <QPainter>
#include <QPrinter>

#include "printing/painter.h"

namespace velmo::printing {

std::optional<std::string> printPages(PageSource& pages, QPrinter& printer) {
  pages.makeAll();
  const int last = printer.toPage() > 0 ? std::min(printer.toPage(), pages.total()) : pages.total();
  const int first = std::max(printer.fromPage(), 1);
  if (first > last) return "The report has no page " + std::to_string(first) + ".";
  const auto setPaper = [&](const Page& page) {
    const QSizeF size(page.width / 20.0, page.height / 20.0);
    printer.setPageSize(QPageSize(size, QPageSize::Point, {}, QPageSize::FuzzyMatch));
  };
  printer.setFullPage(true);
  printer.setDocName(QString::fromStdString(pages.report().title));
  setPaper(*pages.page(first - 1));
  QPainter painter;
  if (!painter.begin(&printer)) return "The printer '" + printer.printerName().toStdString() + "' did not start.";
  const double scale = printer.logicalDpiX() / 1440.0;
  for (int number = first; number <= last; ++number) {
    const Page& page = *pages.page(number - 1);
    if (number > first) {
      setPaper(page);
      if (!printer.newPage()) return "The printer refused page " + std::to_string(number) + ".";
    }
    painter.save();
    painter.scale(scale, scale);
    paintPage(painter, page, pages.total());
    painter.restore();
  }
  return std::nullopt;
}

}  // namespace velmo::printing
