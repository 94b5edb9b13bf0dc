#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "documents/sale_invoice_type.h"
#include "frame/compose_document.h"
#include "frame/document_number.h"
#include "support/new_company.h"
#include "whole_books.h"

// Two programs that save into one file at the same time.
namespace velmo::documents {
namespace {

constexpr int invoices = 150;  // of each till
const text::DateTime saleTime = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);

class Till {
 public:
  Till() : context_(schema::companyCatalog()) {
    context_.KORDconn.open(schema::plainConnectionString);
    context_.FYID = 1;
    context_.UserID = 1;
    context_.currencyname = "Rupees";
    tran_.open(context_.KORDconn, "SELECT * from transactions where trantype=32 and fyid = 1 order by docno",
               store::LockType::Optimistic, store::Fetch::AsNeeded);
  }

  // Saves invoices under the numbers that the program proposes, and tells how often one was taken meanwhile.
  int work() {
    int refused = 0;
    for (int saved = 0; saved < invoices; ++saved) {
      store::Recordset sheet;
      frame::openSheet(context_.KORDconn, sheet, 0);
      const frame::DocumentValues values = enter(sheet, 1 + saved % 3);
      while (!save(values, sheet)) ++refused;
    }
    return refused;
  }

 private:
  bool save(frame::DocumentValues values, store::Recordset& sheet) {
    tran_.requery();
    values.DocNo = std::to_string(frame::nextDocNo(tran_));
    const auto document =
        frame::composeDocument(saleInvoiceType(), values, context_, saleTime, sheet, frame::HeaderWrite::Add);
    if (!document) throw std::logic_error(document.error());
    try {
      frame::writeDocument(context_.KORDconn, *document, tran_, sheet);
      return true;
    } catch (const frame::DocNoTaken&) {
      return false;
    }
  }

  frame::DocumentValues enter(store::Recordset& sheet, int lines) {
    for (int line = 0; line < lines; ++line) {
      sheet.moveTo(line);
      sheet.update({{"itemcode", std::string("Service")},
                    {"itemname", std::string("Delivery")},
                    {"stockout", 2.0},
                    {"rate", 12.5},
                    {"grossamt", 25.0},
                    {"discamt", 0.0},
                    {"itemvalue", 25.0}});
    }
    frame::DocumentValues values;
    values.TrDate = saleTime.date();
    values.PartyCodeTxt = "12001001";
    values.PartyNameTxt = "A customer";
    values.IncomeCode = "40001001";
    values.IncomeAcc = "Sales";
    values.LocationList = {.text = "Main", .id = 1, .matches = true};
    values.totals =
        frame::RecalculateTotals(frame::sumLines(sheet), {.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"},
                                 frame::ReceivedRule::AsTyped, context_.currencyname);
    return values;
  }

  session::LoginContext context_;
  store::Recordset tran_;
};

struct Child {
  pid_t process;
  int answers;  // to read from
};

Child openTill(int starter) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const pid_t process = fork();
  if (process != 0) {
    close(ends[1]);
    return {process, ends[0]};
  }
  try {
    Till till;
    char go = 0;
    if (read(starter, &go, 1) != 1) _exit(3);
    const int refused = till.work();
    if (write(ends[1], &refused, sizeof refused) != sizeof refused) _exit(3);
    _exit(0);
  } catch (const std::exception& failure) {
    fprintf(stderr, "a till failed: %s\n", failure.what());
  }
  _exit(4);
}

// Returns how often its proposal was taken.
int closeTill(const Child& till) {
  int refused = 0;
  EXPECT_EQ(static_cast<ssize_t>(sizeof refused), read(till.answers, &refused, sizeof refused));
  close(till.answers);
  int status = 0;
  waitpid(till.process, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a till came to grief";
  return refused;
}

TEST(TwoTills, NeverGiveANumberTwice) {
  const test::NewCompany company;
  int starter[2];
  ASSERT_EQ(0, pipe(starter));
  const Child tills[] = {openTill(starter[0]), openTill(starter[0])};
  ASSERT_EQ(2, write(starter[1], "go", 2));
  const int refused = closeTill(tills[0]) + closeTill(tills[1]);
  for (const int end : starter) close(end);

  store::Connection connection(schema::companyCatalog());
  connection.open(schema::plainConnectionString);
  EXPECT_EQ(2 * invoices, test::count(connection.handle(), "select count(*) from Transactions where TranType = 32"));
  EXPECT_EQ(2 * invoices,
            test::count(connection.handle(), "select count(distinct DocNo) from Transactions where TranType = 32"));
  EXPECT_EQ(2 * invoices, test::count(connection.handle(), "select max(DocNo) from Transactions where TranType = 32"));
  EXPECT_EQ(4 * invoices, test::count(connection.handle(), "select count(*) from StockFlow"));
  test::expectWholeInvoices(connection.handle());
  EXPECT_GT(refused, 0) << "the tills did not get in each other's way, and the test has shown nothing";
}

}  // namespace
}  // namespace velmo::documents
