#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <random>

#include "documents/sale_invoice_type.h"
#include "frame/compose_document.h"
#include "frame/document_number.h"
#include "store/kept_totals.h"
#include "support/new_company.h"
#include "whole_books.h"

namespace velmo::documents {
namespace {

constexpr int kills = 300;
const text::DateTime saleTime = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);

// What a document is to look like in the file: the figures from which every row of it can be checked.
struct Expected {
  bool present = false;
  std::int64_t lines = 0;
  double netTotal = 0;
  bool cancelled = false;
  bool operator==(const Expected&) const = default;
};

// One step of the saving process, told through the pipe before it begins and again when the save has returned.
struct Report {
  char phase;  // 'b' before, 'a' after
  std::int64_t docNo;
  Expected outcome;
};

// Saves, changes, cancels and deletes invoices until it is killed.
class Cashier {
 public:
  Cashier(int pipe, unsigned seed, std::map<std::int64_t, Expected> known)
      : pipe_(pipe), random_(seed), known_(std::move(known)), context_(schema::companyCatalog()) {
    context_.KORDconn.open(schema::plainConnectionString);
    context_.FYID = 1;
    context_.UserID = 1;
    context_.stocklocationid = 1;
    context_.currencyname = "Rupees";
    tran_.open(context_.KORDconn, "SELECT * from transactions where trantype=32 and fyid = 1 order by docno",
               store::LockType::Optimistic, store::Fetch::AsNeeded);
  }

  [[noreturn]] void work() {
    for (;;) {
      const int choice = between(0, 9);
      if (choice < 6 || known_.empty()) {
        save(frame::nextDocNo(tran_), frame::HeaderWrite::Add);
      } else {
        auto chosen = known_.begin();
        std::advance(chosen, between(0, static_cast<int>(known_.size()) - 1));
        tran_.moveFirst();
        if (!tran_.find("docno=" + std::to_string(chosen->first))) std::abort();
        if (choice < 9)
          save(chosen->first, frame::HeaderWrite::Update);
        else
          remove(chosen->first);
      }
    }
  }

 private:
  int between(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }

  void tell(char phase, std::int64_t docNo, const Expected& outcome) {
    const Report report{phase, docNo, outcome};
    if (write(pipe_, &report, sizeof report) != sizeof report) _exit(3);
  }

  void save(std::int64_t docNo, frame::HeaderWrite mode) {
    const Expected outcome{true, between(1, 12), 0, between(0, 9) == 0};
    const std::int64_t tranNo = mode == frame::HeaderWrite::Add ? 0 : tran_.integer("tranno");
    store::Recordset sheet;
    frame::openSheet(context_.KORDconn, sheet, tranNo);
    frame::DocumentValues values = invoice(docNo, outcome.cancelled);
    Expected told = outcome;
    fillLines(sheet, outcome.lines);
    values.totals = frame::RecalculateTotals(
        frame::sumLines(sheet),
        {.Discount = "0.00", .Carriage = std::to_string(between(-3, 20)), .Received = between(0, 1) ? "1.00" : "0.00"},
        frame::ReceivedRule::AsTyped, context_.currencyname);
    told.netTotal = frame::figureOf(values.totals, frame::Figure::NetTotal);
    auto document = frame::composeDocument(saleInvoiceType(), values, context_, saleTime, sheet, mode);
    if (!document) std::abort();
    tell('b', docNo, told);
    frame::writeDocument(context_.KORDconn, *document, tran_, sheet);
    tell('a', docNo, told);
    known_[docNo] = told;
  }

  frame::DocumentValues invoice(std::int64_t docNo, bool cancelled) {
    frame::DocumentValues values;
    values.DocNo = std::to_string(docNo);
    values.TrDate = saleTime.date();
    values.Cancel = cancelled;
    values.PartyCodeTxt = "12001001";
    values.PartyNameTxt = "A customer";
    values.IncomeCode = "40001001";
    values.IncomeAcc = "Sales";
    values.LocationList = {.text = "Main", .id = 1, .matches = true};
    return values;
  }

  void fillLines(store::Recordset& sheet, std::int64_t lines) {
    for (std::int64_t row = 0; row < frame::sheetRows; ++row) {
      const bool used = row < lines;
      const double quantity = between(1, 9), rate = between(1000, 9999) / 100.0;
      if (!used && store::isNull(sheet.valueAt(row, sheet.fieldIndex("itemcode")))) break;
      sheet.moveTo(row);
      if (!used) {
        sheet.update({{"itemcode", store::Null{}}});
        continue;
      }
      sheet.update({{"itemcode", std::string("Service")},
                    {"itemname", std::string("Delivery of 'goods'")},
                    {"stockout", quantity},
                    {"rate", rate},
                    {"grossamt", quantity * rate},
                    {"discamt", 0.0},
                    {"itemvalue", quantity * rate}});
    }
  }

  void remove(std::int64_t docNo) {
    tell('b', docNo, {});
    tran_.remove();
    tell('a', docNo, {});
    known_.erase(docNo);
    tran_.requery();
  }

  int pipe_;
  std::mt19937 random_;
  std::map<std::int64_t, Expected> known_;
  session::LoginContext context_;
  store::Recordset tran_;
};

class BooksAfterKill : public testing::Test {
 protected:
  // Lets a cashier work for some microseconds and kills the process. Returns what it told.
  std::vector<Report> killedWork(unsigned seed, int microseconds) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
      close(ends[0]);
      try {
        Cashier(ends[1], seed, known_).work();
      } catch (const std::exception& failure) {
        fprintf(stderr, "the saving process failed: %s\n", failure.what());
      }
      _exit(4);
    }
    close(ends[1]);
    pollfd ready{ends[0], POLLIN, 0};
    poll(&ready, 1, 20000);
    usleep(static_cast<useconds_t>(microseconds));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "the saving process ended by itself";
    std::vector<Report> reports;
    for (Report report; read(ends[0], &report, sizeof report) == sizeof report;) reports.push_back(report);
    close(ends[0]);
    return reports;
  }

  static std::map<std::int64_t, Expected> documentsInFile(sqlite3* file) {
    std::map<std::int64_t, Expected> found;
    sqlite3_stmt* rows = nullptr;
    sqlite3_prepare_v2(file,
                       "select t.DocNo, (select count(*) from StockFlow s where s.TranNo = t.TranNo), t.TrAmount,"
                       " t.Cancel <> 0 from Transactions t where t.TranType = 32",
                       -1, &rows, nullptr);
    while (sqlite3_step(rows) == SQLITE_ROW) {
      const std::int64_t docNo = sqlite3_column_int64(rows, 0);
      EXPECT_FALSE(found.contains(docNo)) << "number " << docNo << " stands twice";
      found[docNo] = {true, sqlite3_column_int64(rows, 1), sqlite3_column_double(rows, 2),
                      sqlite3_column_int(rows, 3) != 0};
    }
    sqlite3_finalize(rows);
    return found;
  }

  // Before the file is opened as usual, which sets them right.
  static void expectRightTotals() {
    sqlite3* file = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open("Uninstall/Uninstall.MDB", &file));
    for (const store::KeptTotals& kept : schema::companyCatalog().keptTotals())
      EXPECT_TRUE(store::areRight(file, kept));
    sqlite3_close(file);
  }

  void checkAgainst(const std::vector<Report>& reports) {
    expectRightTotals();
    store::Connection connection(schema::companyCatalog());
    connection.open(schema::plainConnectionString);
    const auto found = documentsInFile(connection.handle());
    std::optional<Report> unfinished;
    for (const Report& report : reports) {
      unfinished = report.phase == 'b' ? std::optional(report) : std::nullopt;
      if (report.phase != 'a') continue;
      if (report.outcome.present)
        known_[report.docNo] = report.outcome;
      else
        known_.erase(report.docNo);
    }
    if (unfinished) {
      const auto standing = found.find(unfinished->docNo);
      const Expected now = standing == found.end() ? Expected{} : standing->second;
      const auto last = known_.find(unfinished->docNo);
      const Expected before = last == known_.end() ? Expected{} : last->second;
      EXPECT_TRUE(now == before || now == unfinished->outcome) << "number " << unfinished->docNo << " is torn";
      if (now.present)
        known_[unfinished->docNo] = now;
      else
        known_.erase(unfinished->docNo);
      ++interrupted_;
    }
    EXPECT_EQ(known_, found);
    test::expectWholeInvoices(connection.handle());
  }

  test::NewCompany company_;
  std::map<std::int64_t, Expected> known_;
  int interrupted_ = 0;
};

TEST_F(BooksAfterKill, HoldEveryDocumentWholeOrNotAtAll) {
  std::mt19937 random(20261122);
  for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    checkAgainst(killedWork(random(), std::uniform_int_distribution(0, 30000)(random)));
  }
  store::Connection connection(schema::companyCatalog());
  connection.open(schema::plainConnectionString);
  EXPECT_EQ(1, test::count(connection.handle(), "select integrity_check = 'ok' from pragma_integrity_check limit 1"));
  // Otherwise the instants missed the saves and the test has shown nothing.
  EXPECT_GT(interrupted_, kills / 4);
  EXPECT_GT(known_.size(), 20u);
}

}  // namespace
}  // namespace velmo::documents
