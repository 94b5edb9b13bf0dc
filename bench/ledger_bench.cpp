#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>
#include <xlsxwriter.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>
#include <fstream>

#include "desk.h"
#include "forms/date_picker.h"
#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"
#include "printing/paginator.h"
#include "reports/ledgers/acc_ledgers.h"
#include "reports/ledgers/ledger_rows.h"
#include "reports/ledgers/ledger_statements.h"
#include "reports/ledgers/ledgers_print.h"
#include "reports/ledgers/running_balances.h"
#include "store/recordset/recordset.h"

namespace velmo::bench {
namespace {

constexpr std::int64_t sales = 40001001;  // a line in each of 200,000 invoices
constexpr std::int64_t packing = 60001005;
constexpr std::int64_t customer = 12005773;

// What the process took at most since the object was made, beyond what it had then.
class PeakMemory {
 public:
  PeakMemory() {
    malloc_trim(0);                                 // what earlier work left over
    std::ofstream("/proc/self/clear_refs") << "5";  // the high water mark begins anew
    before_ = megabytes("VmRSS:");
  }
  double grown() const { return megabytes("VmHWM:") - before_; }

 private:
  static double megabytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
      if (double kilobytes = 0; word == name && status >> kilobytes) return kilobytes / 1024;
    throw std::runtime_error("no " + name);
  }
  double before_ = 0;
};

std::int64_t count(store::Connection& connection, const std::string& from) {
  return store::Recordset(connection, "SELECT Count(Serial) AS Lines FROM " + from, store::LockType::ReadOnly)
      .integer("Lines");
}

// The year's ledgers, with an account of every seventh invoice beside those of all and of few.
class LedgerDesk : public Desk {
 public:
  LedgerDesk() {
    store::Connection& books = context().KORDconn;
    const std::string sql = "INSERT INTO SubTransactions (TranNo, AccCode, AccName, Debit) SELECT TranNo, " +
                            std::to_string(packing) +
                            ", 'Packing Material', 1.25 FROM Transactions WHERE TranNo % 7 = 0";
    if (sqlite3_exec(books.handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(books.handle()));
    books.checkpoint();
    context().AccountsRS.open(books, "SELECT * from AccLevel3 order by acccode");
  }
};

struct Ledger {
  std::int64_t lines = 0;
  double balance = 0;   // behind the last line
  double balances = 0;  // the sum of those behind all lines
};

// The same lines as one would read them for SQLite, in the better of two ways: the account's lines, sorted, or the
// year's documents in their order with those of the account.
class ByHand {
 public:
  explicit ByHand(sqlite3* database) {
    const std::string columns =
        "select t.TranNo, t.TranDate, t.TranType, t.D1, y.Name || ' No. ' || t.DocNo, y.short || ' ' || t.DocNo, "
        "s.AccCode, s.\"Desc\", s.Debit, s.Credit, s.Balance, s.Status, s.Serial, t.FYID, t.Cancel from ";
    const std::string lines =
        " cross join TranType y where t.TranNo = s.TranNo and y.TranType = t.TranType and s.AccCode = ?1 and (s.Debit "
        "<> 0 or s.Credit <> 0) and t.FYID = 1 and t.Cancel = 0 order by t.TranDate, s.Serial";
    for (const char* walk : {"SubTransactions s indexed by SubTransactions_AccCode cross join Transactions t",
                             "Transactions t indexed by Transactions_TranDate cross join SubTransactions s indexed by "
                             "SubTransactions_TranNo"})
      if (sqlite3_prepare_v2(database, (columns + walk + lines).c_str(), -1, &ways_[prepared_++].statement, nullptr))
        throw std::runtime_error(sqlite3_errmsg(database));
  }
  ~ByHand() {
    for (Way& way : ways_) sqlite3_finalize(way.statement);
  }
  ByHand(const ByHand&) = delete;
  ByHand& operator=(const ByHand&) = delete;

  Ledger read(std::int64_t account) {
    Ledger ledger;
    Way& ofAccount = ways_[0];
    Way& ofDays = ways_[1];
    ofDays.durations.measure([&] { ledger = read(ofDays.statement, account); });
    read(ofAccount.statement, account);  // the pages of its lines lie in memory again, for whoever comes next
    ofAccount.durations.measure([&] { ledger = read(ofAccount.statement, account); });
    return ledger;
  }
  double median() const { return std::min(ways_[0].durations.percentile(0.5), ways_[1].durations.percentile(0.5)); }

 private:
  struct Way {
    sqlite3_stmt* statement = nullptr;
    Durations durations = {};
  };

  static Ledger read(sqlite3_stmt* statement, std::int64_t account) {
    Ledger ledger;
    sqlite3_bind_int64(statement, 1, account);
    for (; sqlite3_step(statement) == SQLITE_ROW; ++ledger.lines) {
      for (const int text : {1, 3, 4, 5, 7, 11}) benchmark::DoNotOptimize(sqlite3_column_text(statement, text));
      for (const int number : {0, 2, 6, 12, 13, 14}) benchmark::DoNotOptimize(sqlite3_column_int64(statement, number));
      benchmark::DoNotOptimize(sqlite3_column_double(statement, 10));
      ledger.balance += sqlite3_column_double(statement, 8) - sqlite3_column_double(statement, 9);
      ledger.balances += std::abs(ledger.balance);
    }
    sqlite3_reset(statement);
    return ledger;
  }

  Way ways_[2];
  int prepared_ = 0;
};

Ledger readThrough(session::LoginContext& context, std::int64_t account) {
  const std::shared_ptr<reports::LedgerRows> opened =
      reports::openLedger(context.KORDconn, {.account = account, .fyid = context.FYID}, 0);
  reports::LedgerRows& rows = *opened;
  while (rows.hasMore()) rows.read(1024);
  Ledger ledger{.lines = rows.ready(), .balance = rows.balance()};
  const int balance = rows.field("Balance");
  for (std::int64_t row = 0; row < ledger.lines; ++row) ledger.balances += store::numberOf(rows.value(row, balance));
  return ledger;
}

// An account's ledger among 1,000,000 lines: to the last row with its balance, as a share of what the hand-written
// statement takes.
void LedgerToTheLastRow(benchmark::State& state) {
  LedgerDesk desk;
  session::LoginContext& context = desk.context();
  ByHand hand(context.KORDconn.handle());
  Durations ours;
  Ledger shown;
  for (auto _ : state) {
    const Ledger expected = hand.read(state.range(0));
    ours.measure([&] { shown = readThrough(context, state.range(0)); });
    if (shown.lines != expected.lines || std::abs(shown.balance - expected.balance) > 0.005 ||
        std::abs(shown.balances / expected.balances - 1) > 1e-9)
      throw std::logic_error("the two ledgers differ");
  }
  state.counters["lines"] = static_cast<double>(shown.lines);
  state.counters["ms"] = ours.percentile(0.5) * 1e3;
  state.counters["by_hand_ms"] = hand.median() * 1e3;
  state.counters["to_hand"] = ours.percentile(0.5) / hand.median();
}
BENCHMARK(LedgerToTheLastRow)->Arg(sales)->Arg(packing)->Arg(customer)->Iterations(9)->Unit(benchmark::kMillisecond);

// The same on its screen: from the command to the first page, and until the closing balance stands there.
void LedgerOnShow(benchmark::State& state) {
  LedgerDesk desk;
  Durations opened, viewed, completed;
  double memory = 0;
  for (auto _ : state) {
    QWidget& screen = desk.open(reports::makeAccLedgers, opened);
    control<QLineEdit>(screen, "ACodeTxt").setText(QString::number(state.range(0)));
    QApplication::processEvents();
    const PeakMemory peak;
    viewed.measure([&] {
      control<QPushButton>(screen, "ViewBttn").click();
      screen.repaint();
    });
    completed.measure([&] {
      while (control<QLineEdit>(screen, "Balance").text().isEmpty()) QApplication::processEvents();
    });
    memory = std::max(memory, peak.grown());
  }
  reportOnce(state, "open", opened);
  state.counters["first_page_ms"] = viewed.percentile(0.5) * 1e3;
  state.counters["first_page_max_ms"] = viewed.percentile(1) * 1e3;
  reportOnce(state, "last_row", completed);
  state.counters["megabytes"] = memory;
}
BENCHMARK(LedgerOnShow)->Arg(sales)->Arg(packing)->Arg(customer)->Iterations(9)->Unit(benchmark::kMillisecond);

// The balance behind every line of a year of 1,000,000 ledger lines: all of them written, and none because all are
// right.
void RunningBalances(benchmark::State& state) {
  Desk desk;
  session::LoginContext& context = desk.context();
  const std::int64_t lines = count(context.KORDconn, "SubTransactions");
  Durations written, kept;
  double memory = 0;
  for (auto _ : state) {
    context.KORDconn.execute("UPDATE SubTransactions SET Balance = 1, Status = 'None'");
    context.KORDconn.checkpoint();
    const PeakMemory peak;
    written.measure([&] { reports::writeRunningBalances(context.KORDconn, context.FYID); });
    if (count(context.KORDconn, "SubTransactions WHERE Status = 'None' and (Debit<>0 or Credit<>0)") != 0)
      throw std::logic_error("lines were left out");
    kept.measure([&] { reports::writeRunningBalances(context.KORDconn, context.FYID); });
    memory = std::max(memory, peak.grown());
  }
  state.counters["lines"] = static_cast<double>(lines);
  state.counters["written_per_second"] = static_cast<double>(lines) / written.percentile(0.5);
  state.counters["kept_per_second"] = static_cast<double>(lines) / kept.percentile(0.5);
  state.counters["megabytes"] = memory;
}
BENCHMARK(RunningBalances)->Iterations(5)->Unit(benchmark::kMillisecond);

std::shared_ptr<const reports::LedgersData> ledgersOf(session::LoginContext& context, std::int64_t mainType) {
  return std::make_shared<const reports::LedgersData>(
      context.KORDconn,
      reports::LedgersChoice{.fyid = context.FYID,
                             .selection = mainType == 0 ? std::string() : reports::ledgersOf::mainType(mainType),
                             .openingBefore = context.FinancialYearStart});
}

// The ledgers of all accounts, or of those of one type, on paper: to the first page, and to the last; and how long the
// till may wait for one page between.
void LedgersOnPaper(benchmark::State& state) {
  Desk desk;
  session::LoginContext& context = desk.context();
  reports::writeRunningBalances(context.KORDconn, context.FYID);
  Durations first, last, page;
  double memory = 0;
  int pages = 0;
  for (auto _ : state) {
    const PeakMemory peak;
    std::optional<printing::Report> report;
    std::optional<printing::Paginator> paginator;
    first.measure([&] {
      report = reports::ledgersPrint(context, {}, ledgersOf(context, state.range(0)), context.FinancialYearEnd);
      paginator.emplace(*report);
      benchmark::DoNotOptimize(paginator->next());
    });
    last.measure([&] {
      bool more = true;
      for (pages = 0; more; ++pages) page.measure([&] { more = paginator->next().has_value(); });
    });
    memory = std::max(memory, peak.grown());
  }
  reportOnce(state, "first_page", first);
  state.counters["page_max_ms"] = page.percentile(1) * 1e3;
  state.counters["pages"] = pages;
  state.counters["pages_per_second"] = pages / last.mean();
  state.counters["megabytes"] = memory;
}
BENCHMARK(LedgersOnPaper)->Arg(0)->Arg(400)->Iterations(1)->Unit(benchmark::kMillisecond);

// The library alone: the same cells, in the same memory that does not grow.
void writeSheetByHand(const std::string& file, const std::vector<forms::TableColumn>& columns,
                      const std::vector<std::vector<store::Value>>& rows) {
  lxw_workbook_options options = {.constant_memory = LXW_TRUE, .tmpdir = nullptr, .use_zip64 = LXW_FALSE};
  lxw_workbook* book = workbook_new_opt(file.c_str(), &options);
  lxw_worksheet* sheet = workbook_add_worksheet(book, "Ledger");
  lxw_format* amount = workbook_add_format(book);
  format_set_num_format(amount, "0.00;(0.00)");
  lxw_format* day = workbook_add_format(book);
  format_set_num_format(day, "dd-mm-yyyy");
  for (std::size_t i = 0; i < columns.size(); ++i)
    worksheet_write_string(sheet, 0, static_cast<lxw_col_t>(i), columns[i].caption.c_str(), nullptr);
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const store::Value& value = rows[row][i];
      const auto line = static_cast<lxw_row_t>(row + 1);
      const auto column = static_cast<lxw_col_t>(i);
      if (const auto* words = std::get_if<std::string>(&value))
        worksheet_write_string(sheet, line, column, words->c_str(), nullptr);
      else if (const auto* date = std::get_if<text::DateTime>(&value))
        worksheet_write_number(sheet, line, column, date->serial(), day);
      else if (!store::isNull(value))
        worksheet_write_number(sheet, line, column, store::numberOf(value), amount);
    }
  if (workbook_close(book) != LXW_NO_ERROR) throw std::runtime_error("the library could not write " + file);
}

std::vector<std::vector<store::Value>> cellsOf(const frame::ReportModel& model) {
  std::vector<std::vector<store::Value>> rows;
  for (std::int64_t row = 0; row < model.ready(); ++row) {
    rows.emplace_back();
    for (const forms::TableColumn& column : model.columns()) rows.back().push_back(model.value(row, column.field));
  }
  return rows;
}

// Half a year of the longest ledger, 100,000 lines, as a spreadsheet: the whole command, with the reading of the lines
// before it, as a share of what the library takes for the cells.
void LedgerAsSpreadsheet(benchmark::State& state) {
  LedgerDesk desk;
  Durations opened, ours, library;
  double memory = 0;
  std::size_t lines = 0;
  const auto folder = std::filesystem::current_path();
  desk.files().name = (folder / "ledger.xlsx").string();
  for (auto _ : state) {
    QWidget& screen = desk.open(reports::makeAccLedgers, opened);
    control<QLineEdit>(screen, "ACodeTxt").setText(QString::number(sales));
    control<QCheckBox>(screen, "DateOpt").setChecked(true);
    control<forms::DatePicker>(screen, "LedgerDt_0").setDay(desk.context().FinancialYearStart);
    control<forms::DatePicker>(screen, "LedgerDt_1").setDay(desk.context().FinancialYearStart.addDays(182));
    desk.expect("Spreadsheet Saved");
    {
      const PeakMemory peak;
      ours.measure([&] { control<QPushButton>(screen, "ExcelBttn").click(); });
      memory = std::max(memory, peak.grown());
    }
    const auto& model = dynamic_cast<frame::ReportScreen&>(screen).model();
    const std::vector<std::vector<store::Value>> rows = cellsOf(model);
    lines = rows.size();
    const std::string file = (folder / "by hand.xlsx").string();
    library.measure([&] { writeSheetByHand(file, model.columns(), rows); });
    if (desk.prompts().told.size() != 1 || lines < 99000 ||
        std::filesystem::file_size(desk.files().name) < std::filesystem::file_size(file) * 9 / 10)
      throw std::logic_error("the spreadsheet is not what was asked for");
  }
  state.counters["lines"] = static_cast<double>(lines);
  state.counters["ms"] = ours.percentile(0.5) * 1e3;
  state.counters["library_ms"] = library.percentile(0.5) * 1e3;
  state.counters["to_library"] = ours.percentile(0.5) / library.percentile(0.5);
  state.counters["megabytes"] = memory;
}
BENCHMARK(LedgerAsSpreadsheet)->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
