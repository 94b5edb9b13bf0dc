#include "spreadsheet/sheet_writer.h"

#include <malloc.h>

#include "spreadsheet/sheet_files.h"
#include "support/small_disk.h"

namespace velmo::spreadsheet {
namespace {

using text::DateTime;
using Rows = std::vector<std::vector<store::Value>>;

class SheetWriter : public test::SheetFiles {
 protected:
  static RowSource from(const Rows& rows) {
    return [&rows, at = std::size_t{0}](std::span<store::Value> cells) mutable {
      if (at == rows.size()) return false;
      std::ranges::copy(rows[at++], cells.begin());
      return true;
    };
  }
  // Endless enough for every test: numbers and words that do not compress away.
  static RowSource many(std::int64_t count) {
    return [count, at = std::int64_t{0}](std::span<store::Value> cells) mutable {
      if (at == count) return false;
      const std::uint64_t noise = static_cast<std::uint64_t>(++at) * 0x9E3779B97F4A7C15U;
      cells[0] = "Item " + std::to_string(noise);
      cells[1] = static_cast<double>(noise >> 40) / 100;
      return true;
    };
  }
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) found.push_back(entry.path().filename());
    return found;
  }
  SheetDesign two{.title = "Items", .columns = {{.caption = "Item"}, {.caption = "Price", .format = "0.00;(0.00)"}}};
};

TEST_F(SheetWriter, WritesEveryValueAsWhatItIs) {
  struct Case {
    store::Value value;
    Cell read;
  };
  const std::vector<Case> cases = {
      {"007", "007"},
      {"=1+1", "=1+1"},
      {"1E5", "1E5"},
      {" both ends ", " both ends "},
      {"O'Neil <steel> & \"co\"", "O'Neil <steel> & \"co\""},
      {"Größe 漢字 😀", "Größe 漢字 😀"},
      {"one\r\ntwo\rthree\tend", "one\ntwo\nthree\tend"},
      {"bell\x07 and \x1B[0m", "bell and [0m"},
      {"_x0041_ stays, so does _x41_", "_x0041_ stays, so does _x41_"},
      {"not UTF-8: \xE4\xFF", "not UTF-8: \uFFFD\uFFFD"},
      {"", Cell()},
      {store::Value(), Cell()},
      {std::int64_t{12001001}, 12001001.0},
      {0.1 + 0.2, 0.3},
      {-1234.565, -1234.565},
      {std::numeric_limits<double>::infinity(), Cell()},
      {true, "Yes"},
      {false, "No"},
      {DateTime::fromCalendar(2026, 11, 22), DateTime::fromCalendar(2026, 11, 22)},
      {DateTime::fromCalendar(2026, 11, 22, 14, 7, 9), DateTime::fromCalendar(2026, 11, 22, 14, 7, 9)},
      {DateTime::fromCalendar(1900, 3, 1), DateTime::fromCalendar(1900, 3, 1)},
      {DateTime::fromCalendar(1850, 1, 2), "1850-01-02"},
  };
  Rows rows;
  for (const Case& each : cases) rows.push_back({each.value});
  for (const char* format : {"", "#,##0.00; (#,##0.00)", "dd-mm-yyyy"}) {
    const SheetDesign design{.title = "A/B: [1] 'x'", .columns = {{.caption = "Value <&>", .format = format}}};
    ASSERT_EQ(saveSheet(folder / "values.xlsx", design, from(rows)).value(), static_cast<std::int64_t>(rows.size()));
    const auto sheet = readSheet(folder / "values.xlsx");
    ASSERT_TRUE(sheet) << sheet.error();
    EXPECT_EQ(sheet->name, "A B 1 'x");
    EXPECT_EQ(sheet->at(0, 0), Cell("Value <&>"));
    for (std::size_t i = 0; i < cases.size(); ++i)
      EXPECT_EQ(sheet->at(i + 1, 0), cases[i].read) << format << ", " << store::textOf(cases[i].value);
  }
}

TEST_F(SheetWriter, CutsWhatNoCellHoldsBetweenCharacters) {
  const std::string faces = [] {
    std::string text = "a";
    for (int i = 0; i < 20000; ++i) text += "😀";
    return text;
  }();
  const Rows rows = {{std::string(32767, 'x')}, {std::string(32768, 'x')}, {faces}};
  ASSERT_TRUE(saveSheet(folder / "long.xlsx", {.title = "", .columns = {{.caption = "Text"}}}, from(rows)));
  const auto sheet = readSheet(folder / "long.xlsx");
  ASSERT_TRUE(sheet);
  EXPECT_EQ(sheet->name, "Sheet1");
  EXPECT_EQ(textOf(sheet->at(1, 0)), std::string(32767, 'x'));
  EXPECT_EQ(textOf(sheet->at(2, 0)), std::string(32766, 'x') + "…");
  EXPECT_EQ(textOf(sheet->at(3, 0)), faces.substr(0, 1 + 4 * 16382) + "…");
}

TEST_F(SheetWriter, ReplacesAnOlderFileOnlyWhenComplete) {
  const std::filesystem::path file = written("list.xlsx", "older");
  const auto refused = [&](const RowSource& rows, const Progress& progress = {}) {
    const auto saved = saveSheet(file, two, rows, progress);
    EXPECT_EQ(bytesOf(file), "older");
    EXPECT_EQ(names(), std::vector<std::string>{"list.xlsx"});
    return saved ? "saved" : saved.error();
  };
  for (const std::int64_t stop : {2000, 5001, 7500, 10'000})  // among the rows, and as they are packed
    EXPECT_EQ(refused(many(5000), [stop](std::int64_t steps) { return steps < stop; }), "") << stop;
  EXPECT_THROW(refused([](std::span<store::Value>) -> bool { throw std::runtime_error("source"); }),
               std::runtime_error);
  EXPECT_EQ(bytesOf(file), "older");
  EXPECT_EQ(names(), std::vector<std::string>{"list.xlsx"});

  EXPECT_EQ(saveSheet(file, two, many(3)).value(), 3);
  EXPECT_EQ(names(), std::vector<std::string>{"list.xlsx"});
  EXPECT_EQ(readSheet(file)->rows.size(), 4U);
}

TEST_F(SheetWriter, LeavesNothingHalfOnAFullDisk) {
  const std::filesystem::path file = written("list.xlsx", "older");
  // The rows do not fit; nor does what stands around them; nothing fits.
  for (const rlim_t room : {100'000U, 20'000U, 2'000U, 0U}) {
    tl::expected<std::int64_t, std::string> saved;
    std::int64_t taken = 0;
    {
      const velmo::test::SmallDisk disk(room);
      saved = saveSheet(file, two, [&taken, rows = many(5000)](std::span<store::Value> cells) {
        ++taken;
        return rows(cells);
      });
    }
    ASSERT_FALSE(saved) << room;
    EXPECT_THAT(saved.error(), testing::HasSubstr("disk is full")) << room;
    EXPECT_LT(taken, 3000) << "went on with " << room;
    EXPECT_EQ(bytesOf(file), "older");
    EXPECT_EQ(names(), std::vector<std::string>{"list.xlsx"});
  }
}

TEST_F(SheetWriter, NoticesADiskThatFillsUpAnywhere) {
  ASSERT_TRUE(saveSheet(folder / "whole.xlsx", two, many(700)));
  const std::string whole = shown(*readSheet(folder / "whole.xlsx"));
  int failed = 0;
  for (rlim_t room = 500; room < 90'000; room += 977) {
    tl::expected<std::int64_t, std::string> saved;
    {
      const velmo::test::SmallDisk disk(room);
      saved = saveSheet(folder / "list.xlsx", two, many(700));
    }
    if (saved)
      EXPECT_EQ(read(folder / "list.xlsx"), whole) << room;
    else
      ++failed;
  }
  EXPECT_GT(failed, 10);
}

TEST_F(SheetWriter, SaysWhyAPlaceCannotBeWrittenTo) {
  written("file", "x");
  std::filesystem::create_directory(folder / "sub.xlsx");
  const std::string in = folder.string();
  const std::vector<std::pair<std::filesystem::path, std::string>> cases = {
      {folder / "none" / "a.xlsx", "There is no folder \"" + in + "/none\"."},
      {folder / "file" / "a.xlsx", "There is no folder \"" + in + "/file\"."},
      {folder / "sub.xlsx", "\"" + in + "/sub.xlsx\" is a folder. Give another name."},
      {folder / std::string(300, 'n'), "The name of the file is too long."},
      {"/proc/a.xlsx", "Nothing can be written in the folder \"/proc\": No such file or directory."},
  };
  for (const auto& [place, sentence] : cases) {
    const auto saved = saveSheet(place, two, many(1));
    EXPECT_EQ(saved ? "saved" : saved.error(), sentence);
  }
  EXPECT_FALSE(saveSheet(folder / "a.xlsx", {.title = "No columns"}, many(1)));
}

TEST_F(SheetWriter, TakesTwoHundredThousandRowsWithoutGrowing) {
  ASSERT_TRUE(saveSheet(folder / "few.xlsx", two, many(1000)));
  const std::size_t before = mallinfo2().uordblks;
  std::size_t most = 0;
  const auto saved = saveSheet(folder / "many.xlsx", two, many(200'000), [&](std::int64_t) {
    most = std::max(most, mallinfo2().uordblks);
    return true;
  });
  EXPECT_EQ(saved.value(), 200'000);
  EXPECT_LT(most, before + 2'000'000);
}

}  // namespace
}  // namespace velmo::spreadsheet
