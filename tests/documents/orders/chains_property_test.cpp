#include <gtest/gtest.h>

#include <QCheckBox>
#include <map>

#include "documents/conversions/conversion.h"
#include "documents/invoice_company.h"
#include "documents/invoices/trade_screens.h"
#include "documents/orders/order_screens.h"
#include "frame/items/item_history.h"
#include "session/stock_movement.h"
#include "support/dice.h"

// Chains of papers at random, begun, converted, saved again, cancelled, restored and deleted in any order, under every
// setting of what moves stock.
namespace {

using namespace velmo;
using namespace velmo::test;
using Rows = std::vector<std::string>;

struct Paper {
  int tranType = 0;
  int number = 0;
  int quantity = 0;  // of hammers, 50.00 each
  bool cancelled = false;
  bool asConverted = false;  // and not saved since then
  bool fromPass = false;     // a bill whose open item stands among the receivables, too
  std::map<std::string, std::string> marks = {};
};

class ChainDesk : private Dice {
 public:
  explicit ChainDesk(int setting) : Dice(static_cast<unsigned>(setting)), setting_(setting) {
    shop_.run("delete from transactions where trantype=93");
    shop_.screens.known = {"Quotations",     "SaleOrders",   "DeliveryChallans",    "GatePassesOut",
                           "PurchaseOrders", "GatePassesIn", "PurchaseBillsSimple", "SaleInvoicesSimple"};
    others_ = shop_.rows("select tranno from transactions").size();
    session::applyStockMovement(shop_.context, std::int64_t{setting});
    shop_.prompts.listen();
    const std::pair<int, InvoiceScreen::Make> makes[] = {
        {91, documents::makeQuotations},          {93, documents::makeSaleOrders},
        {94, documents::makeDeliveryChallans},    {30, documents::makeGatePassesOut},
        {92, documents::makePurchaseOrders},      {20, documents::makeGatePassesIn},
        {22, documents::makePurchaseBillsSimple}, {32, documents::makeSaleInvoicesSimple}};
    for (const auto& [tranType, make] : makes)
      screens_[tranType] = std::make_unique<InvoiceScreen>(shop_, frame::PrintOuts{}, make);
  }

  void step() {
    const int choice = pick(10);
    if (papers_.empty() || choice < 2) return begin();
    auto chosen = std::next(papers_.begin(), pick(static_cast<int>(papers_.size())));
    InvoiceScreen& screen = show(chosen->first);
    if (choice < 7) return convert(screen, chosen->second, chosen->first);
    if (choice < 8) return saveAgain(screen, chosen->second);
    if (choice < 9) {
      screen.find<QCheckBox>("CancelOption").click();
      chosen->second.cancelled = !chosen->second.cancelled;
      return saveAgain(screen, chosen->second);
    }
    screen.press("DelBttn");
    papers_.erase(chosen);
  }

  void check() {
    double stock = 100000;
    for (const auto& [tranNo, paper] : papers_) {
      if (!paper.cancelled && moves(paper.tranType))
        stock += (paper.tranType == 20 || paper.tranType == 22 ? 1 : -1) * paper.quantity;
      checkBooks(tranNo, paper);
    }
    EXPECT_EQ(frame::itemBalance(shop_.context.KORDconn, "H1", 1), stock);
    EXPECT_EQ(shop_.rows("select tranno from transactions").size(), others_ + papers_.size());
  }

  int conversions = 0;

 private:
  // As the setting says it: the tens for what comes in, the units for what goes out.
  bool moves(int tranType) const {
    const std::map<int, int> inward = {{1, 20}, {2, 22}}, outward = {{1, 30}, {2, 94}, {3, 32}};
    return inward.at(setting_ / 10) == tranType || outward.at(setting_ % 10) == tranType;
  }

  int nextNumber(int tranType) const {
    int highest = 0;
    for (const auto& [tranNo, paper] : papers_)
      if (paper.tranType == tranType) highest = std::max(highest, paper.number);
    return highest + 1;
  }

  InvoiceScreen& goTo(int tranType) {
    InvoiceScreen& screen = *screens_.at(tranType);
    QApplication::setActiveWindow(&screen.widget());
    return screen;
  }
  InvoiceScreen& show(std::int64_t tranNo) {
    InvoiceScreen& screen = goTo(papers_.at(tranNo).tranType);
    screen.show(tranNo);
    return screen;
  }

  void remember(std::int64_t tranNo, Paper paper) { EXPECT_TRUE(papers_.emplace(tranNo, std::move(paper)).second); }

  void begin() {
    const int kinds[] = {91, 93, 94, 30, 92, 20, 32};
    Paper paper{.tranType = kinds[pick(7)], .quantity = 1 + pick(9)};
    paper.number = nextNumber(paper.tranType);
    InvoiceScreen& screen = goTo(paper.tranType);
    for (const char* command : {"AddBttn", "CancelBttn"}) screen.press(command);  // with the number that is next now
    screen.type("PartyCodeTxt", "12001003");
    if (paper.tranType == 93) screen.type("D1", "PO");
    screen.line(0, "H1", QString::number(paper.quantity), "50");
    screen.press("SaveBttn");
    remember(std::stoll(shop_.one("select max(tranno) as n from transactions")), paper);
  }

  // A first save asks for the reference that a conversion left empty.
  void saveAgain(InvoiceScreen& screen, Paper& paper) {
    giveReference(screen, paper);
    screen.press("SaveBttn");
    paper.asConverted = false;
  }
  static void giveReference(InvoiceScreen& screen, const Paper& paper) {
    if ((paper.tranType == 93 || paper.tranType == 22) && screen.text("D1").empty()) screen.type("D1", "Ref");
  }

  void convert(InvoiceScreen& screen, Paper& source, std::int64_t tranNo) {
    std::vector<const documents::Conversion*> ways;
    for (const documents::Conversion& way : documents::conversions())
      if (way.from == source.tranType) ways.push_back(&way);
    if (ways.empty()) return;
    const documents::Conversion& way = *ways[static_cast<std::size_t>(pick(static_cast<int>(ways.size())))];
    giveReference(screen, source);
    shop_.screens.opened.clear();
    screen.press(std::string(way.command).c_str());
    shop_.context.OpenTranFlag = false;
    ASSERT_EQ(shop_.screens.opened.empty(), source.cancelled);
    if (source.cancelled) return;
    ++conversions;
    source.asConverted = false;
    Paper made{.tranType = way.to, .number = nextNumber(way.to), .quantity = source.quantity, .asConverted = true};
    made.fromPass = way.from == 20;
    source.marks[std::string(way.trace.column)] = std::string(way.trace.words) + std::to_string(made.number);
    if (way.from == 94 || way.from == 92) made.marks["D2"] = std::to_string(source.number);
    if ((way.from == 30 || way.from == 20 || way.to == 30) && way.from != 94) made.marks["D2"] = source.marks["D2"];
    EXPECT_EQ(shop_.context.OpenTranNo, std::stoll(shop_.one("select max(tranno) as n from transactions")));
    EXPECT_TRUE(papers_.contains(tranNo));
    remember(shop_.context.OpenTranNo, made);
  }

  void checkBooks(std::int64_t tranNo, const Paper& paper) {
    SCOPED_TRACE("type " + std::to_string(paper.tranType) + " number " + std::to_string(paper.number));
    const std::string ofIt = " where tranno=" + std::to_string(tranNo);
    const double amount = paper.quantity * 50.0;
    const std::string shown = store::textOf(amount);
    EXPECT_EQ(shop_.one("select docno, tramount, cancel from transactions" + ofIt),
              std::to_string(paper.number) + "|" + shown + "|" + (paper.cancelled ? "True" : "False"));
    for (const char* column : {"Text9", "Text10", "Text11", "D2"}) {
      const auto mark = paper.marks.find(column);
      if (paper.tranType == 32 && column == std::string("Text11")) continue;  // the mode of payment
      EXPECT_EQ(shop_.one(std::string("select ") + column + " from transactions" + ofIt),
                mark == paper.marks.end() ? "" : mark->second)
          << column;
    }
    EXPECT_EQ(shop_.one("select itemcode, sum(stockin) as i, sum(stockout) as o from stockflow" + ofIt +
                        " group by itemcode"),
              "H1|" + (paper.tranType == 92 || paper.tranType == 20 || paper.tranType == 22
                           ? std::to_string(paper.quantity) + "|"
                           : "|" + std::to_string(paper.quantity)));
    // All on credit: the party against its head, with a narration once a screen has posted it.
    Rows ledger, receivable, payable;
    const std::string named = "Zoe Builders - Invoice No " + std::to_string(paper.number);
    if (paper.tranType == 32)
      ledger = {"12001003|" + (paper.asConverted ? "" : named) + "|" + shown + "|", "40001001||" + shown};
    if (paper.tranType == 22)
      ledger = {"50001002|" + shown + "|", "12001003|" + (paper.asConverted ? "" : named + "/Ref") + "||" + shown};
    EXPECT_EQ(ledgerOf(ofIt), ledger);
    const std::string item = std::to_string(paper.number) + "|" + shown;
    if (paper.tranType == 32 && !paper.cancelled) receivable = {"32|" + item};
    if (paper.fromPass) receivable = {"22|" + item};
    if (paper.tranType == 22 && !paper.cancelled && !(paper.fromPass && paper.asConverted)) payable = {"22|" + item};
    EXPECT_EQ(shop_.rows("select trantype, docno, tramount from agingdr" + ofIt), receivable);
    EXPECT_EQ(shop_.rows("select trantype, docno, tramount from agingcr" + ofIt), payable);
  }

  // The narration of the head's row tells of the lines; that of the party's row is the document's.
  Rows ledgerOf(const std::string& ofIt) {
    Rows rows;
    for (const std::string& row :
         shop_.rows("select acccode, desc, debit, credit from subtransactions" + ofIt + " order by serial")) {
      const bool isHead = !row.starts_with("12");
      const std::size_t end = row.find('|', 9);
      rows.push_back(isHead ? row.substr(0, 8) + row.substr(end) : row);
    }
    return rows;
  }

  const int setting_;
  InvoiceCompany shop_;
  std::size_t others_ = 0;  // documents that the company had before
  std::map<int, std::unique_ptr<InvoiceScreen>> screens_;
  std::map<std::int64_t, Paper> papers_;
};

class Chains : public testing::TestWithParam<int> {};

TEST_P(Chains, MoveStockOnceAndKeepBooksAndMarksTogether) {
  ChainDesk desk(GetParam());
  for (int step = 0; step < 45 && !testing::Test::HasFailure(); ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    desk.step();
    desk.check();
  }
  EXPECT_GT(desk.conversions, 10);
}

INSTANTIATE_TEST_SUITE_P(Settings, Chains, testing::Values(11, 12, 13, 21, 22, 23));

}  // namespace
