#include <gtest/gtest.h>

#include "documents/stock/stock_company.h"
#include "documents/stock/stock_desk.h"
#include "support/dice.h"
#include "support/exact_decimal.h"
#include "support/plain_rows.h"
#include "text/number.h"
#include "valuation/weighted_cost.h"

// Adjustments, transfers and purchases at random, changed, cancelled and deleted. What a place, a job and the company
// have, and what each item costs, is worked out again from what was asked for, by another arithmetic.
namespace {

using namespace velmo;
using namespace velmo::test;

constexpr const char* items[] = {"H1", "N1", "P1"};
const text::DateTime today = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);

struct Posted {
  int tranType = 0;
  bool cancelled = false;
  std::int64_t from = 1, to = 1, jobFrom = 0, jobTo = 0;
  std::vector<StockLine> lines = {};
};

class Storehouse : private Dice {
 public:
  Storehouse() : Dice(45) {
    NewCompany::run({"delete from Transactions",
                     "INSERT INTO StockLocation (LocationID, LocationName) VALUES (3, 'Van')",
                     "INSERT INTO StockLevel3 (ItemCode, ItemName, Status, CatID, SubCatID) VALUES ('P1', 'Pin', No, "
                     "'TOO', 'TOO01')",
                     "update StockLevel3 set ValuationType = Yes, ValuationCost2 = 7"});
  }

  void step() {
    const int choice = pick(10);
    if (posted_.empty() || choice < 5) return save(0);
    const std::int64_t tranNo = std::next(posted_.begin(), pick(static_cast<int>(posted_.size())))->first;
    if (choice == 9) return remove(tranNo);
    save(tranNo);
  }

  void expectBalances() {
    std::map<std::string, std::int64_t> wanted;  // thousandths, by item and place or job
    const auto move = [&](const StockLine& line, std::int64_t place, std::int64_t job, int sign) {
      const std::int64_t moved = sign * std::llround(line.quantity * 1000);
      wanted[line.code + " in all"] += moved;
      wanted[line.code + " at " + std::to_string(place)] += moved;
      wanted[line.code + " for " + std::to_string(job)] += moved;
    };
    for (const auto& [tranNo, document] : posted_)
      for (const StockLine& line : document.lines) {
        if (document.cancelled) continue;
        const bool comes = document.tranType == 45 || document.tranType == 22;
        move(line, document.from, document.jobFrom, comes ? 1 : -1);
        if (document.tranType == 43) move(line, document.to, document.jobTo, 1);
      }
    std::map<std::string, std::int64_t> there;
    const auto add = [&](const char* words, const char* column) {
      for (PlainRows rows(file_, std::string("select ItemCode || '") + words + "' || " + column +
                                     ", round(sum(1000 * (coalesce(StockIn, 0) - coalesce(StockOut, 0)))) from "
                                     "StockFlow join Transactions using (TranNo) where Cancel = 0 and InvLedger = 0 "
                                     "group by 1");
           rows.next();)
        there[rows.text(0)] = rows.integer(1);
    };
    add(" in all", "''");
    add(" at ", "LocationID");
    add(" for ", "JobID");
    std::erase_if(wanted, [](const auto& entry) { return entry.second == 0; });
    std::erase_if(there, [](const auto& entry) { return entry.second == 0; });
    EXPECT_EQ(there, wanted);
  }

  void expectCosts() {
    valuation::computeWeightedCosts(office_.context.KORDconn, 1, {.day = office_.context.FinancialYearEnd},
                                    valuation::ItemCost::AtClosing);
    for (const char* item : items) {
      ExactDecimal quantity, value;
      bool received = false;
      for (const auto& [tranNo, document] : posted_)
        for (const StockLine& line : document.lines) {
          if (document.cancelled || line.code != item || (document.tranType != 45 && document.tranType != 22)) continue;
          received = true;
          quantity += line.quantity;
          value += line.quantity * line.rate;
          value -= line.discount;
        }
      if (received) costs_[item] = quantity.value() > 0 ? value.value() / quantity.value() : 0;
      EXPECT_EQ(office_.one("select valuationcost2 from stocklevel3 where itemcode='" + std::string(item) + "'"),
                text::numberText(costs_.contains(item) ? costs_[item] : 7.0))
          << item;
    }
  }

  // Transfers post nothing; of the others both ledger lines are what the lines come to before discounts.
  void expectLedger() {
    for (const auto& [tranNo, document] : posted_) {
      ExactDecimal total;
      for (const StockLine& line : document.lines) total += line.quantity * line.rate;
      const auto ledger = plainTexts(
          file_, "select coalesce(Debit, Credit) from SubTransactions where TranNo = " + std::to_string(tranNo));
      const auto amount = text::amountFrom(text::numberText(total.value()));
      ASSERT_EQ(ledger.size(), document.tranType == 43 || document.tranType == 22 ? 0u : 2u);
      for (const std::string& line : ledger) EXPECT_NEAR(std::stod(line), amount, 0.005 + 1e-9);
    }
  }

 private:
  Posted anything(int tranType) {
    Posted document{.tranType = tranType,
                    .cancelled = pick(5) == 0,
                    .from = 1 + pick(3),
                    .to = 1 + pick(3),
                    .jobFrom = pick(3),
                    .jobTo = pick(3)};
    for (int line = pick(6); line > 0; --line) {
      const double quantity = (pick(8) == 0 ? -1 : 1) * pick(99999) / 1000.0;
      document.lines.push_back({items[pick(3)], quantity, pick(99999) / 100.0, pick(3) ? 0.0 : pick(500) / 100.0});
    }
    return document;
  }

  void save(std::int64_t tranNo) {
    const int types[] = {43, 43, 45, 47, 22};
    const Posted document = anything(tranNo == 0 ? types[pick(5)] : posted_[tranNo].tranType);
    if (document.tranType == 22) return buy(tranNo, document);
    frame::DocumentValues values = stockValues(today.date(), document.from, document.to);
    values.Cancel = document.cancelled;
    values.JobList = {.text = "", .id = document.jobFrom, .matches = true};
    values.JobListTo = {.text = "", .id = document.jobTo, .matches = true};
    StockDesk& desk = deskOf(document.tranType);
    desk.prepare(tranNo, std::move(values), document.lines);
    posted_[desk.post(today)] = document;
  }

  void buy(std::int64_t tranNo, const Posted& document) {
    store::Connection& books = office_.context.KORDconn;
    if (tranNo != 0) books.execute("delete from transactions where tranno = " + std::to_string(tranNo));
    posted_.erase(tranNo);
    const std::string number = std::to_string(++lastBill_);
    books.execute("INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger) VALUES (" + number +
                  ", #11-22-2026#, 22, 1, " + (document.cancelled ? "Yes" : "No") + ", No)");
    const std::string bill = office_.tranNo(22, static_cast<int>(lastBill_));
    for (const StockLine& line : document.lines)
      books.execute("INSERT INTO StockFlow (TranNo, ItemCode, StockIn, ItemValue, LocationID, JobID) VALUES (" + bill +
                    ", '" + line.code + "', " + text::numberText(line.quantity) + ", " +
                    text::numberText(line.quantity * line.rate - line.discount) + ", " + std::to_string(document.from) +
                    ", " + std::to_string(document.jobFrom) + ")");
    posted_[std::stoll(bill)] = document;
  }

  void remove(std::int64_t tranNo) {
    if (posted_[tranNo].tranType == 22)
      office_.run("delete from transactions where tranno = " + std::to_string(tranNo));
    else
      deskOf(posted_[tranNo].tranType).remove(tranNo);
    posted_.erase(tranNo);
  }

  StockDesk& deskOf(int tranType) {
    for (StockDesk* desk : {&transfers_, &added_, &reduced_})
      if (desk->tranType() == tranType) return *desk;
    throw std::logic_error("no such desk");
  }

  StockCompany office_;
  PlainFile file_{office_.company.file()};
  StockDesk transfers_{office_.context, documents::inventoryTransfersType()};
  StockDesk added_{office_.context, documents::addInventoryType()};
  StockDesk reduced_{office_.context, documents::reduceInventoryType()};
  std::map<std::int64_t, Posted> posted_;
  std::map<std::string, double> costs_;
  std::int64_t lastBill_ = 0;
};

TEST(StockProperties, PlacesJobsCostsAndLedgerAreWhatTheDocumentsComeTo) {
  Storehouse storehouse;
  for (int step = 1; step <= 400; ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    storehouse.step();
    storehouse.expectBalances();
    storehouse.expectCosts();
    if (step % 20 == 0) storehouse.expectLedger();
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace
