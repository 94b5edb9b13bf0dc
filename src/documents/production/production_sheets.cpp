#include "documents/production/production_sheets.h"

#include "store/values/names.h"

namespace velmo::documents {

namespace {

constexpr frame::SheetShows inputs{.condition = "stockin is null"};
constexpr frame::SheetShows output{.condition = "stockout is null", .rows = 1};

// A blank sheet with what stands in the lines of the document.
void openAsNew(store::Connection& books, store::Recordset& sheet, std::int64_t tranNo, const frame::SheetShows& shows) {
  store::Recordset written;
  frame::openSheet(books, written, tranNo, shows);
  frame::openSheet(books, sheet, 0, {.condition = {}, .rows = written.recordCount()});
  for (std::int64_t row = 0; row < written.recordCount(); ++row)
    for (int field = 0; field < static_cast<int>(written.fields().size()); ++field) {
      const std::string& name = written.fields()[static_cast<std::size_t>(field)].name;
      if (store::sameName(name, "FlowId") || store::sameName(name, "TranNo")) continue;
      sheet.setAt(row, field, written.valueAt(row, field));
    }
}

}  // namespace

void ProductionSheets::open(store::Connection& books, std::int64_t tranNo, SheetRowsAs rowsAs) {
  const auto open = rowsAs == SheetRowsAs::New ? openAsNew : frame::openSheet;
  open(books, SubTranIn, tranNo, inputs);
  open(books, SubTranOut, tranNo, output);
}

void ProductionSheets::write(const frame::LineStamp& stamp) {
  for (store::Recordset* sheet : {&SubTranIn, &SubTranOut}) frame::writeLines(*sheet, stamp);
}

}  // namespace velmo::documents
