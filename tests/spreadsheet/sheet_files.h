#pragma once

#include <gmock/gmock.h>
#include <zip.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "spreadsheet/sheet_reader.h"

namespace velmo::test {

// A folder of its own for the files of one test.
class SheetFiles : public testing::Test {
 protected:
  SheetFiles() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmo-sheets-XXXXXX").string();
    folder = mkdtemp(pattern.data());
  }
  ~SheetFiles() override { std::filesystem::remove_all(folder); }

  std::filesystem::path written(const std::string& name, std::string_view bytes) const {
    std::ofstream(folder / name, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return folder / name;
  }
  static std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::filesystem::path zipped(const std::string& name, const std::map<std::string, std::string>& parts) const {
    zip_t* archive = zip_open((folder / name).c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    for (const auto& [part, text] : parts)
      zip_file_add(archive, part.c_str(), zip_source_buffer(archive, text.data(), text.size(), 0), ZIP_FL_OVERWRITE);
    EXPECT_EQ(zip_close(archive), 0);
    return folder / name;
  }

  // A workbook of one sheet with these rows, styles and strings.
  std::filesystem::path workbook(const std::string& rows, const std::string& properties = {}) const {
    return zipped("book.xlsx", parts(rows, properties));
  }
  static std::map<std::string, std::string> parts(const std::string& rows, const std::string& properties = {}) {
    const std::string kinds = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
    const auto relation = [&kinds](const char* id, const char* kind, const char* target) {
      return std::string("<Relationship Id=\"") + id + "\" Type=\"" + kinds + kind + "\" Target=\"" + target + "\"/>";
    };
    return {
        {"_rels/.rels", "<Relationships>" + relation("a", "officeDocument", "/xl/workbook.xml") + "</Relationships>"},
        {"xl/_rels/workbook.xml.rels", "<Relationships>" + relation("r1", "worksheet", "worksheets/sheet1.xml") +
                                           relation("r2", "worksheet", "worksheets/../worksheets/sheet2.xml") +
                                           relation("r3", "sharedStrings", "sharedStrings.xml") +
                                           relation("r4", "styles", "styles.xml") + "</Relationships>"},
        {"xl/workbook.xml", "<workbook xmlns:r=\"" + kinds + "\">" + properties +
                                "<sheets><sheet name=\"Stock &amp; more\" sheetId=\"1\" r:id=\"r1\"/><sheet "
                                "name=\"Hidden\" sheetId=\"2\" state=\"hidden\" r:id=\"r2\"/></sheets></workbook>"},
        {"xl/sharedStrings.xml",
         "<sst><si><t>first</t></si><si><r><t>rich </t></r><r><rPr><b/></rPr><t>text</t></r><rPh sb=\"0\" "
         "eb=\"1\"><t>said</t></rPh></si><si><t>two_x000A_lines</t></si><si><t/></si></sst>"},
        {"xl/styles.xml",
         "<styleSheet><numFmts><numFmt numFmtId=\"164\" formatCode=\"[$-409]d\\-mmm\\-yyyy;@\"/><numFmt "
         "numFmtId=\"165\" formatCode=\"00000\"/><numFmt numFmtId=\"166\" formatCode=\"0.00&quot;days&quot;\"/><numFmt "
         "numFmtId=\"167\" formatCode=\"[h]:mm\"/></numFmts><cellStyleXfs><xf "
         "numFmtId=\"14\"/></cellStyleXfs><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/><xf numFmtId=\"164\"/><xf "
         "numFmtId=\"165\"/><xf numFmtId=\"166\"/><xf numFmtId=\"167\"/></cellXfs></styleSheet>"},
        {"xl/worksheets/sheet1.xml", "<worksheet><sheetViews><sheetView/></sheetViews><sheetData>" + rows +
                                         "</sheetData><mergeCells count=\"0\"/></worksheet>"},
        {"xl/worksheets/sheet2.xml", "<worksheet><sheetData/></worksheet>"},
    };
  }

  // The cells of a sheet as one line of text a row: "first|1.5|2026-11-22|Yes||!problem".
  static std::string shown(const spreadsheet::Sheet& sheet) {
    std::string lines;
    for (const auto& row : sheet.rows) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        if (i > 0) lines += '|';
        const auto* problem = std::get_if<spreadsheet::CellProblem>(&row[i]);
        lines += problem ? "!" + problem->sentence : spreadsheet::textOf(row[i]);
      }
      lines += '\n';
    }
    return lines;
  }
  // What reading gives: the cells, or the sentence that says why there are none.
  static std::string read(const std::filesystem::path& file, const spreadsheet::TextChoice& choice = {}) {
    const auto sheet = spreadsheet::readSheet(file, 0, choice);
    return sheet ? shown(*sheet) : sheet.error();
  }

  std::filesystem::path folder;
};

}  // namespace velmo::test
