#include "reports/ledgers/print_ledgers.h"

#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/wait_cursor.h"
#include "forms/work_progress.h"
#include "frame/report/report_screen.h"
#include "reports/ledgers/ledger_print.h"
#include "reports/ledgers/ledger_statements.h"
#include "reports/ledgers/ledgers_print.h"
#include "reports/ledgers/running_balances.h"
#include "reports/parts/account_filters.h"

namespace velmo::reports {
namespace {

using frame::ReportOption;
using frame::ReportScreen;

bool checkSelection(ReportScreen& screen, frame::ReportUse) {
  const frame::ReportFilters& filters = screen.filters();
  if (filters.chosen("LedgerOpt_1")) {
    const bool bySubType = filters.chosen("SubTypeOpt");
    if (!bySubType && store::isNull(filters.bound("MainList")))
      return screen.refuse("Select Account Type", "Select correct main account type to print ledgers.", "MainList");
    if (bySubType && store::isNull(filters.bound("SubList")))
      return screen.refuse("Select Account Type", "Select correct sub account type to print ledgers.", "SubList");
  }
  return !filters.chosen("LedgerOpt_2") || checkAccountRange(screen);
}

std::string selection(const frame::ReportFilters& filters) {
  if (filters.chosen("LedgerOpt_1"))
    return filters.chosen("SubTypeOpt") ? ledgersOf::subType(store::integerOf(filters.bound("SubList")))
                                        : ledgersOf::mainType(store::integerOf(filters.bound("MainList")));
  if (filters.chosen("LedgerOpt_2")) return ledgersOf::range(filters.account("CodeFrom"), filters.account("CodeTo"));
  return {};
}

std::optional<printing::Report> printOut(ReportScreen& screen) {
  session::LoginContext& context = screen.workplace().context;
  const text::DateTime today = screen.workplace().clock.today();
  const frame::ReportFilters& filters = screen.filters();
  const bool ofPeriod = filters.chosen("PeriodOpt");
  const frame::ReportPeriod period = filters.period();
  const forms::WaitCursor wait;
  const auto ledgers = std::make_shared<const LedgersData>(
      context.KORDconn, LedgersChoice{.fyid = context.FYID,
                                      .selection = selection(filters),
                                      .openingBefore = period.from,
                                      .period = ofPeriod ? std::optional(period) : std::nullopt});
  screen.showMessage(ledgers->isEmpty() ? ReportScreen::tr("There are no such accounts.") : QString());
  if (ledgers->isEmpty()) return std::nullopt;
  return ledgersPrint(context,
                      {.period = ofPeriod ? ledgerFromTo(period.from, period.to) : ledgerEndedOn(today),
                       .broughtForward = ofPeriod,
                       .begins = filters.chosen("NewPageOpt") ? EveryLedgerOn::NewPage : EveryLedgerOn::SamePage},
                      ledgers, today);
}

frame::ReportType ledgersType() {
  return {.screen = "PrintLedgers",
          .caption = "Print Accounts Ledgers",
          .filtersFrame = "LFrame",
          .filters = {{ReportOption{.name = "LedgerOpt_0", .caption = "&All Accounts", .group = "LedgerOpt"}},
                      {ReportOption{.name = "LedgerOpt_1",
                                    .caption = "&Main Account Type",
                                    .group = "LedgerOpt",
                                    .inputs = {"MainList", "SubTypeOpt", "SubList"}},
                       mainTypeList("MainList"),
                       ReportOption{.name = "SubTypeOpt", .caption = "&Sub Type", .inputs = {"SubList"}},
                       subTypeList("SubList", "MainList")},
                      accountRangeRow("LedgerOpt_2", "&Range", "LedgerOpt"),
                      {frame::ReportPeriodBoxes{.check = "PeriodOpt", .caption = "For Peri&od From"}},
                      {ReportOption{.name = "NewPageOpt", .caption = "Start Printing of Every Ledger on &New Page"}}},
          .print = {"PrintBttn", "&Print", "Shows the ledgers as they will be printed"},
          .check = checkSelection,
          .printOut = printOut};
}

// The dialog, which shows what it asks for only when the stored balances are right.
class PrintLedgersDialog : public frame::ReportDialog {
 public:
  PrintLedgersDialog(session::Workplace& workplace, QWidget* parent)
      : ReportDialog(ledgersType(), workplace, parent), workplace_(workplace), wait_(makeWait()) {
    screen().addNote(*wait_);
    setWaiting(true);
    Timer1_.setSingleShot(true);
    Timer1_.setInterval(50);  // milliseconds: the screen is painted before
    connect(&Timer1_, &QTimer::timeout, this, &PrintLedgersDialog::updateBalances);
    Timer1_.start();
  }

 private:
  static QWidget* makeWait() {
    auto* wait = new QWidget;
    auto* column = new QVBoxLayout(wait);
    forms::setGrid(*column, forms::spacing::Section);
    auto* words = new QLabel(tr("Updating Ledgers, Please Wait ......"));
    words->setObjectName("WaitLbl");
    forms::makeHeading(*words);
    auto* hint = new QLabel(tr("The balance behind every line of the year is being written."));
    hint->setObjectName("WaitLbl2");
    forms::makeCaption(*hint);
    for (QLabel* label : {words, hint}) {
      label->setAlignment(Qt::AlignCenter);
      column->addWidget(label);
    }
    return wait;
  }

  void setWaiting(bool waiting) {
    wait_->setVisible(waiting);
    screen().filters().setVisible(!waiting);
    screen().findChild<QWidget*>("PrintBttn")->setEnabled(!waiting);
    // As large as what it shows now, once that has found its place, and over the middle of the program still.
    QMetaObject::invokeMethod(
        this,
        [this] {
          adjustSize();
          if (parentWidget()) move(parentWidget()->window()->geometry().center() - rect().center());
        },
        Qt::QueuedConnection);
  }

  void updateBalances() {
    try {
      const forms::WaitCursor wait;
      store::Connection& books = workplace_.context.KORDconn;
      const store::Recordset counted(books, "SELECT Count(Serial) AS Lines FROM SubTransactions",
                                     store::LockType::ReadOnly);
      // Every line is read once, and at most once written.
      forms::WorkProgress progress(this, tr("Updating Ledgers, Please Wait ......"), 2 * counted.integer("Lines"));
      if (!writeRunningBalances(books, workplace_.context.FYID,
                                [&](std::int64_t lines) { return progress.report(lines); }))
        return reject();
    } catch (const store::StoreError& failure) {
      workplace_.prompts.tell("Cannot Update Ledgers", failure.what());
      return reject();
    }
    setWaiting(false);
    screen().filters().focus("LedgerOpt_0");
  }

  session::Workplace& workplace_;
  QWidget* wait_;
  QTimer Timer1_;
};

}  // namespace

QWidget* makePrintLedgers(session::Workplace& workplace, QWidget* parent) {
  return new PrintLedgersDialog(workplace, parent);
}

}  // namespace velmo::reports
