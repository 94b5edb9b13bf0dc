#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "printing/page_pictures.h"

// How the tests of print-outs read their pages.
namespace velmo::documents::test {

// What stands in a frame of the design, its lines joined, without blanks.
inline std::string solid(std::string text) {
  std::erase_if(text, [](char letter) { return letter == ' ' || letter == '\n'; });
  return text;
}

inline std::string wholeText(const std::vector<printing::Page>& pages) {
  QString all;
  for (const printing::Page& page : pages)
    for (const printing::TextRun& run : page.drawing.texts)
      all += drawnText(page.drawing, run, int(pages.size())) + u'\n';
  return all.toStdString();
}

inline bool crosses(const printing::Frame& one, const printing::Frame& other) {
  return one.left < other.right() && other.left < one.right() && one.top < other.bottom() && other.top < one.bottom();
}

// No text over another, over a rule or over the logo, and nothing beyond the margins.
inline void expectClean(const std::vector<printing::Page>& pages, const printing::ReportDesign& design) {
  for (const printing::Page& page : pages) {
    printing::test::expectNothingOverlaps(page, design);
    const printing::Frame paper{0, 0, page.width, page.height};
    for (const printing::TextRun& run : page.drawing.texts) {
      for (const printing::Stroke& stroke : page.drawing.strokes)
        EXPECT_FALSE(crosses(run.at, {stroke.at.left, stroke.at.top, stroke.at.width, stroke.thickness}))
            << "a rule through " << page.drawing.textOf(run).toStdString();
      for (const printing::PlacedPicture& picture : page.drawing.pictures)
        EXPECT_FALSE(crosses(run.at, picture.at)) << "logo over " << page.drawing.textOf(run).toStdString();
      EXPECT_GE(run.at.top, design.margins.top);
    }
    for (const printing::PlacedPicture& picture : page.drawing.pictures) {
      EXPECT_GT(std::min(picture.at.width, picture.at.height), 0);
      EXPECT_TRUE(picture.at.left >= 0 && picture.at.right() <= paper.right());
    }
    for (const printing::Area& area : page.drawing.areas) EXPECT_LE(area.at.bottom(), page.height);
  }
}

// The pages of a print-out, clean and left as pictures.
inline std::vector<printing::Page> cleanPages(const printing::Report& report, const std::string& picture) {
  std::vector<printing::Page> pages = printing::test::pagesOf(report);
  expectClean(pages, report.design);
  printing::test::leavePictures(picture, pages);
  return pages;
}

// A folder of its own to be in, as the logo is looked for in the current one.
class InFolder {
 public:
  InFolder() { QDir::setCurrent(folder_.path()); }
  ~InFolder() { QDir::setCurrent(before_); }

 private:
  QTemporaryDir folder_;
  QString before_ = QDir::currentPath();
};

}  // namespace velmo::documents::test
