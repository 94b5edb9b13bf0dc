#pragma once

#include <QTableView>

#include "printing/painter.h"
#include "printing/preview_window.h"
#include "support/company_session.h"

namespace velmo::test {

struct LedgerLine {
  std::int64_t account;
  double debit;
  double credit;
  std::string desc = {};
};

struct LedgerDocument {
  const char* day;  // "07-01-2026", month first
  int tranType = 41;
  std::vector<LedgerLine> lines = {};
  bool cancelled = false;
  int docNo = 0;  // 0: the next one
  std::string reference = {};
};

// A user of a company with ledgers, and a report that he has open.
class LedgerCompany : public CompanySession {
 protected:
  using Make = QWidget* (*)(session::Workplace&, QWidget*);

  LedgerCompany() {
    logIn();
    addAccount(12001002, "O'Brien & Sons");
    addAccount(12001003, "Quiet Customer");
    addAccount(40001009, "Shop Sales");
    context->AccountsRS.open(context->KORDconn, "SELECT * from AccLevel3 order by acccode");
  }

  void addAccount(int code, const std::string& name) {
    context->KORDconn.execute("INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (" +
                              std::to_string(code) + ", " + store::quoted(name) + ", " + std::to_string(code / 100000) +
                              ", " + std::to_string(code / 1000) + ")");
  }

  std::int64_t post(const LedgerDocument& document) {
    ++lastTranNo_;
    context->KORDconn.execute(
        "INSERT INTO Transactions (TranNo, DocNo, TranDate, TranType, FYID, Cancel, InvLedger, D1) VALUES (" +
        std::to_string(lastTranNo_) + ", " + std::to_string(document.docNo > 0 ? document.docNo : lastTranNo_) + ", #" +
        document.day + "#, " + std::to_string(document.tranType) + ", " + std::to_string(context->FYID) + ", " +
        (document.cancelled ? "Yes" : "No") + ", No, " + store::quoted(document.reference) + ")");
    for (const LedgerLine& line : document.lines)
      context->KORDconn.execute("INSERT INTO SubTransactions (TranNo, AccCode, AccName, Desc, Debit, Credit) VALUES (" +
                                std::to_string(lastTranNo_) + ", " + std::to_string(line.account) + ", 'Account', " +
                                store::quoted(line.desc) + ", " + std::to_string(line.debit) + ", " +
                                std::to_string(line.credit) + ")");
    return lastTranNo_;
  }

  void open(Make make) {
    dialog.reset(make(*workplace, nullptr));
    dialog->show();
    QApplication::setActiveWindow(dialog.get());
    QApplication::processEvents();
  }
  // The cells of a column from the first row down.
  std::vector<std::string> column(const char* grid, const char* caption) {
    QAbstractItemModel& model = *control<QTableView>(grid).model();
    for (int i = 0; i < model.columnCount(); ++i) {
      if (model.headerData(i, Qt::Horizontal).toString() != QLatin1String(caption)) continue;
      std::vector<std::string> cells;
      for (int row = 0; row < model.rowCount(); ++row)
        cells.push_back(model.index(row, i).data().toString().toStdString());
      return cells;
    }
    throw std::logic_error(std::string("no column ") + caption);
  }
  std::string caption(const char* label) { return control<QLabel>(label).text().toStdString(); }
  // The texts of all pages of the print-out that was opened last, which is closed.
  std::vector<std::string> printed() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* preview = qobject_cast<printing::PreviewWindow*>(window);
      if (!preview || !preview->isVisible()) continue;
      std::vector<std::string> texts;
      while (!preview->pages().complete()) preview->pages().makeFor(1000);
      pages = preview->pages().total();
      for (int i = 0; i < pages; ++i)
        for (const printing::TextRun& run : preview->pages().page(i)->drawing.texts)
          texts.push_back(printing::drawnText(preview->pages().page(i)->drawing, run, pages).toStdString());
      preview->close();
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      return texts;
    }
    ADD_FAILURE() << "no print-out was opened";
    return {};
  }

  int pages = 0;  // of the last print-out

 private:
  std::int64_t lastTranNo_ = 1000;
};

}  // namespace velmo::test
