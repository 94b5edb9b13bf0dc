#include "documents/count/count_print.h"

#include <map>

#include "printing/list_sheet.h"
#include "printing/vector_data.h"
#include "text/format.h"

namespace velmo::documents {

using namespace printing;

namespace {

constexpr const char* itemsMember = "Items";

Column figures(const char* heading, const char* field) {
  return {
      .heading = heading, .dataField = field, .width = mm(28), .align = Align::Right, .format = "#,##0.00;(#,##0.00)"};
}

std::vector<DataRow> rowsOf(const CountSheet& sheet) {
  std::map<std::string, DataRow> categories;
  for (std::size_t i = 0; i < sheet.size(); ++i) {
    const CountSheet::Line& line = sheet.line(i);
    DataRow& category = categories[line.goods.category];
    category.fields["CatName"] = line.goods.category;
    category.chapters[itemsMember].push_back(
        {.fields = {{"ItemCode", line.goods.code},
                    {"ItemName", line.goods.name},
                    {"Unit", line.goods.unit},
                    {"Book", line.goods.book},
                    {"Counted", line.counted ? store::Value(*line.counted) : store::Value(store::Null{})}}});
  }
  std::vector<DataRow> rows;
  for (auto& [name, category] : categories) rows.push_back(std::move(category));
  return rows;
}

}  // namespace

Report countPrint(const session::LoginContext& context, const CountSheet& sheet, const CountPlace& place,
                  const std::string& location, BookOnPaper book, const text::DateTime& today) {
  std::vector<Column> columns = {codeColumn("Item Code", "ItemCode"),
                                 {.heading = "Description", .dataField = "ItemName"},
                                 {.heading = "Unit", .dataField = "Unit", .width = mm(14)}};
  if (book == BookOnPaper::Shown) columns.push_back(figures("Book Quantity", "Book"));
  columns.push_back(figures("Counted", "Counted"));
  return listReport(
      context,
      {.title = "Count Sheet of " + location + ", as at " + text::formatDate(place.moment, "dd-mm-yyyy hh:nn:ss"),
       .levels = {{.dataMember = "Categories", .nameField = "CatName"}},
       .dataMember = itemsMember,
       .columns = std::move(columns),
       .counted = "Items"},
      std::make_shared<VectorData>(rowsOf(sheet)), today);
}

}  // namespace velmo::documents
