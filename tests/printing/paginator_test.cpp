#include "printing/paginator.h"

#include <gtest/gtest.h>

#include "printing/sample_report.h"
#include "store/values/error.h"

namespace velmo::printing::test {
namespace {

using Texts = std::vector<std::string>;

ReportDesign grouped() {
  ReportDesign design = smallSheet();
  design.groups = {{.dataMember = "parents", .header = showing("name"), .footer = labelled("foot")}};
  design.detailMember = "lines";
  design.detail = showing("name");
  return design;
}

TEST(Paginator, SectionsComeInTheirOrder) {
  ReportDesign design = grouped();
  design.reportHeader = labelled("RH");
  design.pageHeader = labelled("PH");
  design.pageFooter = labelled("PF");
  design.reportFooter = labelled("RF");
  EXPECT_EQ(textsOf(reportOf(design, {parent("A", {row("a1")}), parent("B", {})})),
            Texts{"RH PH A a1 foot B foot RF PF"});
  EXPECT_EQ(textsOf(reportOf(design, {})), Texts{"RH PH RF PF"});
}

TEST(Paginator, FillsPagesAndLeavesNoneEmpty) {
  ReportDesign design = smallSheet();
  design.detail = labelled("x");
  const struct {
    int rows;
    std::size_t pages;
  } cases[] = {{0, 1}, {1, 1}, {10, 1}, {11, 2}, {20, 2}, {500, 50}, {501, 51}};
  for (const auto& [count, pages] : cases) {
    const Report report = reportOf(design, rows(count));
    EXPECT_EQ(pagesOf(report).size(), pages) << count;
  }
}

TEST(Paginator, ForcedBreaks) {
  const struct {
    PageBreak kind;
    Texts pages;
  } cases[] = {{PageBreak::None, {"A foot B foot RF"}},
               {PageBreak::Before, {"A", "foot B", "foot RF"}},
               {PageBreak::After, {"A foot", "B foot", "RF"}},
               {PageBreak::Both, {"A", "foot", "B", "foot", "RF"}}};
  for (const auto& [kind, pages] : cases) {
    ReportDesign design = grouped();
    design.groups[0].footer->forcePageBreak = kind;
    design.reportFooter = labelled("RF");
    EXPECT_EQ(textsOf(reportOf(design, {parent("A", {}), parent("B", {})})), pages);
  }
  ReportDesign design = grouped();
  design.groups[0].header->forcePageBreak = PageBreak::Before;
  EXPECT_EQ(textsOf(reportOf(design, {parent("A", {}), parent("B", {})})), (Texts{"A foot", "B foot"}));
}

TEST(Paginator, HeaderOfARunningGroupRepeats) {
  ReportDesign design = grouped();
  design.groups[0].header->repeat = Repeat::EveryPage;
  const Texts pages = textsOf(reportOf(design, {parent("A", rows(10)), parent("B", {row("b1")})}));
  EXPECT_EQ(pages, (Texts{"A r1 r2 r3 r4 r5 r6 r7 r8 r9", "A r10 foot B b1 foot"}));
  for (const auto& [repeat, overleaf] :
       {std::pair{Repeat::EveryPage, "A foot B b1 foot"}, std::pair{Repeat::AboveRows, "foot B b1 foot"}}) {
    design.groups[0].header->repeat = repeat;
    EXPECT_EQ(textsOf(reportOf(design, {parent("A", rows(9)), parent("B", {row("b1")})})),
              (Texts{"A r1 r2 r3 r4 r5 r6 r7 r8 r9", overleaf}));
  }
  EXPECT_EQ(textsOf(reportOf(design, {parent("A", rows(10))})), (Texts{"A r1 r2 r3 r4 r5 r6 r7 r8 r9", "A r10 foot"}));
}

TEST(Paginator, KeepsSectionsTogetherOrDividesThem) {
  ReportDesign design = smallSheet();
  design.detail = Section{.name = "tall", .height = 4 * RowHeight};
  for (int line = 1; line <= 4; ++line)
    design.detail->elements.push_back(
        {.at = {0, (line - 1) * RowHeight, mm(50), mm(5)}, .content = Label{std::to_string(line)}});
  EXPECT_EQ(textsOf(reportOf(design, rows(3))), (Texts{"1 2 3 4 1 2 3 4", "1 2 3 4"}));
  design.detail->keep = Keep::MayBreak;
  EXPECT_EQ(textsOf(reportOf(design, rows(3))), (Texts{"1 2 3 4 1 2 3 4 1 2", "3 4"}));
  design.detail->keep = Keep::Together;
  design.detail->height = 15 * RowHeight;
  design.detail->elements[3].at.top = 14 * RowHeight;
  EXPECT_EQ(textsOf(reportOf(design, rows(1))), (Texts{"1 2 3", "4"}));
}

TEST(Paginator, HeaderMovesWithWhatComesNext) {
  ReportDesign design = grouped();
  design.groups[0].header->keep = Keep::WithNext;
  design.groups[0].footer.reset();
  const struct {
    int before;  // rows of A
    std::vector<DataRow> after;
    Texts pages;
  } cases[] = {{8, {row("b1")}, {"A r1 r2 r3 r4 r5 r6 r7 r8", "B b1"}},
               {7, {row("b1"), row("b2")}, {"A r1 r2 r3 r4 r5 r6 r7 B b1", "b2"}},
               {8, {}, {"A r1 r2 r3 r4 r5 r6 r7 r8 B"}},
               {9, {}, {"A r1 r2 r3 r4 r5 r6 r7 r8 r9", "B"}}};
  for (const auto& [before, after, pages] : cases)
    EXPECT_EQ(textsOf(reportOf(design, {parent("A", rows(before)), parent("B", after)})), pages) << before;

  // Two levels of headers, again overleaf, over a line that takes three times the room.
  design.groups[0].dataMember = "outer";
  design.groups.push_back({.dataMember = "lines", .header = showing("name")});
  for (Group& group : design.groups) {
    group.header->keep = Keep::WithNext;
    group.header->repeat = Repeat::EveryPage;
  }
  design.detailMember = "lines";
  design.detail->height = 3 * RowHeight;
  const auto section = [](const std::string& name, int count) { return parent(name, rows(count)); };
  const std::vector<DataRow> data = {parent("A", {section("a", 1)}), parent("B", {section("b", 1), section("c", 0)}),
                                     parent("C", {}), parent("D", {section("d", 3)})};
  EXPECT_EQ(textsOf(reportOf(design, data)), (Texts{"A a r1 B b r1", "B c C D d r1", "D d r2 r3"}));
}

TEST(Paginator, PageMarks) {
  ReportDesign design = smallSheet();
  design.detail = labelled("x");
  design.pageFooter = labelled("Page  %p  of  %P, Date %d, 100%%, %i");
  const Texts pages = textsOf(reportOf(design, rows(10)));
  EXPECT_EQ(pages[0].substr(pages[0].find('P')), "Page  1  of  2, Date 22-11-2026, 100%, Sample");
  EXPECT_EQ(pages[1], "x Page  2  of  2, Date 22-11-2026, 100%, Sample");
  Report typed = reportOf(design, {});
  typed.design.pageFooter->elements[0].name = "party";
  typed.variables["party"] = "50%p off";
  EXPECT_EQ(textsOf(typed), Texts{"50%p off"});
}

TEST(Paginator, RollIsAsLongAsItsLines) {
  ReportDesign design = smallSheet();
  design.paper = {mm(80), 0};
  design.pageFooter = labelled("end");
  design.detail = labelled("x");
  for (const int count : {0, 3, 200}) {
    const std::vector<Page> pages = pagesOf(reportOf(design, rows(count)));
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(pages[0].height, (count + 1) * RowHeight + 2 * mm(10));
  }
}

TEST(Paginator, FunctionsCountTheirOwnRows) {
  const auto footer = [](int owner) {
    Section section{.name = "sums" + std::to_string(owner), .height = RowHeight};
    const Statistic kinds[] = {Statistic::Sum, Statistic::Avg,  Statistic::Min,
                               Statistic::Max, Statistic::RCnt, Statistic::VCnt};
    Twips left = 0;
    for (const Statistic kind : kinds) {
      const bool counts = kind == Statistic::RCnt || kind == Statistic::VCnt;
      section.elements.push_back(
          {.at = {left, 0, mm(13), mm(5)}, .content = Function{kind, "amount", counts ? "" : "0.00;(0.00)", ""}});
      left += mm(13);
    }
    return section;
  };
  ReportDesign design = grouped();
  design.groups[0].header.reset();
  design.detail = Section{.name = "silent"};
  design.groups[0].footer = footer(0);
  design.reportFooter = footer(-1);
  DataRow blank = row("b");
  blank.fields["amount"] = store::Null{};
  const Report report = reportOf(
      design, {parent("A", {row("a1", 10.10), row("a2", -4.05), blank}), parent("B", {}), parent("C", {row("c", 1)})});
  EXPECT_EQ(textsOf(report),
            Texts{"6.05 3.03 (4.05) 10.10 3 2 0.00 0 0 1.00 1.00 1.00 1.00 1 1 7.05 2.35 (4.05) 10.10 4 3"});
  design.detail = footer(0);
  EXPECT_THROW(pagesOf(reportOf(design, {})), std::logic_error);
}

TEST(Paginator, MistakesOfADesignAreTold) {
  ReportDesign design = smallSheet();
  design.detail = showing("no such field");
  EXPECT_THROW(pagesOf(reportOf(design, rows(1))), store::StoreError);
  design.pageHeader = labelled("too high");
  design.pageHeader->height = 10 * RowHeight;
  EXPECT_THROW(pagesOf(reportOf(design, rows(1))), std::logic_error);
}

}  // namespace
}  // namespace velmo::printing::test
