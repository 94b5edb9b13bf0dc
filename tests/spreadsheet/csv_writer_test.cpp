#include "spreadsheet/csv_writer.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <fstream>
#include <iterator>

namespace velmo::spreadsheet {
namespace {

TEST(SeparatedValues, GuardTextsThatASpreadsheetWouldRun) {
  const QTemporaryDir folder;
  const std::filesystem::path file = folder.filePath("list.csv").toStdString();
  const std::vector<std::vector<store::Value>> list = {
      {std::string("=1+1"), std::string("\uFF1Dcmd"), std::string("-\"x\", y")},
      {std::string("@a"), std::string("\uFF0B1"), std::string("\uFF0Db\uFF20")},
      {std::string("-12.5"), std::string("\uFF20c"), -12.5},
      {std::string("a=b"), std::string("=\nline"), store::Null{}}};
  std::size_t row = 0;
  const auto saved = saveSeparatedValues(file, {.title = "List", .columns = {{"A"}, {"B"}, {"C"}}},
                                         [&](std::span<store::Value> cells) {
                                           if (row == list.size()) return false;
                                           std::ranges::copy(list[row++], cells.begin());
                                           return true;
                                         });
  ASSERT_EQ(saved, 4);
  std::ifstream stream(file, std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}),
            "\xEF\xBB\xBF"
            "A,B,C\r\n'=1+1,'\uFF1Dcmd,\"'-\"\"x\"\", y\"\r\n'@a,'\uFF0B1,'\uFF0Db\uFF20\r\n-12.5,'\uFF20c,-12.5\r\n"
            "a=b,\"'=\nline\",\r\n");
}

}  // namespace
}  // namespace velmo::spreadsheet
