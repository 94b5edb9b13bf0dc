#include "masters/catalogue/search_item.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "forms/caption.h"
#include "frame/master/grid_editor.h"
#include "store/connection/connection.h"

namespace velmo::masters {
namespace {

using forms::ColumnAlignment;
using frame::GridEditor;

forms::TableColumn figureColumn(const char* caption, const char* field) {
  return {.caption = caption,
          .field = field,
          .format = "#,##0.00;(#,##0.00)",
          .alignment = ColumnAlignment::Right,
          .width = 11,
          .figures = forms::FigureKind::Exact};
}

void addSearch(GridEditor& editor, QHBoxLayout& row) {
  auto* box = new QLineEdit;
  box->setObjectName("SearchBox");
  box->setClearButtonEnabled(true);
  auto* find = new QPushButton(GridEditor::tr("&Find"));
  find->setObjectName("FindBttn");
  find->setToolTip(GridEditor::tr("Shows the items whose code holds the text (Enter)"));
  find->setDefault(true);
  row.addWidget(forms::captionFor(*box, "Item &code"));
  row.addWidget(box, 1);
  row.addWidget(find);
  session::LoginContext& context = editor.workplace().context;
  const auto search = [&editor, &context, box] {
    editor.show(stockByItem(context.FYID, box->text().toStdString()));
    editor.grid().setFocus();
  };
  QObject::connect(find, &QPushButton::clicked, &editor, search);
  box->setText(QString::fromStdString(context.SearchText));
  search();
}

}  // namespace

// The lines of other items are left out before the documents are looked up: there are many.
std::string stockByItem(int fyid, const std::string& typed) {
  const std::string pattern = store::quoted("%" + typed + "%");
  return "SELECT StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3.SellingPrice, Sum(Query1.Bal) AS SumOfBal, "
         "StockLevel3.Unit, StockLevel3.Rack, StockLevel2.SubCatName, StockLevel1.CatName FROM (SELECT "
         "StockFlow.ItemCode, IIf(IsNull([StockIn]),0,[StockIn]) AS StocksIn, IIf(IsNull([Stockout]),0,[Stockout]) AS "
         "Stocksout, [Stocksin]-[Stocksout] AS Bal FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = "
         "StockFlow.TranNo WHERE Transactions.FYID=" +
         std::to_string(fyid) +
         " AND Transactions.Cancel=No AND Transactions.InvLedger=No AND StockFlow.ItemCode like " + pattern +
         ") AS Query1 RIGHT JOIN ((StockLevel1 INNER JOIN StockLevel2 ON StockLevel1.CatID = StockLevel2.CatID) INNER "
         "JOIN StockLevel3 ON StockLevel2.SubCatID = "
         "StockLevel3.SubCatID) ON Query1.ItemCode = StockLevel3.ItemCode WHERE StockLevel3.ItemCode like " +
         pattern +
         " GROUP BY StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3.SellingPrice, StockLevel3.Unit, "
         "StockLevel3.Rack, StockLevel2.SubCatName, StockLevel1.CatName ORDER BY StockLevel3.ItemCode";
}

QWidget* makeSearchItem(session::Workplace& workplace, QWidget* parent) {
  return new frame::GridDialog({.screen = "SearchItem",
                                .title = "Search Item",
                                .grid = "ItemGrid",
                                .columns = {{.caption = "Item Code", .field = "ItemCode", .width = 14},
                                            {.caption = "Item Name", .field = "ItemName", .width = 34},
                                            figureColumn("Selling Price", "SellingPrice"),
                                            figureColumn("In Stock", "SumOfBal"),
                                            {.caption = "Unit", .field = "Unit", .width = 5},
                                            {.caption = "Rack", .field = "Rack", .width = 6},
                                            {.caption = "Sub Category", .field = "SubCatName", .width = 16},
                                            {.caption = "Category", .field = "CatName", .width = 12}},
                                .filters = addSearch,
                                .saves = false},
                               workplace, parent);
}

}  // namespace velmo::masters
