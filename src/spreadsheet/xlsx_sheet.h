#pragma once

#include "spreadsheet/archive.h"
#include "spreadsheet/sheet_builder.h"
#include "spreadsheet/xlsx_styles.h"

namespace velmo::spreadsheet {

// What the cells of a sheet refer to.
struct XlsxSheetContext {
  std::vector<std::string> strings;
  std::vector<NumberMeaning> styles;
  bool since1904 = false;  // days are counted from 1904-01-01
};

std::vector<std::string> readSharedStrings(const Archive& archive, const std::string& part);
void readXlsxSheet(const Archive& archive, const std::string& part, const XlsxSheetContext& context,
                   SheetBuilder& builder);

}  // namespace velmo::spreadsheet
