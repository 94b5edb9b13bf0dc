#include "masters/catalogue/item_settings.h"

#include <QLineEdit>

#include "forms/caption.h"
#include "forms/wait_cursor.h"
#include "frame/master/grid_editor.h"
#include "masters/catalogue/item_filter.h"
#include "text/number.h"

namespace velmo::masters {
namespace {

using forms::ColumnAlignment;
using forms::ColumnUse;
using frame::GridEditor;

const forms::TableColumn codeColumn{.caption = "Item Code", .field = "itemcode", .width = 16};
const forms::TableColumn nameColumn{.caption = "Item Name", .field = "itemname", .width = 40};
const forms::TableColumn unitColumn{.caption = "Unit", .field = "unit", .width = 8};

forms::TableColumn figureColumn(const char* caption, const char* field) {
  return {.caption = caption,
          .field = field,
          .format = "0.00",
          .alignment = ColumnAlignment::Right,
          .width = 14,
          .use = ColumnUse::Editable,
          .figures = forms::FigureKind::Exact};
}

std::function<void(GridEditor&, QHBoxLayout&)> filteredItems(const char* columns) {
  return [=](GridEditor& editor, QHBoxLayout& row) { addItemFilter(editor, row, columns); };
}

// The selling price of every row on show becomes its purchase price and the margin on it.
void applyMargin(GridEditor& editor) {
  auto* box = editor.findChild<QLineEdit*>("ProfitTxt");
  const std::optional<double> margin = text::numberFrom(box->text().toStdString());
  if (!margin) {
    editor.workplace().prompts.tell("Cannot Update", "Enter profit margin in numeric.");
    box->setFocus();
    box->selectAll();
    return;
  }
  const forms::WaitCursor wait;
  store::Recordset& items = editor.model().rows();
  const int purchase = items.fieldIndex("purchaseprice");
  const int selling = items.fieldIndex("sellingprice");
  const std::int64_t count = items.recordCount();
  for (std::int64_t row = 0; row < count; ++row)
    items.setAt(row, selling, store::numberOf(items.valueAt(row, purchase)) * (1 + *margin / 100));
  editor.noteEdits();
}

void setMethod(GridEditor& editor, bool weightedAverage) {
  const forms::WaitCursor wait;
  store::Recordset& items = editor.model().rows();
  const int method = items.fieldIndex("ValuationType");
  const std::int64_t count = items.recordCount();
  for (std::int64_t row = 0; row < count; ++row) items.setAt(row, method, weightedAverage);
  editor.noteEdits();
}

void flipMethod(GridEditor& editor, int row) {
  store::Recordset& items = editor.model().rows();
  const int method = items.fieldIndex("ValuationType");
  items.setAt(row, method, !store::isYes(items.valueAt(row, method)));
  editor.noteEdits();
}

}  // namespace

QWidget* makeInvPrices(session::Workplace& workplace, QWidget* parent) {
  return new frame::GridDialog(
      {.screen = "InvPrices",
       .title = "Items Price Settings",
       .grid = "Grid",
       .columns = {codeColumn, nameColumn, unitColumn, figureColumn("Purchase Price", "purchaseprice"),
                   figureColumn("Selling Price", "sellingprice")},
       .filters =
           [](GridEditor& editor, QHBoxLayout& row) {
             addItemFilter(editor, row, "itemcode, itemname, unit, purchaseprice, sellingprice");
             auto* margin = new QLineEdit;
             margin->setObjectName("ProfitTxt");
             margin->setAlignment(Qt::AlignRight);
             margin->setFixedWidth(72);
             row.addWidget(forms::captionFor(*margin, "Profit margin %"));
             row.addWidget(margin);
           },
       .commands = {{"UpdateBttn", "Update Selling Prices",
                     "Sets the selling price of every item on show to its purchase price and the margin",
                     applyMargin}}},
      workplace, parent);
}

QWidget* makeInvReorderSettings(session::Workplace& workplace, QWidget* parent) {
  return new frame::GridDialog(
      {.screen = "InvReorderSettings",
       .title = "Items Re-Order Levels",
       .grid = "Grid",
       .columns = {codeColumn, nameColumn, unitColumn, figureColumn("Re-Order Level", "reorderlevel")},
       .filters = filteredItems("itemcode, itemname, unit, reorderlevel")},
      workplace, parent);
}

QWidget* makeInvValuation(session::Workplace& workplace, QWidget* parent) {
  return new frame::GridDialog(
      {.screen = "InvValuation",
       .title = "Items Cost Valuation Method",
       .grid = "Grid",
       .hint = "Double-click on an item, or press the space bar, to change its valuation method.",
       .columns = {codeColumn,
                   nameColumn,
                   {.caption = "Valuation Method",
                    .field = "ValuationType",
                    .width = 26,
                    .yes = "Weighted Average Cost",
                    .no = "Manual Cost"}},
       .filters = filteredItems("itemcode, itemname, ValuationType"),
       .commands = {{"WABttn", "Set Weighted Average on all Items", "All items on show",
                     [](GridEditor& editor) { setMethod(editor, true); }},
                    {"PPBttn", "Set Manual Cost on all Items.", "All items on show",
                     [](GridEditor& editor) { setMethod(editor, false); }}},
       .doubleClicked = flipMethod},
      workplace, parent);
}

}  // namespace velmo::masters
