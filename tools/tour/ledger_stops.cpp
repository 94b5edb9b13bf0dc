#include <QAbstractButton>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "forms/date_picker.h"
#include "guide.h"
#include "printing/preview_window.h"
#include "shell/window/screen_windows.h"

namespace velmo::tour {

namespace {

constexpr const char* customer = "12001007";

QWidget& openScreen(Guide& guide, shell::MainShell& shell, const char* screen) {
  shell.workplace().screens.openScreen(screen);
  guide.rest(50);
  return *shell.screens().openWindow(screen);
}

// What a screen's button prints.
void print(Guide& guide, QWidget& screen, const char* button, const std::string& layout) {
  guide.control<QPushButton>(screen, button).click();
  printing::PreviewWindow& preview = guide.preview();
  guide.paper(preview.pages(), "paper-" + layout);
  preview.close();
  guide.rest(20);
}

void setFrom(Guide& guide, QWidget& screen, int month, int day) {
  guide.control<forms::DatePicker>(screen, "LedgerDt_0").setDay(text::DateTime::fromCalendar(2026, month, day));
}

// The customer's year, and the last weeks of it.
void visitLedger(Guide& guide, shell::MainShell& shell) {
  QWidget& screen = openScreen(guide, shell, "AccLedgers");
  auto& code = guide.control<QLineEdit>(screen, "ACodeTxt");
  guide.focus(code);
  guide.type(QStringLiteral("12001"));
  guide.picture(shell, "ledger-account-list");
  code.setText(QString::fromLatin1(customer));
  guide.press(Qt::Key_Return);
  guide.control<QPushButton>(screen, "ViewBttn").click();
  guide.picture(shell, "ledger");
  guide.control<QCheckBox>(screen, "DateOpt").setChecked(true);
  setFrom(guide, screen, 10, 1);
  guide.control<QPushButton>(screen, "ViewBttn").click();
  guide.picture(shell, "ledger-of-period");
  print(guide, screen, "PrintBttn", "AccLedger");
}

void visitLedgers(Guide& guide, shell::MainShell& shell) {
  const auto choose = [&](QWidget& dialog, const char* name) {
    guide.control<QAbstractButton>(dialog, name).setChecked(true);
  };
  guide.inDialog([&] { shell.workplace().screens.openDialog("PrintLedgers"); },
                 [&](QWidget& dialog) {
                   guide.rest(500);
                   choose(dialog, "LedgerOpt_2");
                   for (const auto& [box, account] : {std::pair("CodeFrom", "12001003"), std::pair("CodeTo", customer)})
                     guide.control<QLineEdit>(dialog, box).setText(QString::fromLatin1(account));
                   choose(dialog, "PeriodOpt");
                   setFrom(guide, dialog, 10, 1);
                   guide.picture(dialog, "print-ledgers");
                   print(guide, dialog, "PrintBttn", "AccLedgerMulti");
                 });
}

void visitDayBook(Guide& guide, shell::MainShell& shell) {
  QWidget& screen = openScreen(guide, shell, "DailyJournal");
  setFrom(guide, screen, 11, 16);
  guide.control<QPushButton>(screen, "ViewBttn").click();
  guide.picture(shell, "day-book");
  print(guide, screen, "PrintBttn", "GJ");
}

void visitVouchers(Guide& guide, shell::MainShell& shell) {
  guide.inDialog(
      [&] { shell.workplace().screens.openDialog("PrintVouchers"); },
      [&](QWidget& dialog) {
        const auto choose = [&](const char* name) { guide.control<QAbstractButton>(dialog, name).setChecked(true); };
        choose("TypeOpt_6");
        choose("Selection_1");
        guide.control<forms::DatePicker>(dialog, "DateFrom").setDay(text::DateTime::fromCalendar(2026, 11, 1));
        guide.picture(dialog, "print-vouchers");
        print(guide, dialog, "PreviewBttn", "Voucher1-run");
        choose("TypeOpt_4");
        print(guide, dialog, "PreviewBttn", "Voucher2-run");
      });
}

// Documents that another program changed in the file, as the check in idle moments leads to them; none stays so.
void visitUnbalanced(Guide& guide, shell::MainShell& shell) {
  store::Connection& company = shell.workplace().context.KORDconn;
  const store::Connection::Transaction undone(company);
  company.execute("UPDATE SubTransactions SET Debit = Debit + 123456789012.25 WHERE Debit > 5000");
  openScreen(guide, shell, "UnbalancedDocuments");
  guide.picture(shell, "unbalanced-documents");
}

}  // namespace

void visitLedgerReports(Guide& guide, shell::MainShell& shell) {
  visitLedger(guide, shell);
  visitLedgers(guide, shell);
  visitDayBook(guide, shell);
  visitVouchers(guide, shell);
  visitUnbalanced(guide, shell);
}

}  // namespace velmo::tour
