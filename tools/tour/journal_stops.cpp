#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>

#include "guide.h"
#include "printing/preview_window.h"
#include "shell/window/screen_windows.h"

namespace velmo::tour {

namespace {

struct JournalLine {
  const char* account;
  const char* description;
  int side;  // column of the amount
  const char* amount;
};
constexpr int debit = 3;
constexpr int credit = 4;

// What November cost. The first picture is taken before the last line.
constexpr JournalLine lines[] = {{"60002002", "Rent of the store", debit, "1500"},
                                 {"60002001", "Stock clerk", debit, "850.50"},
                                 {"60002009", "", debit, "49.50"},
                                 {"11001001", "", credit, "1500"},
                                 {"10001001", "Paid from the till", credit, "900"}};

class Journal {
 public:
  Journal(Guide& guide, shell::MainShell& shell) : guide_(guide) {
    shell.workplace().screens.openScreen("GeneralJournal");
    guide.rest(50);
    screen_ = shell.screens().openWindow("GeneralJournal");
    grid_ = &guide.control<QTableView>(*screen_, "Grid");
  }

  void type(int row, const JournalLine& line) {
    cell(row, 0, line.account);
    if (*line.description) cell(row, 2, line.description);
    cell(row, line.side, line.amount);
  }
  template <typename Control>
  Control& control(const char* name) {
    return guide_.control<Control>(*screen_, name);
  }

 private:
  void cell(int row, int column, const char* text) {
    guide_.focus(*grid_);
    grid_->setCurrentIndex(grid_->model()->index(row, column));
    guide_.type(QString::fromLatin1(text));
    guide_.press(Qt::Key_Return);
  }

  Guide& guide_;
  QWidget* screen_;
  QTableView* grid_;
};

// Shows a saved document of a type again and prints it.
void printNote(Guide& guide, shell::MainShell& shell, const char* screenName, int tranType, const char* nature,
               const char* command, const char* name) {
  session::LoginContext& context = shell.workplace().context;
  const store::Recordset found(context.KORDconn,
                               "SELECT TranNo FROM Transactions WHERE TranType=" + std::to_string(tranType) +
                                   " and Nature=" + store::quoted(nature) + " ORDER BY carriage DESC, TranNo DESC");
  if (found.isEmpty()) throw std::logic_error(std::string("the tour's company has no document for ") + name);
  context.OpenTranFlag = true;
  context.OpenTranNo = found.integer("TranNo");
  shell.workplace().screens.openScreen(screenName);
  guide.rest(50);
  guide.control<QPushButton>(*shell.screens().openWindow(screenName), command).click();
  guide.rest(50);
  printing::PreviewWindow& preview = guide.preview();
  guide.paper(preview.pages(), std::string("paper-") + name);
  preview.close();
  guide.rest(20);
}

}  // namespace

void visitJournal(Guide& guide, shell::MainShell& shell) {
  Journal journal(guide, shell);
  journal.control<QPlainTextEdit>("Desc").setPlainText(QStringLiteral("Running expenses of November"));
  int row = 0;
  for (const JournalLine& line : lines) {
    if (row + 1 == std::ssize(lines)) guide.picture(shell, "journal-difference");
    journal.type(row++, line);
  }
  guide.picture(shell, "general-journal");
  journal.control<QPushButton>("PrintBill").click();
  guide.rest(50);
  printing::PreviewWindow& preview = guide.preview();
  guide.paper(preview.pages(), "paper-Voucher1");
  preview.close();
  guide.rest(20);
  guide.inDialog([&] { journal.control<QPushButton>("EditBttn").click(); },
                 [&](QWidget& dialog) {
                   guide.rest(50);
                   guide.picture(dialog, "find-journals");
                 });
  printNote(guide, shell, "BankReceipts", 38, "Customer Receipt", "PrintBill_0", "RecPay");
  printNote(guide, shell, "CashPayments", 29, "Petty Payment", "PrintBill_0", "RecPayPetty");
}

}  // namespace velmo::tour
