#pragma once

#include <QPainter>

#include "printing/sample_report.h"

namespace velmo::printing::test {

// With VELMO_PICTURES set to a folder, the first and the last page are left there as pictures.
inline void leavePictures(const std::string& name, const std::vector<Page>& pages) {
  const QByteArray folder = qgetenv("VELMO_PICTURES");
  if (folder.isEmpty()) return;
  for (const Page* page : {&pages.front(), &pages.back()}) {
    constexpr double Scale = 130.0 / 1440.0;
    QImage image(int(page->width * Scale), std::min(int(page->height * Scale), 20000), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(Scale, Scale);
    paintPage(painter, *page, int(pages.size()));
    painter.end();
    image.save(QString::fromLocal8Bit(folder) +
               QStringLiteral("/%1-p%2.png").arg(QString::fromStdString(name)).arg(page->number));
  }
}

// The pages of a print-out, on which nothing overlaps, left as pictures.
inline std::vector<Page> cleanPages(const Report& report, const std::string& picture) {
  std::vector<Page> pages = pagesOf(report);
  for (const Page& page : pages) expectNothingOverlaps(page, report.design);
  leavePictures(picture, pages);
  return pages;
}

}  // namespace velmo::printing::test
