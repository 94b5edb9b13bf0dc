#include "masters/codes/code_series.h"

#include "store/connection/connection.h"

namespace velmo::masters {
namespace {

std::string equals(const char* column, const std::string& parent) {
  return std::string(column) + "=" + (parent.empty() ? "0" : parent);
}

}  // namespace

const frame::CodeSeries& subTypeCodes() {
  static const frame::CodeSeries series{.column = "Level2ID",
                                        .table = "acclevel2",
                                        .ofParent = [](const std::string& type) { return equals("typeid", type); },
                                        .digits = 2};
  return series;
}

const frame::CodeSeries& accountCodes() {
  static const frame::CodeSeries series{
      .column = "AccCode",
      .table = "acclevel3",
      .ofParent = [](const std::string& subType) { return equals("level2id", subType); },
      .digits = 3};
  return series;
}

const frame::CodeSeries& subCategoryCodes() {
  static const frame::CodeSeries series{
      .column = "SubCatID",
      .table = "stocklevel2",
      .ofParent = [](const std::string& category) { return "catid like " + store::quotedWhole(category); },
      .digits = 2};
  return series;
}

}  // namespace velmo::masters
