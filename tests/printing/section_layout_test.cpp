#include "printing/section_layout.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include "printing/pieces.h"
#include "printing/sample_report.h"

namespace velmo::printing::test {
namespace {

Page onePage(const Section& detail, std::set<std::string, std::less<>> hidden = {}) {
  ReportDesign design;
  design.detail = detail;
  Report report = reportOf(design, {row("only")});
  report.hidden = std::move(hidden);
  return pagesOf(report).at(0);
}

// The distance of a text's top from the section's.
Twips topOf(const Page& page, const char* text) {
  for (const TextRun& run : page.drawing.texts)
    if (page.drawing.textOf(run) == QLatin1String(text)) return run.at.top - Margins{}.top;
  ADD_FAILURE() << "no text " << text;
  return -1;
}

TEST(SectionLayout, LongTextWrapsAndNothingOverlaps) {
  const std::string cases[] = {std::string(250, 'W'), "ہتھوڑا لکڑی کے دستے والا مضبوط ہتھوڑا لکڑی کے دستے والا",
                               "مطرقة حديد مع مقبض خشبي طويل جدا للنجارين", "two\r\nlines", "ÄÖÜ ßéñ Žluťoučký kůň"};
  for (const std::string& words : cases) {
    ReportDesign design;
    const auto columns = placeColumns({{.heading = "Name", .dataField = "name", .width = mm(30)},
                                       {.heading = "Again", .dataField = "name"},
                                       {.heading = "Amount",
                                        .dataField = "amount",
                                        .width = AmountColumn,
                                        .align = Align::Right,
                                        .format = "#,##0.00;(#,##0.00)"}},
                                      design.bodyWidth());
    design.detail = tableLine(columns, design.bodyWidth());
    const Page page = pagesOf(reportOf(design, {row(words, 1), row(words, 2), row("end", 3)})).at(0);
    expectNothingOverlaps(page, design);
    QString whole;
    for (const TextRun& run : page.drawing.texts)
      if (run.boxLeft < mm(40)) whole += page.drawing.textOf(run);
    QString expected = QString::fromStdString(words + words + "end");
    const auto isBlank = [](QString text) { return text.remove(QRegularExpression(QStringLiteral("\\s"))); };
    EXPECT_EQ(isBlank(whole), isBlank(expected)) << words;
  }
}

TEST(SectionLayout, WidestAmountsStayOnOneLine) {
  ReportDesign design;
  const auto columns = placeColumns({{.heading = "Name", .dataField = "name"},
                                     {.heading = "Amount",
                                      .dataField = "amount",
                                      .width = AmountColumn,
                                      .align = Align::Right,
                                      .format = "#,##0.00;(#,##0.00)",
                                      .totalName = "Sum"}},
                                    design.bodyWidth());
  design.detail = tableLine(columns, design.bodyWidth());
  design.reportFooter = Section{.name = "sums"};
  addTotalsRow(*design.reportFooter, columns, design.bodyWidth(), "Tlbl");
  const Page page = pagesOf(reportOf(design, {row("a", -9999999999.99)})).at(0);
  EXPECT_EQ(textsOf(page), "a (9,999,999,999.99) (9,999,999,999.99)");
  ASSERT_EQ(page.drawing.texts.size(), 3U);
  EXPECT_EQ(page.drawing.texts[1].at.right(), page.drawing.texts[1].boxLeft + page.drawing.texts[1].boxWidth);
}

TEST(SectionLayout, GrowthPushesOnlyItsOwnColumnAndFoldingClosesTheGap) {
  const Element grows{.at = {0, 0, mm(10), mm(5)}, .content = Label{"aaaa bbbb cccc dddd eeee"}};
  const Element below{.at = {0, mm(6), mm(30), mm(5)}, .content = Label{"below"}};
  const Element beside{.at = {mm(50), mm(6), mm(30), mm(5)}, .content = Label{"beside"}};
  const Page grown = onePage({.height = mm(12), .elements = {grows, below, beside}});
  EXPECT_GT(topOf(grown, "below"), mm(10));
  EXPECT_EQ(topOf(grown, "beside"), mm(6));

  const auto amount = [](const char* name, Twips top, WhenEmpty empty) {
    return Element{.name = name, .at = {0, top, mm(30), 280}, .content = Label{name}, .whenEmpty = empty};
  };
  const Section rows{.height = 840,
                     .elements = {amount("first", 0, WhenEmpty::Fold), amount("second", 280, WhenEmpty::Fold),
                                  amount("third", 560, WhenEmpty::KeepPlace)}};
  EXPECT_EQ(topOf(onePage(rows), "third"), 560);
  EXPECT_EQ(topOf(onePage(rows, {"second"}), "third"), 280);
  EXPECT_EQ(topOf(onePage(rows, {"first", "second"}), "third"), 0);
}

TEST(SectionLayout, BoxesStretchWithTheirTextAndKeepRowsLevel) {
  const Section section{
      .height = mm(20),
      .elements = {{.at = {0, 0, mm(60), mm(6)}, .content = Box{.fill = ink::Band}, .stretch = Stretch::WithContents},
                   {.at = {mm(1), mm(1), mm(12), mm(4)}, .content = Label{"aaaa bbbb cccc dddd"}},
                   {.at = {mm(20), mm(1), mm(30), mm(4)}, .content = Label{"level"}},
                   {.at = {0, mm(7), mm(60), mm(4)}, .content = Label{"after"}},
                   {.at = {0, 0, 0, mm(20)}, .content = Line{}, .stretch = Stretch::WithSection}}};
  const Page page = onePage(section);
  ASSERT_EQ(page.drawing.areas.size(), 1U);
  const Frame box = page.drawing.areas[0].at;
  EXPECT_GT(box.height, mm(6));
  EXPECT_EQ(topOf(page, "level"), mm(1));
  EXPECT_GE(topOf(page, "after") + Margins{}.top, box.bottom());
  EXPECT_GE(page.drawing.strokes.at(0).at.height, mm(20));
}

TEST(SectionLayout, ConditionsHideElements) {
  Section section{
      .height = mm(10),
      .elements = {{.at = {0, 0, mm(30), mm(5)},
                    .content = Label{"shown"},
                    .visibleWhen = [](const RowScope& scope) { return store::textOf(scope.value("name")) == "only"; }},
                   {.at = {mm(40), 0, mm(30), mm(5)},
                    .content = Label{"not shown"},
                    .visibleWhen = [](const RowScope& scope) { return store::textOf(scope.value("name")).empty(); }}}};
  EXPECT_EQ(textsOf(onePage(section)), "shown");
}

}  // namespace
}  // namespace velmo::printing::test
