#include "printing/page_source.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <random>

#include "printing/sample_report.h"
#include "store/values/error.h"
#include "support/small_disk.h"

namespace velmo::printing::test {
namespace {

// Rows that are made as they are asked for, and counted.
class CountedData : public ReportData {
 public:
  CountedData(int count, int& walked) : count_(count), walked_(walked) {}
  std::unique_ptr<ReportRows> rows() const override { return std::make_unique<Rows>(count_, walked_); }

 private:
  class Rows : public ReportRows {
   public:
    Rows(int count, int& walked) : count_(count), walked_(walked) {}
    bool next() override {
      if (row_ == count_) return false;
      ++row_;
      ++walked_;
      return true;
    }
    store::Value value(std::string_view) const override { return "Row " + std::to_string(row_) + " of a long list"; }
    std::unique_ptr<ReportRows> children(std::string_view) const override { return nullptr; }

   private:
    int count_;
    int& walked_;
    int row_ = 0;
  };

  int count_;
  int& walked_;
};

// Of everything that a page can hold.
Report colourful(int count) {
  ReportDesign design = smallSheet();
  design.detail = showing("name");
  design.detail->elements.push_back({.at = {0, 0, mm(80), mm(6)}, .content = Box{.fill = ink::Band}});
  design.detail->elements.push_back({.at = {0, mm(7), mm(80), 0}, .content = Line{}});
  design.detail->elements.push_back({.name = "logo", .at = {mm(60), 0, mm(10), mm(5)}, .content = Picture{}});
  design.pageFooter = labelled("Page %p of %P  ہتھوڑا");
  Report report = reportOf(design, {});
  QImage logo(8, 4, QImage::Format_RGB32);
  logo.fill(0xff336699);
  report.pictures["logo"] = logo;
  std::vector<DataRow> data;
  std::mt19937 random;
  for (int number = 0; number < count; ++number) {
    std::string noise;  // does not pack away
    for (int letter = 0; letter < 40; ++letter) noise += static_cast<char>('0' + random() % 64);
    data.push_back(row(noise));
  }
  report.data = std::make_shared<VectorData>(std::move(data));
  return report;
}

void expectAllPages(PageSource& pages, const std::vector<Page>& wanted) {
  ASSERT_EQ(pages.total(), static_cast<int>(wanted.size()));
  for (int step = 0; step < pages.total(); ++step) {
    const int index = static_cast<int>(step * 7919LL % pages.total());
    const Page& page = wanted[static_cast<std::size_t>(index)];
    ASSERT_TRUE(*pages.page(index) == page) << index;
    ASSERT_EQ(pages.words(index), page.drawing.pool);
    ASSERT_EQ(pages.sizeOf(index).height, page.height);
  }
}

void makeAll(PageSource& pages) {
  while (!pages.complete()) pages.makeFor(1000);
}

TEST(PageSource, GivesThePagesThatWereMadeInAnyOrder) {
  const Report report = colourful(5);
  const std::vector<Page> wanted = pagesOf(report);
  PageSource pages(report);
  EXPECT_TRUE(*pages.page(0) == wanted[0]);
  EXPECT_EQ(pages.page(9), nullptr);
  expectAllPages(pages, wanted);
}

TEST(PageSource, KeepsManyPagesOnTheDiskAndInMemoryWhatItDoesNotTake) {
  const Report report = colourful(30'000);
  const std::vector<Page> wanted = pagesOf(report);
  PageSource pages(report);
  makeAll(pages);
  expectAllPages(pages, wanted);
  for (const rlim_t room : {0, 1'500'000}) {
    PageSource crowded(report);
    const velmo::test::SmallDisk disk(room);
    makeAll(crowded);
    expectAllPages(crowded, wanted);
  }
}

TEST(PageSource, MemoryDoesNotGrowWithThePages) {
  int walked = 0;
  ReportDesign design = smallSheet();
  design.detail = showing("name");
  Report report = reportOf(design, {});
  const auto data = std::make_shared<CountedData>(200'000, walked);
  const std::weak_ptr<const ReportData> held = data;
  report.data = data;
  const auto inUse = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
  PageSource pages(std::move(report));
  pages.page(10);
  const std::size_t before = inUse();
  makeAll(pages);
  EXPECT_EQ(pages.total(), 20'000);
  for (const int index : {19'999, 3, 12'345})
    EXPECT_EQ(textsOf(*pages.page(index)).substr(0, 11).find("Row " + std::to_string(index * 10 + 1)), 0U);
  EXPECT_LT(inUse() - before, 4U << 20);
  EXPECT_EQ(walked, 200'000) << "nothing is read twice";
  EXPECT_EQ(held.use_count(), 1) << "of the data, which nobody needs any more";
}

TEST(PageSource, FailsAgainWhereTheDataFailed) {
  ReportDesign design = smallSheet();
  design.detail = showing("name");
  std::vector<DataRow> data = rows(15);
  data[12].fields.clear();
  PageSource pages(reportOf(design, data));
  for (int attempt = 0; attempt < 2; ++attempt) EXPECT_THROW(makeAll(pages), store::StoreError);
  EXPECT_EQ(pages.made(), 1);
  EXPECT_FALSE(pages.complete());
}

}  // namespace
}  // namespace velmo::printing::test
