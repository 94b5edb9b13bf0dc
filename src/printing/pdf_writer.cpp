#include "printing/pdf_writer.h"

#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "printing/paginator.h"
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

std::optional<std::string> writePdf(const Report& report, const std::string& path, const Progress& progress) {
  QSaveFile file(QString::fromStdString(path));
  const auto problem = [&] {
    return "The file '" + path + "' could not be written: " + file.errorString().toStdString() + ".";
  };
  if (!file.open(QIODevice::WriteOnly)) return problem();

  const int total = countPages(report);
  {
    Paginator paginator(report);
    std::optional<Page> page = paginator.next();
    QPdfWriter writer(&file);
    writer.setResolution(TwipsPerInch);
    writer.setTitle(QString::fromStdString(report.title));
    writer.setCreator(QString::fromStdString(report.author));
    writer.setPageLayout(layoutOf(*page));
    QPainter painter;
    if (!painter.begin(&writer)) return problem();
    for (int written = 0; page; page = paginator.next()) {
      if (written > 0) {
        writer.setPageLayout(layoutOf(*page));
        writer.newPage();
      }
      paintPage(painter, *page, total);
      ++written;
      if (progress && !progress(written, total)) return "";
    }
    painter.end();
  }
  if (file.error() != QFileDevice::NoError || !file.commit()) return problem();
  return std::nullopt;
}

}  // namespace velmo::printing
