#pragma once

#include <QStringList>
#include <string>
#include <vector>

#include "printing/paginator.h"
#include "printing/painter.h"
#include "printing/vector_data.h"

namespace velmo::printing::test {

// Sections 10 mm high on a sheet with room for ten of them between the margins.
inline constexpr Twips RowHeight = mm(10);

inline Section labelled(const std::string& caption) {
  return {.name = caption, .height = RowHeight, .elements = {{.at = {0, 0, mm(80), mm(5)}, .content = Label{caption}}}};
}

inline Section showing(const std::string& field) {
  return {
      .name = field, .height = RowHeight, .elements = {{.at = {0, 0, mm(80), mm(5)}, .content = Field{field, "", ""}}}};
}

inline ReportDesign smallSheet() {
  ReportDesign design;
  design.paper = {mm(100), 10 * RowHeight + 2 * mm(10)};
  design.margins = {mm(10), mm(10), mm(10), mm(10)};
  return design;
}

inline DataRow row(const std::string& name, double amount = 0) {
  return {.fields = {{"name", name}, {"amount", amount}}, .chapters = {}};
}

inline DataRow parent(const std::string& name, std::vector<DataRow> children) {
  return {.fields = {{"name", name}}, .chapters = {{"lines", std::move(children)}}};
}

inline std::vector<DataRow> rows(int count) {
  std::vector<DataRow> made;
  for (int number = 1; number <= count; ++number) made.push_back(row("r" + std::to_string(number), number));
  return made;
}

inline Report reportOf(ReportDesign design, std::vector<DataRow> data) {
  return {.title = "Sample",
          .design = std::move(design),
          .data = std::make_shared<VectorData>(std::move(data)),
          .printedOn = text::DateTime::fromCalendar(2026, 11, 22)};
}

inline std::vector<Page> pagesOf(const Report& report) {
  std::vector<Page> pages;
  Paginator paginator(report);
  while (auto page = paginator.next()) pages.push_back(std::move(*page));
  return pages;
}

// The texts of a page from top to bottom, joined by blanks.
inline std::string textsOf(const Page& page, int total = 0) {
  std::vector<TextRun> runs = page.drawing.texts;
  std::stable_sort(runs.begin(), runs.end(),
                   [](const TextRun& one, const TextRun& other) { return one.at.top < other.at.top; });
  QStringList texts;
  for (const TextRun& run : runs) texts += drawnText(page.drawing, run, total);
  return texts.join(u' ').toStdString();
}

inline std::vector<std::string> textsOf(const Report& report) {
  const std::vector<Page> pages = pagesOf(report);
  std::vector<std::string> texts;
  for (const Page& page : pages) texts.push_back(textsOf(page, static_cast<int>(pages.size())));
  return texts;
}

// No two lines of text overlap, and none leaves the paper within the margins.
inline void expectNothingOverlaps(const Page& page, const ReportDesign& design) {
  const auto& runs = page.drawing.texts;
  for (std::size_t one = 0; one < runs.size(); ++one) {
    const Frame& at = runs[one].at;
    EXPECT_GE(at.left, design.margins.left) << page.drawing.textOf(runs[one]).toStdString();
    EXPECT_LE(at.right(), page.width - design.margins.right) << page.drawing.textOf(runs[one]).toStdString();
    EXPECT_LE(at.bottom(), page.height - design.margins.bottom) << page.drawing.textOf(runs[one]).toStdString();
    for (std::size_t other = one + 1; other < runs.size(); ++other) {
      const Frame& beside = runs[other].at;
      const bool apart = at.right() <= beside.left || beside.right() <= at.left || at.bottom() <= beside.top ||
                         beside.bottom() <= at.top;
      EXPECT_TRUE(apart) << page.drawing.textOf(runs[one]).toStdString() << " over "
                         << page.drawing.textOf(runs[other]).toStdString();
    }
  }
}

}  // namespace velmo::printing::test
