#include "spreadsheet/cell_formats.h"
#include "spreadsheet/sheet_files.h"
#include "spreadsheet/sheet_text.h"
#include "spreadsheet/text_decoding.h"
#include "spreadsheet/xlsx_styles.h"

namespace velmo::spreadsheet {
namespace {

TEST(SheetFormats, TellDatesFromNumbers) {
  struct Case {
    const char16_t* code;
    bool isDate;
    int digits;
  };
  const Case codes[] = {
      {u"General", false, 0},
      {u"0", false, 0},
      {u"00000", false, 5},
      {u"000-00", false, 0},
      {u"#,##0.00;[Red](#,##0.00)", false, 0},
      {u"0.00 \"days\"", false, 0},
      {u"0.0\\d", false, 0},
      {u"_(* #,##0_);_(* (#,##0)", false, 0},
      {u"[$Rs-420] #,##0", false, 0},
      {u"[h]:mm:ss", false, 0},
      {u"[mm]:ss", false, 0},
      {u"[Magenta]yyyy", true, 0},
      {u"dd-mm-yyyy", true, 0},
      {u"[$-409]d\\-mmm\\-yy;@", true, 0},
      {u"yyyy\"-\"mm", true, 0},
      {u"h:mm AM/PM", true, 0},
      {u"D/M/YY", true, 0},
      {u"\"unclosed dmy", false, 0},
      {u"", false, 0},
  };
  for (const Case& each : codes) {
    const NumberMeaning meaning = NumberMeaning::of(each.code);
    EXPECT_EQ(meaning.digits, each.digits) << QString::fromUtf16(each.code).toStdString();
    EXPECT_EQ(meaning.isDate, each.isDate) << QString::fromUtf16(each.code).toStdString();
  }
  for (const char* number : {"", "0.00", "0.00;(0.00)", "#,##0.00; (#,##0.00)", "Fixed"})
    EXPECT_FALSE(isDatePattern(number)) << number;
  for (const char* date : {"dd-mm-yyyy", "mmm d, yyyy", "MMMM dd, yyyy", "hh-mm-ss am/pm", "YYYY"})
    EXPECT_TRUE(isDatePattern(date)) << date;
  EXPECT_EQ(numberFormat("Fixed"), "0.00");
  EXPECT_EQ(numberFormat("hh-mm-ss am/pm"), "hh-mm-ss AM/PM");
  EXPECT_EQ(numberFormat("0.00; (0.00)"), "0.00; (0.00)");
}

TEST(SheetText, EscapesAndTakesBackWhatItEscaped) {
  const std::pair<const char*, const char*> escaped[] = {
      {"_x0009_", "\t"},    {"_x000D__x000A_", "\r\n"}, {"a_x00e4_b", "aäb"},   {"_x005F_x0041_", "_x0041_"},
      {"_x00_", "_x00_"},   {"_x004_1_", "_x004_1_"},   {"_xZZZZ_", "_xZZZZ_"}, {"_xD83D_", "_xD83D_"},
      {"_x0041", "_x0041"}, {"_X0041_", "_X0041_"},     {"__x0041_", "_A"},     {"", ""}};
  for (const auto& [cell, text] : escaped) EXPECT_EQ(fromCellText(cell), text) << cell;
  for (const char* text : {"_x0041_", "_x005F_", "__x0041__", "_x0041_x0042_", "plain_text", "_"})
    EXPECT_EQ(fromCellText(toCellText(text)), text);
  // An escape that would pass the end of the cell is cut with the rest.
  const std::string nearlyFull(longestCellText - 6, 'x');
  EXPECT_EQ(toCellText(nearlyFull + "_x0041_"), nearlyFull + "…");
}

TEST(TextDecoding, FindsOutWhatATextIsIn) {
  const std::string russian =
      "\xCD\xE0\xE8\xEC\xE5\xED\xEE\xE2\xE0\xED\xE8\xE5;\xD6\xE5\xED\xE0\n\xCC\xEE\xEB\xEE\xF2\xEE\xEA "
      "\xE1\xEE\xEB\xFC\xF8\xEE\xE9 \xE4\xEB\xFF \xE4\xE5\xF0\xE5\xE2\xE0;150\n\xCE\xF2\xE2\xE5\xF0\xF2\xEA\xE0 "
      "\xEA\xF0\xE5\xF1\xF2\xEE\xE2\xE0\xFF;75\n";
  struct Case {
    std::string bytes;
    std::string asked;
    std::string text;
    std::string encoding;
  };
  const std::vector<Case> cases = {
      {"plain\r\n", "", "plain\n", "UTF-8"},
      {"", "", "", "UTF-8"},
      {"\xEF\xBB\xBF", "", "", "UTF-8"},
      {"caf\xE9\n", "", "café\n", "windows-1252"},
      {"\x91quote\x92 \x96 dash\n", "", "‘quote’ – dash\n", "windows-1252"},
      {russian, "", "Наименование;Цена\nМолоток большой для дерева;150\nОтвертка крестовая;75\n", "windows-1251"},
      {"caf\xE9", "UTF-8", "caf\uFFFD", "UTF-8"},
      {"\xD3", "windows-1251", "У", "windows-1251"},
      {std::string("\xFF\xFE"
                   "A\0B",
                   5),
       "", "A\uFFFD", "UTF-16LE"},
      {std::string("\xFF\xFE\0\0A\0\0\0", 8), "", "A", "UTF-32LE"},
      {std::string("A\0\r\0\n\0", 6), "UTF-16", "A\n", "UTF-16LE"},
      {std::string("\0A\0\n", 4), "UTF-16", "A\n", "UTF-16BE"},
      {"\x22\x6F\x57\x5B", "UTF-16", "漢字", "UTF-16LE"},
  };
  for (const Case& each : cases) {
    const DecodedText read = decoded(each.bytes, each.asked);
    EXPECT_EQ(read.text, each.text);
    EXPECT_EQ(read.encoding, each.encoding) << each.text;
  }
  EXPECT_THROW(decoded("a", "no such encoding"), ReadFailure);
  EXPECT_THROW(decoded(std::string("a\0b\0\0c", 6)), ReadFailure);
  EXPECT_THROW(decoded("a\x02"), ReadFailure);
}

class HostileXml : public test::SheetFiles {
 protected:
  // An .ods file with this between the tags of its one table.
  std::string readTable(const std::string& rows) {
    return read(zipped("list.ods",
                       {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"},
                        {"content.xml", "<d:document-content xmlns:d='d'><d:body><d:spreadsheet><d:table d:name='x'>" +
                                            rows + "</d:table></d:spreadsheet></d:body></d:document-content>"}}));
  }
};

TEST_F(HostileXml, EndsInASentence) {
  const std::string damaged =
      "The file is damaged or incomplete. Get it again, or save it again from the program it comes from.";
  const std::string tooMuch = "The file holds more than this program takes in at once. Divide it into smaller files.";
  const auto nested = [](const char* tag, int depth) {
    std::string open, close;
    for (int i = 0; i < depth; ++i) open += std::string("<d:") + tag + ">", close += std::string("</d:") + tag + ">";
    return open + close;
  };
  EXPECT_EQ(readTable(nested("table-row-group", 100'000)), damaged);
  EXPECT_EQ(readTable(nested("unknown", 100'000)), "");
  EXPECT_EQ(readTable("<d:table-row d:number-rows-repeated='1048576'><d:table-cell d:number-columns-repeated='16384' "
                      "d:value-type='boolean' d:boolean-value='true'/></d:table-row>"),
            tooMuch);
  EXPECT_EQ(readTable("<d:table-row d:number-rows-repeated='99999999'><d:table-cell d:value-type='float' "
                      "d:value='1'/></d:table-row>"),
            damaged);
  EXPECT_EQ(readTable("<d:table-row d:number-rows-repeated='-5'><d:table-cell d:number-columns-repeated='x' "
                      "d:value-type='float' d:value='1'/></d:table-row>"),
            "1\n");
  EXPECT_EQ(readTable("<d:table-row><d:table-cell d:value-type='float' d:value='1,5'/></d:table-row>"), damaged);
  EXPECT_EQ(readTable("<d:table-row><d:table-cell d:value-type='string'><d:p>a<d:s "
                      "d:c='999999999'/>b</d:p></d:table-cell></d:table-row>")
                .size(),
            32767U + 3U);
  EXPECT_EQ(readTable("<d:table-row><d:table-cell><d:p>open"), damaged);

  // Entities that stand for one another until they fill the memory.
  auto laughs = parts("");
  std::string entities = "<!ENTITY a0 'aaaaaaaaaaaaaaaaaaaaaaaa'>";
  for (int i = 1; i < 12; ++i) {
    entities += "<!ENTITY a" + std::to_string(i) + " '";
    for (int copy = 0; copy < 10; ++copy) entities += "&a" + std::to_string(i - 1) + ";";
    entities += "'>";
  }
  laughs["xl/sharedStrings.xml"] = "<!DOCTYPE sst [" + entities + "]><sst><si><t>&a11;</t></si></sst>";
  EXPECT_EQ(read(zipped("laughs.xlsx", laughs)), damaged);
  auto outside = parts("<row><c t='s'><v>0</v></c></row>");
  outside["xl/sharedStrings.xml"] =
      "<!DOCTYPE sst [<!ENTITY f SYSTEM 'file:///etc/passwd'>]><sst><si><t>&f;</t></si></sst>";
  EXPECT_EQ(read(zipped("outside.xlsx", outside)).find("root:"), std::string::npos);
}

}  // namespace
}  // namespace velmo::spreadsheet
