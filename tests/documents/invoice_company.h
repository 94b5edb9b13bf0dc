#pragma once

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "documents/invoices/sale_invoice.h"
#include "frame/document/document_screen.h"
#include "frame/items/item_grid.h"
#include "session/login.h"
#include "support/new_company.h"
#include "support/queued_prompts.h"
#include "support/typing.h"

namespace velmo::test {

// A logged-in company with two customers, an item in stock and a sale order.
class InvoiceCompany {
 public:
  InvoiceCompany() {
    NewCompany::run({
        "INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID, Address, Phone, CreditLimit, CreditTerms, EmpID) "
        "VALUES (12001002, 'O''Brien & Sons', 120, 12001, '1 High St', '555-1', 1000, 'Net 30', 1)",
        "INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID, Address, Phone, CreditLimit, CreditTerms, EmpID) "
        "VALUES (12001003, 'Zoe Builders', 120, 12001, '', '', 0, 'CASH', 1)",
        "INSERT INTO StockLevel1 (CatID, CatName) VALUES ('TOO', 'Tools')",
        "INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('TOO01', 'Hand Tools', 'TOO')",
        "INSERT INTO StockLevel3 (ItemCode, ItemName, Description, SellingPrice, PurchasePrice, Unit, Status, CatID, "
        "SubCatID) VALUES ('H1', 'Hammer', 'Claw', 50, 30, 'Pcs', No, 'TOO', 'TOO01')",
        "INSERT INTO StockLevel3 (ItemCode, ItemName, Description, SellingPrice, PurchasePrice, Unit, Status, CatID, "
        "SubCatID) VALUES ('N1', 'Nail', '', 0.335, 0.1, 'Pcs', No, 'TOO', 'TOO01')",
        "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, D1, UserAdded, UserEdited) "
        "VALUES (1, #10-05-2026#, 93, 1, No, Yes, 'PO-9', 1, 1)",
        "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, UserAdded, UserEdited) VALUES "
        "(1, #01-01-2026#, 45, 1, No, No, 1, 1)",
        "INSERT INTO Users (UserID, UserName) VALUES (2, 'Clerk')",
    });
    context.KORDconn.open(schema::plainConnectionString);
    store::Recordset stock(context.KORDconn, "select tranno from transactions where trantype=45");
    const std::string tranNo = stock.text("tranno");
    for (const char* item : {"H1", "N1"})
      context.KORDconn.execute("INSERT INTO StockFlow (TranNo, ItemCode, StockIn) VALUES (" + tranNo + ", '" + item +
                               "', 100000)");
    session::fillLoginContext(context, session::LoginRecords(context.KORDconn));
    clock.moment = text::DateTime::fromCalendar(2026, 11, 22, 10, 30, 15);
    screens.known.emplace();
    context.UserID = 1;
    context.currencyname = "Rupees";
    context.ccode = "Rs.";
    context.AccountsRS.open(context.KORDconn, "SELECT * from AccLevel3 order by acccode", store::LockType::ReadOnly);
    context.ItemsRS.open(context.KORDconn, "SELECT * FROM StockLevel3 ORDER BY ItemCode", store::LockType::ReadOnly);
  }

  // The rows of a statement, one text each, fields parted by "|".
  std::vector<std::string> rows(std::string_view statement) {
    std::vector<std::string> all;
    store::Recordset found(context.KORDconn, statement, store::LockType::ReadOnly);
    for (; !found.eof(); found.moveNext()) {
      std::string row;
      for (const store::FieldInfo& field : found.fields()) row += (row.empty() ? "" : "|") + found.text(field.name);
      all.push_back(row);
    }
    return all;
  }
  std::string one(std::string_view statement) {
    const std::vector<std::string> all = rows(statement);
    return all.size() == 1 ? all.front() : std::to_string(all.size()) + " rows";
  }
  std::string tranNo(int tranType, int docNo = 1) {
    return one("select tranno from transactions where trantype=" + std::to_string(tranType) +
               " and docno=" + std::to_string(docNo));
  }
  void run(const std::string& statement) { context.KORDconn.execute(statement); }

  NewCompany company;
  session::LoginContext context{schema::companyCatalog()};
  SetClock clock;
  QueuedPrompts prompts;
  NamedFile files;
  NotedScreens screens;
  session::Workplace workplace{context, clock, prompts, files, screens};
};

// Screens have the command, and nothing comes of it.
inline const frame::PrintOuts noVoucher{.voucher = [](session::Workplace&, std::int64_t, QWidget*) {}};

// A document screen, of sale invoices unless told otherwise, under a person's hands.
class InvoiceScreen {
 public:
  using Make = QWidget* (*)(session::Workplace&, QWidget*, frame::PrintOuts);

  explicit InvoiceScreen(InvoiceCompany& shop, frame::PrintOuts printOuts = {},
                         Make make = documents::makeSaleInvoicesSimple)
      : shop_(shop), screen_(make(shop.workplace, nullptr, std::move(printOuts))) {
    screen_->resize(1280, 800);
    screen_->show();
    QApplication::setActiveWindow(screen_.get());
  }

  QWidget& widget() { return *screen_; }
  template <class Widget>
  Widget& find(const char* name) {
    Widget* found = screen_->findChild<Widget*>(name);
    if (!found) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }
  static std::string entries(const QComboBox& list) {
    QStringList all;
    for (int i = 0; i < list.count(); ++i) all << list.itemText(i);
    return all.join(u'|').toStdString();
  }
  QLineEdit& box(const char* name) { return find<QLineEdit>(name); }
  std::string text(const char* name) { return box(name).text().toStdString(); }

  void press(const char* button) { find<QPushButton>(button).click(); }
  void type(const char* name, const QString& text) {
    QLineEdit& line = box(name);
    line.setFocus(Qt::TabFocusReason);
    line.selectAll();
    test::press(line, Qt::Key_Delete);
    test::type(line, text);
    test::press(line, Qt::Key_Tab);
  }
  void typeCell(int row, frame::GridColumn column, const QString& text) {
    auto& lines = *screen_->findChild<frame::ItemGrid*>();
    find<QTableView>("Grid").setFocus(Qt::TabFocusReason);
    lines.setCurrentCell(row, column);
    test::type(*QApplication::focusWidget(), text.left(1));
    test::type(*QApplication::focusWidget(), text.mid(1));
    lines.commitEdit();
  }
  void line(int row, const QString& code, const QString& quantity, const QString& rate = {}) {
    typeCell(row, frame::GridColumn::ItemCode, code);
    typeCell(row, frame::GridColumn::Quantity, quantity);
    if (!rate.isEmpty()) typeCell(row, frame::GridColumn::Rate, rate);
  }
  // A document of its kind, as from another screen.
  void show(std::int64_t tranNo) {
    shop_.context.OpenTranNo = tranNo;
    static_cast<frame::DocumentScreen&>(*screen_).ShowRecord();
  }
  void show(const std::string& tranNo) { show(std::stoll(tranNo)); }
  // From the lines, by keyboard.
  void save() { test::press(find<QTableView>("Grid"), Qt::Key_S, Qt::ControlModifier); }

  // A customer's invoice of two hammers, saved.
  void saveInvoice(const QString& customer, const QString& received = {}) {
    type("PartyCodeTxt", customer);
    line(0, "H1", "2");
    if (!received.isEmpty()) type("Received", received);
    press("SaveBttn");
  }
  // Drives the modal Find screen from inside its event loop.
  void withFind(const char* name, const std::function<void(QDialog&)>& work) {
    QTimer::singleShot(0, screen_.get(), [&] {
      auto* find = screen_->findChild<QDialog*>(name);
      ASSERT_NE(find, nullptr);
      work(*find);
      if (find->isVisible()) find->reject();
    });
    press("EditBttn");
  }

 private:
  InvoiceCompany& shop_;
  std::unique_ptr<QWidget> screen_;
};

}  // namespace velmo::test
