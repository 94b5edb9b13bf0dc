#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "guide.h"
#include "printing/preview_window.h"
#include "shell/window/screen_windows.h"

namespace velmo::tour {

namespace {

QWidget& openScreen(Guide& guide, shell::MainShell& shell, const char* screen) {
  shell.workplace().screens.openScreen(screen);
  guide.rest(50);
  return *shell.screens().openWindow(screen);
}

void choose(Guide& guide, QWidget& screen, const char* button) {
  guide.control<QAbstractButton>(screen, button).setChecked(true);
}

void view(Guide& guide, QWidget& screen) {
  guide.control<QPushButton>(screen, "ViewBttn").click();
  guide.rest(50);
}

void print(Guide& guide, QWidget& screen, const std::string& layout) {
  guide.control<QPushButton>(screen, "PrintBttn").click();
  printing::PreviewWindow& preview = guide.preview();
  guide.paper(preview.pages(), "paper-" + layout);
  preview.close();
  guide.rest(20);
}

void setFrom(Guide& guide, QWidget& screen, int month) {
  guide.control<forms::DatePicker>(screen, "BalDt_0").setDay(text::DateTime::fromCalendar(2026, month, 1));
}

void visitTrialBalance(Guide& guide, shell::MainShell& shell) {
  QWidget& screen = openScreen(guide, shell, "AccBalances");
  setFrom(guide, screen, 11);
  view(guide, screen);
  guide.picture(shell, "trial-balance");
  print(guide, screen, "AccBalRpt");
  choose(guide, screen, "TrialOpt_1");
  guide.picture(shell, "trial-balance-two-columns");
  print(guide, screen, "AccBalRpt2");
  choose(guide, screen, "RangeOpt");
  guide.control<QLineEdit>(screen, "CodeFrom").setText("12001002");
  guide.control<QLineEdit>(screen, "CodeTo").setText("21001005");
  view(guide, screen);
  print(guide, screen, "AccBalRptRange2");
  choose(guide, screen, "TrialOpt_0");
  guide.picture(shell, "trial-balance-of-range");
  print(guide, screen, "AccBalRptRange");
  choose(guide, screen, "SelectOpt");
  guide.control<forms::DropCombo>(screen, "Acc").setBoundValue(120);
  choose(guide, screen, "SubTypeOpt");
  guide.control<forms::DropCombo>(screen, "SubList").setBoundValue(12001);
  view(guide, screen);
  guide.picture(shell, "trial-balance-of-type");
  guide.focus(guide.control<QTableView>(screen, "DetailGrid"));
  guide.press(Qt::Key_Down);
  guide.press(Qt::Key_Return);
  guide.picture(shell, "ledger-of-balance");
}

void visitNarrowBalances(Guide& guide, shell::MainShell& shell) {
  QWidget& customers = openScreen(guide, shell, "CustomerBalances");
  setFrom(guide, customers, 11);
  choose(guide, customers, "SelectionOpt_0");
  guide.control<forms::DropCombo>(customers, "SubList").setBoundValue(12001);
  choose(guide, customers, "SelectionOpt_6");
  guide.control<forms::DropCombo>(customers, "RegionList1").setBoundValue(2);
  view(guide, customers);
  guide.picture(shell, "customer-balances");
  print(guide, customers, "AccBalRptCus");
  for (const auto& [name, picture, layout] : {std::tuple("VendorBalances", "vendor-balances", "AccBalRptSup"),
                                              {"CashBalances", "cash-balances", "AccBalRptCash"}}) {
    QWidget& screen = openScreen(guide, shell, name);
    setFrom(guide, screen, 11);
    view(guide, screen);
    guide.picture(shell, picture);
    print(guide, screen, layout);
  }
}

// A job that some of the latest sales and purchases were for.
void visitJobLedger(Guide& guide, shell::MainShell& shell) {
  store::Connection& books = shell.workplace().context.KORDconn;
  store::Recordset jobs(books, "select * from Jobs");
  jobs.addNew({{"JobNo", 1},
               {"JobDesc", "Kitchen of the Harbour Hotel"},
               {"JobDate", text::DateTime::fromCalendar(2026, 11, 2)},
               {"ExpDeliveryDate", "before Christmas"},
               {"CustomerName", "Harbour Hotel"},
               {"EstimatedCost", 4200},
               {"ValueofWork", 5350},
               {"InchargeID", 1},
               {"Status", false}});
  const std::string job = jobs.text("JobID");
  books.execute("update Transactions set JobIDFrom = " + job +
                " where TranDate > #11-17-2026# and (TranType = 32 or TranType = 22)");
  QWidget& screen = openScreen(guide, shell, "JobLedgers");
  guide.control<QComboBox>(screen, "JobList").setCurrentIndex(0);
  view(guide, screen);
  guide.picture(shell, "job-ledger");
}

}  // namespace

void visitBalances(Guide& guide, shell::MainShell& shell) {
  visitTrialBalance(guide, shell);
  visitNarrowBalances(guide, shell);
  visitJobLedger(guide, shell);
}

}  // namespace velmo::tour
