#include "demo_company/shop.h"

#include <sqlite3.h>

#include <cmath>

#include "demo_company/company_folder.h"
#include "demo_company/large_masters.h"
#include "demo_company/parties.h"
#include "demo_company/people.h"
#include "demo_company/shop_clerk.h"
#include "schema/financial_year.h"
#include "session/login.h"
#include "valuation/closing_stock.h"

namespace velmo::demo {
namespace {

constexpr std::uint32_t seed = 2026;
constexpr int itemCount = 20000;
constexpr int customers = 18400;
constexpr int vendors = 1500;
constexpr std::int64_t firstIncome = 40000000;  // accounts below it are carried into the next year
constexpr std::int64_t closingInventory = 13001001;
constexpr int profitAndLoss = 32001001;
constexpr int capital = 31001001;

using Write = void (*)(ShopClerk& clerk, const text::DateTime& moment);

struct KindOfDocument {
  int count;  // in both years
  Write write;
};

constexpr KindOfDocument kinds[] = {
    {16000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.buy(at); }},
    {88000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.sell(at); }},
    {50000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.sellAtCounter(at); }},
    {6000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.takeBack(at); }},
    {2000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.sendBack(at); }},
    {20000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.settle(vouchers::cashReceipts(), at); }},
    {24000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.settle(vouchers::bankReceipts(), at); }},
    {1000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.bookPetty(vouchers::bankReceipts(), at); }},
    {10000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.settle(vouchers::bankPayments(), at); }},
    {2000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.bookPetty(vouchers::bankPayments(), at); }},
    {3000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.settle(vouchers::cashPayments(), at); }},
    {59000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.bookPetty(vouchers::cashPayments(), at); }},
    {49000, [](ShopClerk& clerk, const text::DateTime& at) { clerk.journal(at); }},
};

class Shop {
 public:
  Shop(const std::string& connectionString, double share)
      : share_(share), dice_(seed), context_(schema::companyCatalog()) {
    store::Connection& books = context_.KORDconn;
    books.open(connectionString);
    // Whoever is interrupted begins anew.
    for (const char* setting : {"PRAGMA synchronous = OFF", "PRAGMA cache_size = -400000"}) run(setting);
    {
      store::Connection::Transaction transaction(books);
      writePeople(books);
      writeParties(books, dice_);
      writeAccounts(books.handle(), dice_,
                    {.firstSubType = 12002, .name = "Customers", .terms = "30 Days", .count = part(customers)});
      writeAccounts(books.handle(), dice_,
                    {.firstSubType = 21002, .name = "Vendors", .terms = "30 Days", .count = part(vendors)});
      writeItems(books.handle(), dice_, part(itemCount));
      transaction.commit();
    }
    session::fillLoginContext(context_, session::LoginRecords(books));
  }

  void trade() {
    ShopClerk clerk(context_, dice_);
    begin(clerk, 1);
    tradeThrough(clerk, 0, 0.1);
    valuation::postClosingStock(context_.KORDconn, context_.FYID, context_.FinancialYearEnd);
    begin(clerk, 2);
    tradeThrough(clerk, 0.1, 1);
    session::saveDefaultLogin(context_.KORDconn, 1, context_.FYID);
    context_.KORDconn.checkpoint();
    context_.KORDconn.close();
  }

 private:
  void run(const char* sql) {
    if (sqlite3_exec(context_.KORDconn.handle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(context_.KORDconn.handle()));
  }

  int part(int count) const { return static_cast<int>(std::lround(count * share_)); }

  void begin(ShopClerk& clerk, int fyid) {
    context_.FYID = fyid;
    if (fyid > 1) {
      context_.FinancialYearStart = context_.FinancialYearEnd.addDays(1);
      context_.FinancialYearEnd = text::DateTime::fromCalendar(context_.FinancialYearStart.calendar().year, 12, 31);
      schema::addFinancialYear(context_.KORDconn, {.id = fyid,
                                                   .start = context_.FinancialYearStart,
                                                   .end = context_.FinancialYearEnd,
                                                   .user = 1,
                                                   .now = context_.FinancialYearStart});
    }
    store::Connection::Transaction transaction(context_.KORDconn);
    OpeningEntry entry(context_.KORDconn, fyid);
    clerk.open(entry);
    if (fyid > 1) {
      carryBalances(entry, fyid - 1);
      entry.credit(profitAndLoss, entry.difference());
    } else {
      entry.debit(static_cast<int>(frame::cashInHand.code), 25000);
      entry.debit(firstBank, 180000);
      entry.credit(capital, entry.difference());
    }
    transaction.commit();
  }

  void carryBalances(OpeningEntry& entry, int fyid) {
    const store::Recordset balances(
        context_.KORDconn,
        "SELECT SubTransactions.AccCode, Sum(IIf(IsNull([debit]),0,[debit])) AS Debits, "
        "Sum(IIf(IsNull([credit]),0,[credit])) AS Credits FROM Transactions INNER JOIN SubTransactions ON "
        "Transactions.TranNo = SubTransactions.TranNo WHERE Transactions.Cancel = No AND Transactions.FYID = " +
            std::to_string(fyid) + " GROUP BY SubTransactions.AccCode",
        store::LockType::ReadOnly);
    for (std::int64_t row = 0; row < balances.recordCount(); ++row) {
      const std::int64_t account = store::integerOf(balances.valueAt(row, 0));
      const double balance =
          cents(store::numberOf(balances.valueAt(row, 1)) - store::numberOf(balances.valueAt(row, 2)));
      if (account >= firstIncome || account == closingInventory || balance == 0) continue;
      if (balance > 0)
        entry.debit(static_cast<int>(account), balance);
      else
        entry.credit(static_cast<int>(account), -balance);
    }
  }

  // Of all documents those from one share to another, evenly over the days of the year.
  void tradeThrough(ShopClerk& clerk, double from, double to) {
    const int days = context_.FinancialYearEnd.day - context_.FinancialYearStart.day + 1;
    for (int day = 0; day < days; ++day) {
      store::Connection::Transaction transaction(context_.KORDconn);
      const auto upTo = [&](const KindOfDocument& kind, int passed) {
        return part(static_cast<int>(kind.count * (from + (to - from) * passed / days)));
      };
      for (const KindOfDocument& kind : kinds)
        for (int left = upTo(kind, day + 1) - upTo(kind, day); left > 0; --left)
          kind.write(clerk, {context_.FinancialYearStart.day + day, dice_.between(9 * 3600, 18 * 3600)});
      transaction.commit();
      if (day % 30 == 0) context_.KORDconn.checkpoint();
    }
  }

  double share_;
  Dice dice_;
  session::LoginContext context_;
};

}  // namespace

void makeShop(const std::filesystem::path& folder, double share) {
  makeCompanyIn(folder, text::DateTime::fromCalendar(2025, 12, 31),
                [share](const std::string& connectionString) { Shop(connectionString, share).trade(); });
}

}  // namespace velmo::demo
