#include "spreadsheet/sheet_reader.h"

#include <fcntl.h>

#include "spreadsheet/sheet_files.h"
#include "spreadsheet/sheet_writer.h"

namespace velmo::spreadsheet {
namespace {

using SheetReader = test::SheetFiles;

TEST_F(SheetReader, ReadsTheCellsOfAWorkbook) {
  const char* rows =
      "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v></c><c r=\"C1\" t=\"s\"><v>2</v></c>"
      "<c r=\"D1\" t=\"s\"><v>3</v></c><c r=\"E1\" t=\"inlineStr\"><is><t xml:space=\"preserve\"> in &amp; "
      "out</t></is></c>"
      "<c r=\"F1\" t=\"str\"><f>A1&amp;\"x\"</f><v>firstx</v></c></row>"
      "<row r=\"3\"><c r=\"B3\"><v>1.5E2</v></c><c r=\"C3\" t=\"b\"><v>1</v></c><c><v>-0.25</v></c>"
      "<c r=\"E3\" s=\"4\"><v>7</v></c><c r=\"F3\" s=\"5\"><v>0.5</v></c><c r=\"G3\" s=\"3\"><v>42</v></c></row>"
      "<row><c s=\"1\"><v>46348</v></c><c s=\"2\"><v>46348.588298611111</v></c><c s=\"1\"><v>59</v></c>"
      "<c t=\"d\"><v>2026-11-22T14:07:09Z</v></c><c s=\"1\"/></row>"
      "<row r=\"5\"><c r=\"A5\"><f>1+1</f><v>2</v></c><c r=\"B5\"><f>B1</f></c><c r=\"C5\" t=\"e\"><f>1/0</f>"
      "<v>#DIV/0!</v></c><c r=\"D5\" t=\"b\"><f>TRUE()</f><v>0</v></c><c r=\"E5\" "
      "t=\"str\"><f>\"\"</f><v></v></c></row>";
  EXPECT_EQ(read(workbook(rows)),
            "first|rich text|two\nlines|| in & out|firstx\n"
            "\n"
            "|150|Yes|-0.25|7|0.5|00042\n"
            "2026-11-22|2026-11-22 14:07:09|1900-02-28|2026-11-22 14:07:09\n"
            "2|!The formula has no stored result. Open the file in its own program and save it again.|"
            "!The cell shows #DIV/0! and no value.|No\n");
  EXPECT_EQ(sheetNames(folder / "book.xlsx").value(), std::vector<std::string>{"Stock & more"});
  EXPECT_EQ(read(workbook("<row><c s=\"1\"><v>44886</v></c></row>", "<workbookPr date1904=\"1\"/>")), "2026-11-22\n");
}

TEST_F(SheetReader, ReadsTheCellsOfAnOpenDocument) {
  const std::string table =
      "<table:table-header-rows><table:table-row><table:table-cell office:value-type='string'>"
      "<office:annotation><text:p>a note</text:p></office:annotation><text:p>two<text:s text:c='3'/>lines</text:p>"
      "<text:p>and<text:tab/><text:span>more</text:span></text:p></table:table-cell>"
      "<table:covered-table-cell/><table:table-cell office:value-type='float' office:value='1.50'>"
      "<text:p>1,50</text:p></table:table-cell></table:table-row></table:table-header-rows>"
      "<table:table-row table:number-rows-repeated='2'><table:table-cell table:number-columns-repeated='2' "
      "office:value-type='boolean' office:boolean-value='true'/>"
      "<table:table-cell table:number-columns-repeated='16382'/></table:table-row>"
      "<table:table-row-group><table:table-row><table:table-cell office:value-type='date' "
      "office:date-value='2026-11-22'/><table:table-cell office:value-type='date' "
      "office:date-value='2026-11-22T14:07:09.5'/><table:table-cell office:value-type='percentage' office:value='0.1'/>"
      "</table:table-row></table:table-row-group>"
      "<table:table-row><table:table-cell table:formula='of:=1+1'/><table:table-cell table:formula='of:=1/0' "
      "office:value-type='string' office:string-value='' calcext:value-type='error'><text:p>#DIV/0!</text:p>"
      "</table:table-cell></table:table-row>"
      "<table:table-row table:number-rows-repeated='1048571'><table:table-cell "
      "table:number-columns-repeated='16384'/></table:table-row>";
  std::map<std::string, std::string> parts = {
      {"mimetype", "application/vnd.oasis.opendocument.spreadsheet"},
      {"content.xml",
       "<office:document-content xmlns:office='o' xmlns:table='t' xmlns:text='x' xmlns:calcext='c'><office:scripts/>"
       "<office:body><office:spreadsheet><table:table table:name='First'/><table:table table:name='List'>" +
           table + "</table:table></office:spreadsheet></office:body></office:document-content>"}};
  const auto file = zipped("list.ods", parts);
  EXPECT_EQ(sheetNames(file).value(), (std::vector<std::string>{"First", "List"}));
  EXPECT_EQ(shown(readSheet(file, 1).value()),
            "two   lines\nand\tmore||1.5\n"
            "Yes|Yes\n"
            "Yes|Yes\n"
            "2026-11-22|2026-11-22 14:07:09|0.1\n"
            "!The formula has no stored result. Open the file in its own program and save it again.|"
            "!The cell shows #DIV/0! and no value.\n");
  parts["META-INF/manifest.xml"] = "<manifest><file-entry><encryption-data/></file-entry></manifest>";
  EXPECT_EQ(read(zipped("secret.ods", parts)),
            "The file is protected by a password. Save it without a password and choose it again.");
}

TEST_F(SheetReader, ReadsSeparatedValuesAsTheyCome) {
  struct Case {
    const char* name;
    std::string bytes;
    std::string cells;
    TextLayout layout;
  };
  const std::vector<Case> cases = {
      {"comma", "Code,Name\r\n007,Hammer\r\n", "Code|Name\n007|Hammer\n", {"UTF-8", ','}},
      {"semicolon", "Code;Price\n7;1,50\n8;2,75\n", "Code|Price\n7|1,50\n8|2,75\n", {"UTF-8", ';'}},
      {"tab", "Code\tName\n\"a\tb\"\tc, d; e\n", "Code|Name\na\tb|c, d; e\n", {"UTF-8", '\t'}},
      {"quotes",
       "a,\"say \"\"hi\"\"\",\" b \"\n\"two\r\nlines\", c ,5\" pipe\n",
       "a|say \"hi\"| b \ntwo\nlines|c|5\" pipe\n",
       {"UTF-8", ','}},
      {"quoted separators", "\"a;b;c;d\",1\n\"e;f;g;h\",2\n", "a;b;c;d|1\ne;f;g;h|2\n", {"UTF-8", ','}},
      {"blank lines", "a,b\n\n\nc,d", "a|b\n\n\nc|d\n", {"UTF-8", ','}},
      {"old line ends", "a,b\rc,d\r", "a|b\nc|d\n", {"UTF-8", ','}},
      {"one column", "Name\nHammer\n", "Name\nHammer\n", {"UTF-8", ','}},
      {"named separator", "sep=;\r\na,b;c\r\n", "\na,b|c\n", {"UTF-8", ';'}},
      {"formula", "=1+1,\"=cmd()\"\n", "=1+1|=cmd()\n", {"UTF-8", ','}},
      {"UTF-8", "Größe,漢\n", "Größe|漢\n", {"UTF-8", ','}},
      {"UTF-8 with mark", "\xEF\xBB\xBFGröße,x\n", "Größe|x\n", {"UTF-8", ','}},
      {"UTF-16LE",
       std::string("\xFF\xFE"
                   "a\0,\0\xE4\0\n\0",
                   10),
       "a|ä\n",
       {"UTF-16LE", ','}},
      {"UTF-16BE", std::string("\xFE\xFF\0a\0,\0\xE4\0\n", 10), "a|ä\n", {"UTF-16BE", ','}},
      {"UTF-16 without mark",
       std::string("N\0a\0m\0e\0,\0X\0\n\0\xE4\0,\0b\0\n\0", 22),
       "Name|X\nä|b\n",
       {"UTF-16LE", ','}},
      {"Windows-1252",
       "Gr\xF6\xDF"
       "e;\x80 5\nStra\xDF"
       "e;\x93quoted\x94\n",
       "Größe|€ 5\nStraße|“quoted”\n",
       {"windows-1252", ';'}},
  };
  for (const Case& each : cases) {
    const auto sheet = readSheet(written("list.csv", each.bytes));
    ASSERT_TRUE(sheet) << each.name << ": " << sheet.error();
    EXPECT_EQ(shown(*sheet), each.cells) << each.name;
    EXPECT_EQ(*sheet->layout, each.layout) << each.name << ": " << sheet->layout->encoding << sheet->layout->separator;
  }
  const auto file = written("list.csv", "caf\xE9;a,b\n");
  EXPECT_EQ(read(file, {.encoding = "windows-1251", .separator = ','}), "cafй;a|b\n");
}

TEST_F(SheetReader, SaysWhatIsWrongWithAFile) {
  const std::string old = std::string("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8) + std::string(600, '\0');
  const auto wide = [](std::u16string_view name) {
    return std::string(reinterpret_cast<const char*>(name.data()), name.size() * 2);
  };
  const std::string notOne = "The file is not a spreadsheet. Choose one of the kinds .xlsx, .ods or .csv.";
  const std::string damaged =
      "The file is damaged or incomplete. Get it again, or save it again from the program it comes from.";
  const std::string locked = "The file is protected by a password. Save it without a password and choose it again.";
  const std::string tooMuch = "The file holds more than this program takes in at once. Divide it into smaller files.";
  auto binary = parts("");
  binary["_rels/.rels"].replace(binary["_rels/.rels"].find("workbook.xml"), 12, "workbook.bin");
  auto letter = parts("");
  letter["xl/workbook.xml"] = "<document/>";
  auto noSheets = parts("");
  noSheets["xl/workbook.xml"] = "<workbook><sheets/></workbook>";
  auto noPart = parts("");
  noPart.erase("xl/worksheets/sheet1.xml");
  // An archive that says that one of its parts unfolds to two gigabytes.
  std::string bomb = bytesOf(zipped("bomb.zip", parts("")));
  bomb.replace(bomb.rfind("xl/sharedStrings.xml") - 22, 4, std::string("\0\0\0\x80", 4));
  std::string wideRows;
  for (int i = 1; i < 700; ++i)
    wideRows += "<row r='" + std::to_string(i) + "'><c r='XFD" + std::to_string(i) + "'><v>1</v></c></row>";
  auto nested = parts("");
  nested["xl/worksheets/sheet1.xml"] = "<worksheet>" + [] {
    std::string open;
    for (int i = 0; i < 100'000; ++i) open += "<a>";
    return open;
  }();

  const std::vector<std::pair<std::filesystem::path, std::string>> cases = {
      {written("empty.xlsx", ""), "The file is empty."},
      {written("picture.xlsx", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16)), notOne},
      {written("page.csv", "\n <HTML><table>"), notOne},
      {written("paper.csv", "%PDF-1.4 text"), notOne},
      {written("zeros.csv", std::string(100, '\0')), notOne},
      {written("old.xls", old + wide(u"Workbook")),
       "The file is of the old kind .xls, which cannot be read. Save it as .xlsx and choose it again."},
      {written("locked.xlsx", old + wide(u"EncryptedPackage")), locked},
      {written("mail.msg", old), notOne},
      {written("head.xlsx", "PK\x03\x04 and no more"), damaged},
      {zipped("plain.zip", {{"a.txt", "a"}}), notOne},
      {zipped("text.odt", {{"mimetype", "application/vnd.oasis.opendocument.text"}}), notOne},
      {zipped("no content.ods", {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"}}), damaged},
      {zipped("letter.docx", letter), notOne},
      {zipped("binary.xlsb", binary),
       "The file is of the kind .xlsb, which cannot be read. Save it as .xlsx and choose it again."},
      {zipped("no sheets.xlsx", noSheets), "The file has no sheet with rows."},
      {zipped("no part.xlsx", noPart), damaged},
      {written("bomb.xlsx", bomb), tooMuch},
      {zipped("nested.xlsx", nested), damaged},
      {workbook("<row r='1'><c r='ZZZZ1'><v>1</v></c></row>"), damaged},
      {folder / "nowhere.xlsx",
       "The file \"" + (folder / "nowhere.xlsx").string() + "\" cannot be opened: No such file or directory."},
      {folder, "A folder was chosen. Choose a file in it."},
      {written("open.csv", "a,b\nc,\"never closed\nd,e\n"),
       "A quotation mark that was opened in row 2 is never closed. Mend the file and choose it again."},
  };
  for (const auto& [file, sentence] : cases) EXPECT_EQ(read(file), sentence) << file;
  for (const char* cell : {"<c r='A0'><v>1</v></c>", "<c r='A9999999'><v>1</v></c>", "<c><v>1,5</v></c>",
                           "<c t='s'><v>9</v></c>", "<c t='s'><v>-1</v></c>", "<c><v>1</c>", "<c r='1A'><v>1</v></c>"})
    EXPECT_EQ(read(workbook(std::string("<row>") + cell + "</row>")), damaged) << cell;
  EXPECT_EQ(read(workbook(wideRows)), tooMuch);
}

TEST_F(SheetReader, NeverTakesADamagedArchiveForAWholeOne) {
  const SheetDesign design{.title = "Items", .columns = {{.caption = "Item"}, {.caption = "Price"}}};
  int row = 0;
  ASSERT_TRUE(saveSheet(folder / "whole.xlsx", design, [&row](std::span<store::Value> cells) {
    cells[0] = "Item " + std::to_string(row * 7919);
    cells[1] = row * 1.25;
    return row++ < 60;
  }));
  const std::string bytes = bytesOf(folder / "whole.xlsx");
  const std::string whole = read(folder / "whole.xlsx");
  for (std::size_t length = 1; length < bytes.size(); length += 101)
    EXPECT_NE(read(written("part.xlsx", bytes.substr(0, length))), whole) << length;
  int refused = 0;
  for (std::size_t at = 0; at < bytes.size(); at += 13) {
    std::string changed = bytes;
    changed[at] = static_cast<char>(changed[at] ^ 0x55);
    const auto sheet = readSheet(written("part.xlsx", changed));
    if (!sheet)
      ++refused;
    else
      EXPECT_EQ(shown(*sheet), whole) << at;  // what was changed is not of the list, like the time of the file
  }
  EXPECT_GT(refused, 100);
}

TEST_F(SheetReader, CanBeStopped) {
  std::string rows;
  for (int i = 0; i < 3000; ++i) rows += "a,b\n";
  std::int64_t seen = 0;
  const auto sheet = readSheet(written("list.csv", rows), 0, {}, [&seen](std::int64_t row) {
    seen = row;
    return row < 1000;
  });
  ASSERT_FALSE(sheet);
  EXPECT_EQ(sheet.error(), "");
  EXPECT_LT(seen, 2000);
}

}  // namespace
}  // namespace velmo::spreadsheet
