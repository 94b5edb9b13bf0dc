#include <gtest/gtest.h>

#include <QCheckBox>
#include <QTableView>
#include <map>

#include "documents/invoice_company.h"
#include "documents/invoices/trade_screens.h"
#include "support/dice.h"
#include "support/plain_rows.h"
#include "text/number.h"

// Sales, purchases and returns at random, typed with every figure that cells and boxes take, printed in the middle,
// given other numbers, cancelled and shown again: total, ledger and open item are what the lines in the file come to,
// and no other document moves.
namespace {

using namespace velmo;
using namespace velmo::test;
using frame::GridColumn;
using Rows = std::vector<std::string>;

struct Kind {
  int tranType;
  InvoiceScreen::Make make;
  const char* otherQuantity;  // what its lines leave empty
  const char* openItem;       // AgingDr or AgingCr, and its amount
  const char* amount;
  int carriage;  // the account of it
};

const Kind kinds[] = {{32, documents::makeSaleInvoicesSimple, "StockIn", "AgingDr", "TrAmount", 60001001},
                      {32, documents::makeSaleInvoicesPOS, "StockIn", "AgingDr", "TrAmount", 60001001},
                      {35, documents::makeSaleReturns, "StockOut", "AgingDr", "[Return]", 60001001},
                      {22, documents::makePurchaseBillsSimple, "StockOut", "AgingCr", "TrAmount", 50001004},
                      {25, documents::makePurchaseReturns, "StockIn", "AgingCr", "[Return]", 50001004}};

class Desk : private Dice {
 public:
  explicit Desk(const Kind& kind)
      : Dice(static_cast<unsigned>(kind.tranType)), kind_(kind), screen_(shop_, noVoucher, kind.make) {
    shop_.prompts.listen();
  }

  void step() {
    switch (pick(16)) {
      case 0:
        return type("DocNo", std::to_string(1 + pick(30)));
      case 1:
        return show();
      case 2:
        return screen_.press("CancelBttn");
      case 3:
        return type("Discount", amount(pick(3) ? 2 : 8));
      case 4:
        return type("Carriage", (pick(2) ? "-" : "") + amount(pick(3) ? 2 : 8));
      case 5:
        return atCounter_ ? void() : type("Received", amount(pick(3) ? 3 : 8));
      case 6:
        return clearCode();
      case 7:
      case 8:
        return save(atCounter_ ? "SaveBttn" : "PrintBill_1");
      case 9:
        return save("SaveBttn");
      case 10:
        return screen_.find<QCheckBox>("CancelOption").click();
      case 11:
        return saveAgain();
      default:
        return typeLine();
    }
  }

  std::size_t checked = 0;
  std::map<std::string, int> refusals;  // by how they begin

 private:
  void type(const char* box, const std::string& text) { screen_.type(box, QString::fromStdString(text)); }

  static void typeInto(QLineEdit& box, const std::string& text) {
    box.selectAll();
    test::type(box, QString::fromStdString(text));
  }

  // With a zero in front, which the boxes take.
  std::string amount(int digits) { return "0" + Dice::amount(digits); }

  std::string shown(int row, GridColumn column) {
    return screen_.find<QTableView>("Grid")
        .model()
        ->index(row, static_cast<int>(column))
        .data()
        .toString()
        .toStdString();
  }
  void cell(int row, GridColumn column, const std::string& text) {
    screen_.typeCell(row, column, QString::fromStdString(text));
    screen_.widget().findChild<frame::ItemGrid*>()->cancelEdit();  // when the cell refused the text
  }

  void typeLine() {
    const int row = pick(5);
    const char* const codes[] = {"H1", "N1", "Service"};
    if (pick(12) != 0 && shown(row, GridColumn::ItemCode).empty()) cell(row, GridColumn::ItemCode, codes[pick(3)]);
    const bool manyPieces = pick(2);
    cell(row, GridColumn::Quantity, amount(manyPieces ? 8 : 4));
    cell(row, GridColumn::Rate, amount(manyPieces ? 4 : 8));
    if (pick(3) == 0) cell(row, GridColumn::DiscountRate, amount(2));
    if (shown(row, GridColumn::DiscountRate).empty() && pick(2)) cell(row, GridColumn::Discount, amount(6));
  }

  void clearCode() {
    auto& grid = screen_.find<QTableView>("Grid");
    grid.setFocus(Qt::TabFocusReason);
    grid.setCurrentIndex(grid.model()->index(pick(5), 0));
    press(grid, Qt::Key_Delete);
  }

  void show() {
    if (documents_.empty()) return;
    const auto document = std::next(documents_.begin(), pick(static_cast<int>(documents_.size())));
    screen_.show(document->second.tranNo);
    shown_ = document->first;
    EXPECT_EQ(std::llround(text::amountFrom(screen_.text("NetTotal")) * 100), document->second.total);
  }

  void saveAgain() {
    show();
    if (shown_ == 0 || atCounter_) return;
    const int number = shown_;
    const Rows before = documents_[number].rows;
    save("SaveBttn");
    EXPECT_EQ(documents_[number].rows, before);
  }

  void save(const char* command) {
    if (screen_.text("PartyNameTxt").empty()) type("PartyCodeTxt", "12001003");
    for (const char* reference : {"D1", "D2"})
      if (const auto* box = screen_.widget().findChild<QLineEdit*>(reference); box && box->text().isEmpty())
        type(reference, "12");
    const int number = std::stoi("0" + screen_.text("DocNo"));
    shop_.clock.moment.second += 1;
    shop_.prompts.listen();
    const std::string net = screen_.text("NetTotal");
    const bool cancelled = screen_.find<QCheckBox>("CancelOption").isChecked();
    screen_.press(command);
    if (atCounter_) {
      typeInto(screen_.box("Received"), amount(8));
      press(screen_.box("Received"), Qt::Key_Return);
    }
    QApplication::processEvents();
    const Rows found = plainTexts(
        file_, "select TranNo from Transactions where TranType = " + std::to_string(kind_.tranType) +
                   " and DocNo = " + std::to_string(number) + " and TimeEdited = '" + shop_.clock.moment.iso() + "'");
    if (found.empty()) return expectRefused(text::amountFrom(net));
    const std::string before = shown_ == 0 ? found.front() : documents_[shown_].tranNo;
    EXPECT_EQ(found.front(), before) << "a shown document stays the same";
    if (shown_ != 0) documents_.erase(shown_);
    Document& document = documents_[number];
    document = {.tranNo = found.front(), .rows = rowsOf(found.front()), .cancelled = cancelled};
    expectWhole(document, number);
    EXPECT_EQ(document.total, std::llround(text::amountFrom(net) * 100)) << "as it was shown";
    expectOthersUntouched();
    shown_ = 0;
  }

  // Not for a third decimal: only what comes to less than nothing cannot be posted.
  void expectRefused(double net) {
    ASSERT_FALSE(shop_.prompts.told.empty());
    const std::string& why = shop_.prompts.told.back().text;
    EXPECT_TRUE(net < 0 || why.find("do not balance") == std::string::npos) << why;
    ++refusals[why.substr(0, 4)];
    expectOthersUntouched();
  }

  struct Document {
    std::string tranNo;
    Rows rows = {};
    bool cancelled = false;
    std::int64_t total = 0;  // cents
  };

  Rows rowsOf(const std::string& tranNo) {
    const std::string of = " where TranNo = " + tranNo;
    Rows all;
    for (const std::string& statement :
         {"select DocNo, TranDate, Nature, D1, D2, PartyCode, PartyCode2, Text1, Text4, Text7, Text12, Discount, "
          "Carriage, TrAmount, Received, Balance, WordsAmt, Cancel, InvLedger from Transactions" +
              of,
          "select Serial, ItemCode, StockIn, StockOut, Rate, GrossAmt, DiscRate, DiscAmt, ItemValue from StockFlow" +
              of + " order by FlowID",
          "select AccCode, Debit, Credit from SubTransactions" + of + " order by Serial",
          std::string("select DocNo, DocNo2, TrAmount, [Return], Payment, TotPayment from ") + kind_.openItem + of})
      for (const std::string& row : plainTexts(file_, statement)) all.push_back(row);
    return all;
  }

  void expectOthersUntouched() {
    for (const auto& [number, document] : documents_) EXPECT_EQ(rowsOf(document.tranNo), document.rows) << number;
    EXPECT_EQ(plainTexts(file_, "select count(*) from Transactions where TranType = " + std::to_string(kind_.tranType)),
              Rows{std::to_string(documents_.size())});
  }

  void expectWhole(Document& document, int number) {
    ++checked;
    const std::string of = " where TranNo = " + document.tranNo;
    const auto lines = plainSums(file_, "select GrossAmt, DiscAmt, ItemValue from StockFlow" + of);
    EXPECT_EQ(lines[0] - lines[1], lines[2]);
    const auto header =
        plainSums(file_, "select Discount, Carriage, TrAmount, Received, Balance from Transactions" + of);
    document.total = header[2];
    EXPECT_EQ(lines[2] - header[0] + header[1], header[2]);
    EXPECT_EQ(header[2] - header[3], header[4]);
    EXPECT_EQ(plainTexts(file_, "select Cancel from Transactions" + of), Rows{document.cancelled ? "-1" : "0"});
    expectPosted(document, number, header);
    EXPECT_EQ(plainTexts(file_, "select count(*) from StockFlow" + of + " and (ItemCode is null or ItemCode = '' or " +
                                    kind_.otherQuantity + " is not null)"),
              Rows{"0"});
  }

  // Head, carriage, money and party each have their part of the total, and what is open of it is what the party owes.
  void expectPosted(const Document& document, int number, const std::vector<std::int64_t>& header) {
    const std::string of = " where TranNo = " + document.tranNo;
    const int side = kind_.tranType == 32 || kind_.tranType == 25 ? 1 : -1;
    const auto moved = [&](const std::string& account) {
      return side * plainSums(file_, "select coalesce(Debit, 0) - coalesce(Credit, 0) from SubTransactions" + of +
                                         " and AccCode = " + account)[0];
    };
    EXPECT_EQ(one("select DocNo2 from Transactions" + of), std::to_string(number));
    const auto ledger = plainSums(file_, "select Debit, Credit from SubTransactions" + of);
    EXPECT_EQ(ledger[0], ledger[1]);
    EXPECT_EQ(moved(one("select PartyCode from Transactions" + of)), header[1] - header[2]);
    EXPECT_EQ(moved(std::to_string(kind_.carriage)), -header[1]);
    EXPECT_EQ(moved("10001001"), header[3]);
    const std::int64_t owed = moved(one("select PartyCode2 from Transactions" + of));
    EXPECT_EQ(owed, header[4]);
    const auto open = plainSums(file_, std::string("select ") + kind_.amount + ", TrAmount - TotPayment from " +
                                           kind_.openItem + of + " and DocNo2 = " + std::to_string(number));
    EXPECT_EQ(open[0], document.cancelled ? 0 : header[2]);
    if (atCounter_) return;  // paid is what was handed over
    EXPECT_EQ(open[1], document.cancelled ? 0 : owed * (kind_.tranType % 10 == 5 ? -1 : 1));
  }
  std::string one(const std::string& sql) { return plainTexts(file_, sql).front(); }

  const Kind& kind_;
  InvoiceCompany shop_;
  PlainFile file_{shop_.company.file()};
  InvoiceScreen screen_;
  std::map<int, Document> documents_;                                    // by number
  int shown_ = 0;                                                        // 0: the next save adds a document
  const bool atCounter_ = kind_.make == documents::makeSaleInvoicesPOS;  // the money is taken as it is saved
};

TEST(TradeScreenProperties, TheTotalIsWhatTheLinesComeToWhateverIsTypedClearedAndPrinted) {
  std::map<std::string, int> refusals;
  for (const Kind& kind : kinds) {
    SCOPED_TRACE(kind.tranType);
    Desk desk(kind);
    for (int step = 1; step <= 240; ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      desk.step();
      if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(desk.checked, 12u);
    for (const auto& [why, times] : desk.refusals) refusals[why] += times;
  }
  for (const char* why : {"Line", "This", "Amou"}) EXPECT_GT(refusals[why], 3) << why;
}

}  // namespace
