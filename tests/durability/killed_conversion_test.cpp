#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <random>

#include "attack/process.h"
#include "documents/conversions/convert_document.h"
#include "schema/document_kinds.h"
#include "session/login_context.h"
#include "support/new_company.h"
#include "support/plain_rows.h"

namespace velmo::attack {
namespace {

const documents::Conversion& orderToChallan() {
  using namespace schema::tran_type;
  for (const documents::Conversion& conversion : documents::conversions())
    if (conversion.from == SaleOrder && conversion.to == DeliveryChallan) return conversion;
  throw std::logic_error("an order makes no challan");
}

void convertWithoutEnd(std::int64_t tranNo) {
  session::LoginContext context(schema::companyCatalog());
  context.KORDconn.open(schema::plainConnectionString);
  context.FYID = context.UserID = context.stocklocationid = 1;
  for (;;)
    documents::convertDocument(context, orderToChallan(), tranNo, text::DateTime::fromCalendar(2026, 11, 22, 10, 30));
}

TEST(ConversionAfterKill, TheNewDocumentAndItsMarkAreThereOrNeither) {
  const test::NewCompany company;
  test::NewCompany::run(
      {"INSERT INTO Transactions (TranNo, DocNo, TranType, FYID, TranDate, Text1, Cancel, InvLedger) "
       "VALUES (9001, 1, 93, 1, #11-20-2026#, 'A customer', No, Yes)",
       "INSERT INTO StockFlow (TranNo, Serial, ItemCode, StockOut) VALUES (9001, 1, 'H1', 2)",
       "INSERT INTO StockFlow (TranNo, Serial, ItemCode, StockOut) VALUES (9001, 2, 'H2', 3)"});
  std::mt19937 random(20261122);
  std::int64_t made = 0;
  int grown = 0;
  for (int kill = 0; kill < 40 && !testing::Test::HasFailure(); ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    Process program([] { convertWithoutEnd(9001); });
    ::usleep(static_cast<useconds_t>(std::uniform_int_distribution(5000, 50000)(random)));
    program.send(SIGKILL);
    EXPECT_EQ(program.status(), -SIGKILL) << "it ended by itself";
    test::PlainFile file("Uninstall/Uninstall.MDB");
    const std::string challans =
        test::plainTexts(file, "SELECT count(*) FROM Transactions WHERE TranType = 94").front();
    EXPECT_EQ(test::plainTexts(file, "SELECT max(DocNo) FROM Transactions WHERE TranType = 94").front(),
              challans == "0" ? "" : challans);
    EXPECT_EQ(test::plainTexts(file, "SELECT Text9 FROM Transactions WHERE TranNo = 9001").front(),
              challans == "0" ? "" : "D.C. No. " + challans);
    EXPECT_EQ(test::plainTexts(file, "SELECT count(*) FROM StockFlow WHERE TranNo > 9001").front(),
              std::to_string(2 * std::stoll(challans)));
    grown += std::stoll(challans) > made ? 1 : 0;
    made = std::stoll(challans);
  }
  EXPECT_GT(grown, 10) << "the kills missed the conversions";
}

}  // namespace
}  // namespace velmo::attack
