#pragma once

#include <map>
#include <string>
#include <string_view>

#include "forms/recordset_model.h"

struct lxw_format;
struct lxw_workbook;

namespace velmo::spreadsheet {

// Tells a pattern for dates ("dd-mm-yyyy") from one for numbers ("0.00;(0.00)").
bool isDatePattern(std::string_view pattern);

// A pattern of the screens as spreadsheets write it.
std::string numberFormat(std::string_view pattern);

// The looks of a workbook's cells, each made once; the workbook owns them.
class CellFormats {
 public:
  explicit CellFormats(lxw_workbook* book) : book_(book) {}
  // nullptr for the plain look.
  lxw_format* cell(const std::string& numberFormat, forms::ColumnAlignment alignment);
  lxw_format* caption(forms::ColumnAlignment alignment);
  lxw_format* head();
  lxw_format* total(const std::string& numberFormat, forms::ColumnAlignment alignment);

 private:
  lxw_workbook* book_;
  std::map<std::pair<std::string, forms::ColumnAlignment>, lxw_format*> made_;
};

}  // namespace velmo::spreadsheet
