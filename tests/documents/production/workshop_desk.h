#pragma once

#include "documents/invoice_company.h"
#include "documents/production/production_screens.h"

namespace velmo::test {

// A company with a product, P1, beside the hammers at a cost of 10 and the nails at 0.1.
class WorkshopCompany : public InvoiceCompany {
 public:
  WorkshopCompany() {
    run("INSERT INTO StockLevel3 (ItemCode, ItemName, Description, SellingPrice, PurchasePrice, Unit, Status, CatID, "
        "SubCatID, ValuationType) VALUES ('P1', 'Hammer Box', '', 90, 0, 'Set', No, 'TOO', 'TOO01', Yes)");
    run("UPDATE StockLevel3 SET ValuationCost2 = 10, ValuationType = Yes WHERE ItemCode = 'H1'");
    run("UPDATE StockLevel3 SET ValuationCost2 = 0.1, ValuationType = Yes WHERE ItemCode = 'N1'");
    context.ItemsRS.requery();
  }

  struct Component {
    std::string code;
    double quantity;
    double rate;
  };
  // A recipe as its screen writes it, of any year.
  std::int64_t addRecipe(const std::string& product, const std::vector<Component>& components, double labour = 0,
                         double overhead = 0, double writtenFor = 1, int fyid = 1) {
    store::Recordset tran(context.KORDconn, "select * from transactions where tranno=0");
    tran.addNew({{"DocNo", std::int64_t{++lastRecipe_}},
                 {"TranType", std::int64_t{95}},
                 {"FYID", std::int64_t{fyid}},
                 {"Text1", product},
                 {"Tax1", labour},
                 {"Tax2", overhead},
                 {"AdditionalTax", writtenFor},
                 {"UserAdded", std::int64_t{1}},
                 {"UserEdited", std::int64_t{1}},
                 {"Cancel", true},
                 {"InvLedger", true}});
    std::int64_t serial = 0;
    store::Recordset lines(context.KORDconn, "select * from stockflow where tranno=0");
    for (const Component& component : components)
      lines.addNew({{"TranNo", tran.integer("TranNo")},
                    {"Serial", ++serial},
                    {"ItemCode", component.code},
                    {"ItemName", "of the recipe"},
                    {"StockOut", component.quantity},
                    {"Unit", "Pcs"},
                    {"Rate", component.rate},
                    {"GrossAmt", component.quantity * component.rate}});
    return tran.integer("TranNo");
  }

 private:
  int lastRecipe_ = 0;
};

// A screen with one or two grids under a person's hands.
class WorkshopScreen : public InvoiceScreen {
 public:
  WorkshopScreen(WorkshopCompany& company, Make make) : InvoiceScreen(company, noVoucher, make) {}

  frame::ItemGrid& grid(const char* name) {
    QWidget* widget = &find<QTableView>(name);
    while (!qobject_cast<frame::ItemGrid*>(widget)) widget = widget->parentWidget();
    return *qobject_cast<frame::ItemGrid*>(widget);
  }
  bool cell(const char* name, int row, frame::GridColumn column, const QString& text) {
    find<QTableView>(name).setFocus(Qt::TabFocusReason);
    grid(name).setCurrentCell(row, column);
    test::type(*QApplication::focusWidget(), text.left(1));
    test::type(*QApplication::focusWidget(), text.mid(1));
    if (grid(name).commitEdit()) return true;
    grid(name).cancelEdit();
    return false;
  }
  void line(const char* name, int row, const QString& code, const QString& quantity, const QString& rate = {}) {
    cell(name, row, frame::GridColumn::ItemCode, code);
    cell(name, row, frame::GridColumn::Quantity, quantity);
    if (!rate.isEmpty()) cell(name, row, frame::GridColumn::Rate, rate);
  }
  std::string shown(const char* name, int row, frame::GridColumn column) {
    return grid(name).sheet().shownText(row, column);
  }
};

}  // namespace velmo::test
