#include "spreadsheet/cell_formats.h"

#include <xlsxwriter.h>

namespace velmo::spreadsheet {
namespace {

void align(lxw_format* format, forms::ColumnAlignment alignment) {
  if (alignment == forms::ColumnAlignment::Right) format_set_align(format, LXW_ALIGN_RIGHT);
  if (alignment == forms::ColumnAlignment::Centre) format_set_align(format, LXW_ALIGN_CENTER);
}

}  // namespace

bool isDatePattern(std::string_view pattern) {
  return pattern != "Fixed" && pattern.find_first_of("dDmMyYhH") != std::string_view::npos;
}

std::string numberFormat(std::string_view pattern) {
  if (pattern == "Fixed") return "0.00";
  std::string format(pattern);
  if (const auto halfDay = format.find("am/pm"); halfDay != std::string::npos) format.replace(halfDay, 5, "AM/PM");
  return format;
}

lxw_format* CellFormats::cell(const std::string& numberFormat, forms::ColumnAlignment alignment) {
  if (numberFormat.empty() && alignment == forms::ColumnAlignment::Left) return nullptr;
  lxw_format*& format = made_[{numberFormat, alignment}];
  if (format) return format;
  format = workbook_add_format(book_);
  if (!numberFormat.empty()) format_set_num_format(format, numberFormat.c_str());
  align(format, alignment);
  return format;
}

lxw_format* CellFormats::caption(forms::ColumnAlignment alignment) {
  lxw_format* format = workbook_add_format(book_);
  format_set_bold(format);
  format_set_bottom(format, LXW_BORDER_THIN);
  align(format, alignment);
  return format;
}

lxw_format* CellFormats::head() {
  lxw_format* format = workbook_add_format(book_);
  format_set_bold(format);
  format_set_font_color(format, LXW_COLOR_BLUE);
  return format;
}

lxw_format* CellFormats::total(const std::string& numberFormat, forms::ColumnAlignment alignment) {
  lxw_format* format = workbook_add_format(book_);
  format_set_bold(format);
  format_set_top(format, LXW_BORDER_THIN);
  if (!numberFormat.empty()) format_set_num_format(format, numberFormat.c_str());
  align(format, alignment);
  return format;
}

}  // namespace velmo::spreadsheet
