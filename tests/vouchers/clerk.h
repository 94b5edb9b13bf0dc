#pragma once

#include <QRadioButton>

#include "support/plain_rows.h"
#include "vouchers/settlement/pending_items.h"
#include "vouchers/settlement/settlement_company.h"
#include "vouchers/settlement/settlement_types.h"

namespace velmo::test {

// Receipts and payments under a clerk's hands.
class Clerk : public InvoiceScreen {
 public:
  Clerk(SettlementCompany& company, Make make, frame::PrintOuts printOuts = {})
      : InvoiceScreen(company, std::move(printOuts), make) {}

  void cell(const char* grid, int row, int column, const QString& text) {
    auto& table = find<QTableView>(grid);
    table.setFocus(Qt::TabFocusReason);
    table.setCurrentIndex(table.model()->index(row, column));
    if (text.isEmpty()) return test::press(table, Qt::Key_Delete);
    test::type(*QApplication::focusWidget(), text.left(1));
    test::type(*QApplication::focusWidget(), text.mid(1));
    test::press(*QApplication::focusWidget(), Qt::Key_Return);
    auto* stillOpen = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    if (stillOpen && stillOpen->isVisible()) test::press(*stillOpen, Qt::Key_Escape);  // the cell refused the text
  }
  std::string shown(const char* grid, int row, int column) {
    return find<QTableView>(grid).model()->index(row, column).data().toString().toStdString();
  }
  void petty() { find<QRadioButton>("RecOpt_1").click(); }
  // A receipt of the customer, or a payment to the vendor, that settles these invoices in full.
  void settle(const QString& money, const QString& party, std::initializer_list<const char*> invoices) {
    type("BankCode", money);
    type("PartyCode", party);
    int row = 0;
    for (const char* invoice : invoices) cell("AgingGrid", row++, 0, invoice);
  }
};

inline std::vector<std::string> ledgerOf(SettlementCompany& company, const std::string& tranNo) {
  return company.rows("select acccode, [desc], debit, credit from subtransactions where tranno=" + tranNo +
                      " order by serial");
}

inline std::vector<std::string> pendingOf(SettlementCompany& company, const vouchers::SettlementKind& kind,
                                          std::int64_t party) {
  std::vector<std::string> all;
  for (store::Recordset rows(company.context.KORDconn, vouchers::pendingStatement(kind, party, 1)); !rows.eof();
       rows.moveNext())
    all.push_back(rows.text(vouchers::keyColumn(kind)) + " " + rows.text("BalAmt"));
  return all;
}

// The rows of the company's file as SQLite alone has them, fields parted by "|".
inline std::vector<std::string> bareRows(const SettlementCompany& company, const std::string& sql) {
  PlainFile file(company.company.file());
  return plainTexts(file, sql);
}

}  // namespace velmo::test
