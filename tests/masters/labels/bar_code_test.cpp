#include "masters/labels/bar_code.h"

#include <gtest/gtest.h>

#include "frame/shop_fixture.h"
#include "masters/labels/bar_code_labels.h"
#include "printing/page_pictures.h"

namespace {

using namespace velmo;
using namespace velmo::printing;
using namespace velmo::masters;

// Reads a bar code as a scanner does: from dark and light widths alone. "?" where it makes no sense.
class Reader {
 public:
  // Bars and the spaces between them, in any unit.
  explicit Reader(std::vector<int> widths) : widths_(std::move(widths)) {}

  // With its start and stop marks.
  std::string code39() const {
    static const std::map<std::string, char> patterns = [] {
      const std::string letters = "1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZ-. *";
      // Two wide bars of five and one wide space of four say the letter; the last four have three wide spaces.
      const char* bars[] = {"10001", "01001", "11000", "00101", "10100", "01100", "00011", "10010", "01010", "00110"};
      const char* spaces[] = {"0100", "0010", "0001", "1000"};
      std::map<std::string, char> all;
      for (std::size_t place = 0; place < letters.size(); ++place) {
        std::string pattern;
        for (std::size_t at = 0; at < 5; ++at) {
          pattern += bars[place % 10][at];
          if (at < 4) pattern += spaces[place / 10][at];
        }
        all[pattern] = letters[place];
      }
      const std::pair<const char*, char> signs[] = {{"1110", '$'}, {"1101", '/'}, {"1011", '+'}, {"0111", '%'}};
      for (const auto& [wide, sign] : signs) {
        std::string pattern = "000000000";
        for (std::size_t at = 0; at < 4; ++at) pattern[2 * at + 1] = wide[at];
        all[pattern] = sign;
      }
      return all;
    }();
    std::string text;
    for (std::size_t first = 0; first + 9 <= widths_.size(); first += 10) {
      const auto begin = widths_.begin() + static_cast<std::ptrdiff_t>(first);
      const double middle = (*std::min_element(begin, begin + 9) + *std::max_element(begin, begin + 9)) / 2.0;
      std::string pattern;
      for (auto width = begin; width != begin + 9; ++width) pattern += *width > middle ? '1' : '0';
      const auto letter = patterns.find(pattern);
      text += letter == patterns.end() ? '?' : letter->second;
    }
    return widths_.size() % 10 == 9 ? text : text + "?";
  }

  // All thirteen digits, when the check digit is right.
  std::string ean13() const {
    static const char* sets[] = {"3211", "2221", "2122", "1411", "1132", "1231", "1114", "1312", "1213", "3112"};
    static const std::string firsts[] = {"LLLLLL", "LLGLGG", "LLGGLG", "LLGGGL", "LGLLGG",
                                         "LGGLLG", "LGGGLL", "LGLGLG", "LGLGGL", "LGGLGL"};
    if (widths_.size() != 59) return "?";
    const int module = std::accumulate(widths_.begin(), widths_.end(), 0) / 95;
    std::string digits;
    std::string parities;
    for (int place = 0; place < 12; ++place) {
      std::string pattern;
      for (int at = 0; at < 4; ++at) {
        const auto index = static_cast<std::size_t>((place < 6 ? 3 : 8) + place * 4 + at);
        pattern += static_cast<char>('0' + (widths_[index] + module / 2) / module);
      }
      const auto normal = std::find(std::begin(sets), std::end(sets), pattern);
      std::string turned(pattern.rbegin(), pattern.rend());
      const auto even = std::find(std::begin(sets), std::end(sets), turned);
      if (normal == std::end(sets) && even == std::end(sets)) return "?";
      const bool isNormal = normal != std::end(sets);
      digits += static_cast<char>('0' + (isNormal ? normal - sets : even - sets));
      if (place < 6) parities += isNormal ? 'L' : 'G';
    }
    const auto first = std::find(std::begin(firsts), std::end(firsts), parities);
    digits.insert(0, 1, static_cast<char>('0' + (first - firsts)));
    int sum = 0;
    for (std::size_t place = 0; place < 13; ++place) sum += (digits[place] - '0') * (place % 2 == 0 ? 1 : 3);
    return sum % 10 == 0 ? digits : "?";
  }

 private:
  std::vector<int> widths_;
};

TEST(BarCode, CodesThatCanBePrinted) {
  struct Case {
    const char* code;
    Symbology symbology;
    const char* read;
  };
  using enum Symbology;
  for (const Case& known :
       {Case{"H1", Code39, "*H1*"}, Case{"ab-1.5 $/+%", Code39, "*AB-1.5 $/+%*"},
        Case{"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ", Code39, "*0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ*"},
        Case{"4006381333931", Ean13, "4006381333931"}, Case{"0000000000000", Ean13, "0000000000000"},
        Case{"9780201379624", Ean13, "9780201379624"},
        Case{"4006381333932", Code39, "*4006381333932*"},  // not its check digit
        Case{"400638133393", Code39, "*400638133393*"}}) {
    SCOPED_TRACE(known.code);
    const auto code = barCodeOf(known.code);
    ASSERT_TRUE(code) << code.error();
    EXPECT_EQ(code->symbology, known.symbology);
    const Reader reader(code->elements);
    EXPECT_EQ(known.symbology == Code39 ? reader.code39() : reader.ean13(), known.read);
  }
  for (const std::string& code :
       {std::string(), std::string("A#1"), std::string("ÄÖ"), std::string("A*1"), std::string(86, 'A')}) {
    const auto refused = barCodeOf(code);
    ASSERT_FALSE(refused) << code;
    EXPECT_EQ(refused.error().back(), '.');
  }
}

TEST(BarCode, BarsAreNeverNarrowerThanReadersCanTell) {
  for (const std::size_t length : {1U, 10U, 18U, 25U, 40U}) {
    const auto code = barCodeOf(std::string(length, 'W'));
    ASSERT_TRUE(code);
    for (const Twips room : {mm(46), mm(68)}) {
      const PlacedBars placed = placeBars(*code, room);
      if (placed.bars.empty()) {
        EXPECT_GE(length, room == mm(46) ? 19U : 28U);
        continue;
      }
      EXPECT_LE(placed.quietLeft + placed.width + placed.quietRight, room);
      EXPECT_GE(std::min(placed.quietLeft, placed.quietRight), 10 * placed.module);
      for (const Bar& bar : placed.bars) EXPECT_GE(bar.width, mm(0.14));
    }
  }
}

// The bars within a label, from left to right, as widths and the spaces between them.
std::vector<int> barsWithin(const Page& page, const Frame& label) {
  std::vector<Frame> bars;
  for (const Area& area : page.drawing.areas)
    if (area.at.left >= label.left && area.at.right() <= label.right() && area.at.top >= label.top &&
        area.at.bottom() <= label.bottom())
      bars.push_back(area.at);
  std::sort(bars.begin(), bars.end(), [](const Frame& one, const Frame& other) { return one.left < other.left; });
  std::vector<int> widths;
  for (std::size_t index = 0; index < bars.size(); ++index) {
    if (index > 0) widths.push_back(bars[index].left - bars[index - 1].right());
    widths.push_back(bars[index].width);
  }
  return widths;
}

std::vector<std::string> textsWithin(const Page& page, const Frame& label) {
  std::vector<std::string> texts;
  for (const TextRun& run : page.drawing.texts) {
    if (run.at.left < label.left || run.at.right() > label.right()) continue;
    if (run.at.top >= label.top && run.at.bottom() <= label.bottom())
      texts.push_back(page.drawing.textOf(run).toStdString());
  }
  return texts;
}

struct Sheet {
  LabelSheet sheet;
  int columns;
  int rows;
  Twips width;
  Twips height;

  Frame label(int place) const {
    const int inPage = place % (columns * rows);
    return {(A4.width - columns * width) / 2 + inPage % columns * width,
            (A4.height - rows * height) / 2 + inPage / columns * height, width, height};
  }
};

const Sheet Sheets[] = {{LabelSheet::BarCodesPrint, 3, 8, mm(70), mm(37)},
                        {LabelSheet::BarCodesPrint2, 4, 10, mm(48.5), mm(25.4)}};

std::vector<std::string> nonEmpty(const std::vector<const char*>& texts) {
  std::vector<std::string> kept;
  for (const char* words : texts)
    if (*words) kept.emplace_back(words);
  return kept;
}

class BarCodeLabels : public velmo::test::Shop {
 protected:
  BarCodeLabels() {
    context.ccode = "Rs.";
    add("H1", "Hammer", "Claw", "12.5");
    add("N1", "Nail", "", "0.335");
    add("4006381333931", "قلم حبر جاف أزرق", "", "1234.5");
    add("N2-LONG", std::string(120, 'W'), "", "0");
    add("BAD#1", "Unprintable", "", "1");
  }

  void add(const std::string& code, const std::string& name, const std::string& description, const std::string& price) {
    context.KORDconn.execute(
        "INSERT INTO StockLevel3 (ItemCode, ItemName, Description, SellingPrice, Unit, Status, CatID, SubCatID) VALUES "
        "(" +
        store::quoted(code) + ", " + store::quoted(name) + ", " + store::quoted(description) + ", " + price +
        ", 'Pcs', No, 'HND', 'HND01')");
  }

  tl::expected<Report, std::string> labels(const std::string& code, LabelSheet sheet, int copies) {
    return labelsOf(barCodeStatement(code, context.ccode), sheet, copies);
  }
  tl::expected<Report, std::string> labelsOf(const std::string& statement, LabelSheet sheet, int copies) {
    store::Recordset items(context.KORDconn, statement, store::LockType::ReadOnly);
    return barCodeLabels(context, items, sheet, copies, clock.today());
  }
};

TEST_F(BarCodeLabels, StatementIsTheShopsOwn) {
  EXPECT_EQ(barCodeStatement("H1", "Rs."),
            "SELECT '*' & [ItemCode] & '*' AS ItemBarCode, ItemCode, ItemName, Description, ('Rs. ' & [SellingPrice]) "
            "as SPrice FROM StockLevel3 WHERE ItemCode like 'H1'");
  store::Recordset item(context.KORDconn, barCodeStatement("H1", "O'"), store::LockType::ReadOnly);
  EXPECT_EQ(item.text("ItemBarCode"), "*H1*");
  EXPECT_EQ(item.text("SPrice"), "O' 12.5");
}

TEST_F(BarCodeLabels, EveryLabelScansAndKeepsItsPlace) {
  struct Case {
    const char* code;
    const char* scanned;
    std::vector<const char*> texts[2];
  };
  for (const Sheet& sheet : Sheets)
    for (const Case& item : {Case{"H1", "*H1*", {{"Hammer", "Claw", "H1", "Rs. 12.50"}, {"Hammer", "H1", "Rs. 12.50"}}},
                             Case{"N1", "*N1*", {{"Nail", "N1", "Rs. 0.335"}, {"Nail", "N1", "Rs. 0.335"}}},
                             Case{"4006381333931",
                                  "4006381333931",
                                  {{"قلم حبر جاف أزرق", "4 006381 333931", "Rs. 1,234.50"},
                                   {"قلم حبر جاف أزرق", "4 006381 333931", "Rs. 1,234.50"}}},
                             Case{"N2-LONG", "*N2-LONG*", {{}, {}}}}) {
      SCOPED_TRACE(item.code);
      const int copies = sheet.columns * sheet.rows + 1;
      const auto report = labels(item.code, sheet.sheet, copies);
      ASSERT_TRUE(report) << report.error();
      EXPECT_EQ(report->title, "Bar Codes");
      const auto pages = printing::test::pagesOf(*report);
      ASSERT_EQ(pages.size(), 2U);
      printing::test::leavePictures("labels-" + std::to_string(sheet.columns) + "-" + item.code, pages);
      for (const Page& page : pages) printing::test::expectNothingOverlaps(page, report->design);
      for (int place = 0; place < copies; ++place) {
        const Page& page = pages[static_cast<std::size_t>(place / (copies - 1))];
        const Reader reader(barsWithin(page, sheet.label(place)));
        ASSERT_EQ(item.scanned[0] == '*' ? reader.code39() : reader.ean13(), item.scanned) << place;
        const std::vector<std::string> texts = textsWithin(page, sheet.label(place));
        const auto& expected = item.texts[&sheet - Sheets];
        if (!expected.empty()) {
          ASSERT_EQ(texts, nonEmpty(expected)) << place;
        } else {
          ASSERT_TRUE(
              std::any_of(texts.begin(), texts.end(), [](const std::string& line) { return line.ends_with("…"); }));
        }
      }
      EXPECT_TRUE(barsWithin(pages[1], sheet.label(1)).empty()) << "places behind the last label stay blank";
      const Frame bars = pages[0].drawing.areas.front().at;
      for (const TextRun& run : pages[0].drawing.texts)
        EXPECT_FALSE(run.at.top < bars.bottom() && run.at.bottom() > bars.top && run.at.left < bars.right() &&
                     run.at.right() > bars.left);
    }
}

TEST_F(BarCodeLabels, SeveralItemsFollowEachOther) {
  std::string statement = barCodeStatement("N1", context.ccode);
  statement.replace(statement.find("'N1'"), 4, "'N%'");
  const auto report = labelsOf(statement, LabelSheet::BarCodesPrint, 2);
  ASSERT_TRUE(report) << report.error();
  const Page page = printing::test::pagesOf(*report).at(0);
  std::vector<std::string> scanned;
  for (int place = 0; place < 4; ++place) scanned.push_back(Reader(barsWithin(page, Sheets[0].label(place))).code39());
  std::sort(scanned.begin(), scanned.end());
  EXPECT_EQ(scanned, (std::vector<std::string>{"*N1*", "*N1*", "*N2-LONG*", "*N2-LONG*"}));
}

TEST_F(BarCodeLabels, RefusalsSayWhy) {
  add(std::string(30, 'W'), "too wide", "", "1");
  const std::tuple<std::string, int, const char*> cases[] = {
      {"H1", 0, "Enter a number of labels between 1 and 10000."},
      {"H1", 10001, "Enter a number of labels between 1 and 10000."},
      {"NONE", 1, "There is no item of this code."},
      {std::string(30, 'W'), 1, "The bar code of 'WWWWWWWWWWWWWWWWWWWWWWWWWWWWWW' is too wide for the label."},
      {"BAD#1", 1,
       "The code 'BAD#1' cannot be printed as a bar code, which holds only letters, digits, blanks and the characters "
       "- . $ / + %, up to 85 of them."}};
  for (const auto& [code, copies, reason] : cases) {
    const auto refused = labels(code, LabelSheet::BarCodesPrint, copies);
    ASSERT_FALSE(refused) << code;
    EXPECT_EQ(refused.error(), reason);
  }
}

}  // namespace
