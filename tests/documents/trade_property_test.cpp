#include <gtest/gtest.h>

#include "documents/trade_books.h"
#include "frame/item_history.h"

// Random sales, purchases and returns, posted and posted again: whatever they are, the books agree with themselves.
namespace {

using namespace velmo;
using namespace velmo::test;

void expectBooksAgree(TradeBooks& books, const std::map<std::string, double>& stock) {
  const std::string uncancelled =
      " from transactions inner join subtransactions on transactions.tranno = subtransactions.tranno where "
      "transactions.cancel=no and subtransactions.acccode=";
  const auto openItems = [&](const char* table, const std::string& party) {
    return books.sum(std::string("select sum(tramount - totpayment) as s from ") + table + " where partycode=" + party);
  };
  for (const char* party : {"12001001", "12001002", "12001003", "21001002"}) {
    const double ledger = books.sum("select sum(iif(isnull(debit),0,debit)) - sum(iif(isnull(credit),0,credit)) as s" +
                                    uncancelled + party);
    EXPECT_NEAR(ledger, openItems("agingdr", party) - openItems("agingcr", party), 0.005) << party;
  }
  for (const auto& [item, expected] : stock)
    EXPECT_NEAR(frame::itemBalance(books.context.KORDconn, item, 1).value_or(0), expected, 1e-6) << item;
}

TEST(TradeProperties, BooksAgreeWithThemselvesWhateverIsBoughtSoldAndTakenBack) {
  TradeBooks books;
  std::map<std::string, double> stock = {{"H1", 100000}, {"N1", 100000}};
  std::vector<std::pair<std::int64_t, RandomDocument>> saved;
  std::set<int> kinds;
  for (std::int64_t number = 1; number <= 250; ++number) {
    const RandomDocument document = books.make(number);
    const std::int64_t tranNo = books.save(document);
    if (tranNo == 0) continue;
    SCOPED_TRACE(std::to_string(document.type->TranType) + " no. " + std::to_string(number));
    kinds.insert(document.type->TranType);
    saved.emplace_back(tranNo, document);
    const std::string of = " from subtransactions where tranno=" + std::to_string(tranNo);
    EXPECT_NEAR(books.sum("select sum(debit) as s" + of), books.sum("select sum(credit) as s" + of), 0.005);
    if (document.cancelled || document.leavesStock) continue;
    const double sign = document.type->lines.quantityField == "StockIn" ? 1 : -1;
    for (const RandomLine& line : document.lines) stock[line.item] += sign * line.quantity;
  }
  EXPECT_EQ(kinds, (std::set<int>{22, 25, 32, 35}));
  ASSERT_GT(saved.size(), 200u);
  expectBooksAgree(books, stock);

  for (auto& [tranNo, document] : saved) {
    const std::string before = books.written(tranNo);
    EXPECT_EQ(books.save(document, tranNo), tranNo);
    EXPECT_EQ(books.written(tranNo), before) << "saved again";
    document.cancelled = !document.cancelled;
    books.save(document, tranNo);
    EXPECT_NE(books.written(tranNo), before);
    document.cancelled = !document.cancelled;
    books.save(document, tranNo);
    EXPECT_EQ(books.written(tranNo), before) << "cancelled and restored";
  }
  expectBooksAgree(books, stock);
}

}  // namespace
