#include <gtest/gtest.h>

#include <QCheckBox>
#include <map>

#include "support/dice.h"
#include "support/exact_decimal.h"
#include "text/format.h"
#include "text/number.h"
#include "vouchers/clerk.h"

// Receipts and payments at random, under a clerk's hands: typed with every amount that the boxes take, printed in the
// middle, given other numbers, turned from one mode into the other, cancelled and shown again. After each save the
// document is whole, every other one is as it was and the open items are what all of them leave, in the rows that
// SQLite finds in the file.
namespace {

using namespace velmo;
using namespace velmo::test;
using namespace velmo::vouchers;
using Rows = std::vector<std::string>;

struct Kind {
  int tranType;
  InvoiceScreen::Make make;
  const SettlementKind& settlement;
  bool receipt;
  const char* money;
  const char* party;
};

const Kind kinds[] = {{38, makeBankReceipts, bankReceipts(), true, "11001009", "12001002"},
                      {39, makeCashReceipts, cashReceipts(), true, "10001001", "12001002"},
                      {28, makeBankPayments, bankPayments(), false, "11001009", "21001002"},
                      {29, makeCashPayments, cashPayments(), false, "10001001", "21001002"}};

class Desk : private Dice {
 public:
  explicit Desk(const Kind& kind)
      : Dice(static_cast<unsigned>(kind.tranType)), kind_(kind), clerk_(openItems(), kind.make, noVoucher) {}

  void step() {
    switch (pick(13)) {
      case 0:
        return type("DocNo", std::to_string(1 + pick(40)));
      case 1:
        return clerk_.find<QRadioButton>(pick(2) ? "RecOpt_0" : "RecOpt_1").click();
      case 2:
        return show();
      case 3:
        clerk_.press("CancelBttn");
        return;
      case 4:
        return type("AdvTxt", amount(pick(2) ? 7 : 8));
      case 5:
      case 6:
        return save(true);
      case 7:
        return save(false);
      case 8:
        return clerk_.find<QCheckBox>("CancelOption").click();
      default:
        return isPetty() ? typePettyLine() : typeInvoice();
    }
  }

  std::size_t saved() const { return documents_.size(); }
  std::size_t checked = 0;
  std::size_t refused = 0;
  std::set<std::string> natures;

 private:
  struct Document {
    std::string tranNo;
    Rows rows;
  };

  // Invoices and bills of an older file, some of them finer than money and wider than any box.
  SettlementCompany& openItems() {
    const char* const amounts[] = {"1000.005", "123456789012.335", "0.01", "250.1", "99.994", "33333333.333"};
    for (int i = 0; i < 24; ++i) {
      const std::string day = "02-" + std::to_string(10 + i % 19) + "-2026";
      if (kind_.receipt)
        company_.invoice(100 + i, day, SettlementCompany::customer, amounts[i % 6]);
      else
        company_.bill(100 + i, "B-" + std::to_string(i), day, amounts[i % 6]);
    }
    return company_;
  }

  bool isPetty() { return clerk_.find<QRadioButton>("RecOpt_1").isChecked(); }
  void type(const char* box, const std::string& text) { clerk_.type(box, QString::fromStdString(text)); }

  void cell(const char* grid, int row, int column, const std::string& text) {
    clerk_.cell(grid, row, column, QString::fromStdString(text));
  }
  int filledRows(const char* grid) {
    int row = 0;
    while (!clerk_.shown(grid, row, 0).empty()) ++row;
    return row;
  }
  void removeRow(const char* grid, int row) {
    auto& table = clerk_.find<QTableView>(grid);
    table.setFocus(Qt::TabFocusReason);
    table.setCurrentIndex(table.model()->index(row, 0));
    press(table, Qt::Key_Delete, Qt::ControlModifier);
  }

  void typePettyLine() {
    const int rows = filledRows("Grid");
    if (rows > 0 && pick(4) == 0) return removeRow("Grid", pick(rows));
    const int row = pick(rows + 1);
    const char* const accounts[] = {"60001001", "60001002", "12001003"};
    cell("Grid", row, 0, accounts[pick(3)]);
    cell("Grid", row, 3, (pick(5) ? "" : "-") + amount(9));
  }

  void typeInvoice() {
    if (clerk_.text("PartyAcc").empty()) type("PartyCode", kind_.party);
    const int rows = filledRows("AgingGrid");
    if (rows > 0 && pick(5) == 0) return removeRow("AgingGrid", pick(rows));
    const int row = pick(rows + 1);
    const std::string number = std::to_string(pick(24));
    if (row == rows || pick(3) == 0)
      cell("AgingGrid", row, settlement::Invoice,
           kind_.receipt ? std::to_string(100 + std::stoi(number)) : "B-" + number);
    if (clerk_.shown("AgingGrid", row, 0).empty()) return;
    if (pick(2)) cell("AgingGrid", row, settlement::TotPayment, amount(8));
    if (pick(3) == 0) cell("AgingGrid", row, settlement::WHTaxRt, amount(2));
    if (pick(3) == 0) cell("AgingGrid", row, settlement::WHTax, amount(8));
    if (pick(3) == 0) cell("AgingGrid", row, settlement::AdvAdj, amount(8));
    if (pick(3) == 0) cell("AgingGrid", row, settlement::Discount, (pick(2) ? "-" : "") + amount(8));
  }

  void show() {
    if (documents_.empty()) return;
    const auto document = std::next(documents_.begin(), pick(static_cast<int>(documents_.size())));
    clerk_.show(document->second.tranNo);
    shown_ = document->first;
    EXPECT_EQ(isPetty(), document->second.rows.front().starts_with("Petty"));
  }

  void save(bool print) {
    if (clerk_.text("BankAcc").empty()) type("BankCode", kind_.money);
    if (!isPetty() && clerk_.text("PartyAcc").empty()) type("PartyCode", kind_.party);
    const int number = std::stoi("0" + clerk_.text("DocNo"));
    if (number == 0) return;
    const bool taken = number != shown_ && documents_.contains(number);
    const bool nothing = isPetty() && text::amountFrom(clerk_.text("TAmt")) == 0;
    if (taken)
      company_.prompts.expect("Cannot Save",
                              "This Serial No. already exists. Saving this would create duplicate values.");
    else if (nothing)
      company_.prompts.expect("Cannot Save", "Transaction must have some value greater than 0.");
    const bool petty = isPetty();
    const int lines = filledRows(petty ? "Grid" : "AgingGrid");
    const std::string total = clerk_.text(petty ? "TAmt" : "Amt2Party");
    const bool cancelled = clerk_.find<QCheckBox>("CancelOption").isChecked();
    const Rows cells = shownCells(petty);
    clerk_.press(print ? "PrintBill_1" : "SaveBttn");
    QApplication::processEvents();
    if (taken || nothing) {
      ++refused;
      expectOthersUntouched(0);
      return;
    }
    const std::string before = shown_ == 0 ? std::string() : documents_[shown_].tranNo;
    if (shown_ != 0) documents_.erase(shown_);
    Document& document = documents_[number];
    document.tranNo =
        plainTexts(file_, "select TranNo from Transactions where TranType = " + std::to_string(kind_.tranType) +
                              " and DocNo = " + std::to_string(number))
            .front();
    EXPECT_EQ(document.tranNo, before.empty() ? document.tranNo : before) << "a shown document stays the same";
    document.rows = rowsOf(document.tranNo);
    expectWhole(document, number, petty, lines, total);
    EXPECT_EQ(cells, storedCells(document.tranNo, petty)) << "an amount holds what its cell shows";
    EXPECT_EQ(plainTexts(file_, "select Cancel from Transactions where TranNo = " + document.tranNo),
              Rows{cancelled ? "-1" : "0"});
    if (print) {
      EXPECT_EQ(filledRows(petty ? "Grid" : "AgingGrid"), lines) << "what was saved stands there";
    }
    expectOthersUntouched(number);
    expectPending();
    natures.insert(document.rows.front().substr(0, document.rows.front().find('|')));
    if (!print)
      shown_ = 0;
    else if (shown_ != 0)
      shown_ = number;
  }

  // Invoices and their amounts, or petty accounts and theirs.
  Rows shownCells(bool petty) {
    const std::vector<int> amounts = petty
                                         ? std::vector<int>{3}
                                         : std::vector<int>{settlement::Payment, settlement::WHTax, settlement::AdvAdj,
                                                            settlement::Discount, settlement::TotPayment};
    Rows all;
    const char* const grid = petty ? "Grid" : "AgingGrid";
    for (int row = 0; row < filledRows(grid); ++row) {
      std::string line = clerk_.shown(grid, row, 0);
      for (const int column : amounts)
        line += "|" + text::numberText(text::amountFrom(clerk_.shown(grid, row, column)));
      all.push_back(line);
    }
    return all;
  }
  Rows storedCells(const std::string& tranNo, bool petty) {
    const std::string side = kind_.receipt ? "Credit" : "Debit";
    const std::string other = kind_.receipt ? "Debit" : "Credit";
    PlainRows rows(file_, petty ? "select AccCode, coalesce(" + side + ", -" + other + ") from SubTransactions where " +
                                      "TranNo = " + tranNo + " and AccCode <> " + kind_.money + " order by Serial"
                                : "select " + std::string(vouchers::keyColumn(kind_.settlement)) +
                                      ", Payment, WHTax, AdvAdj, Discount, TotPayment from " + aging() +
                                      " where TranNo = " + tranNo + " order by Serial");
    Rows all;
    while (rows.next()) {
      std::string line = rows.text(0);
      for (int column = 1; column < rows.columns(); ++column) line += "|" + text::numberText(rows.number(column));
      all.push_back(line);
    }
    return all;
  }

  // Both lists against what is left of each invoice when the rows of all documents are taken off it on paper.
  void expectPending() {
    const std::string key(vouchers::keyColumn(kind_.settlement));
    std::multiset<std::string> wanted, listed;
    PlainRows items(file_, "select TranNo, " + key + ", TranDate, TrAmount from " + aging() +
                               " where TrAmount > 0 and PartyCode = " + kind_.party);
    while (items.next()) {
      ExactDecimal open;
      open += items.number(3);
      PlainRows paid(file_, "select TotPayment from " + std::string(aging()) +
                                " a join Transactions t using (TranNo) " + "where Cancel = 0 and a." + key + " = '" +
                                items.text(1) + "' and a.PartyCode = " + kind_.party + " and a.TranDate = '" +
                                items.text(2) + "'");
      while (paid.next()) open -= paid.number(0);
      if (open.value() > 0) wanted.insert(items.text(1) + " " + text::numberText(open.value()));
    }
    for (const std::string& item : pendingOf(company_, kind_.settlement, std::stoll(kind_.party))) listed.insert(item);
    EXPECT_EQ(listed, wanted);
    listed.clear();
    for (store::Recordset rows(company_.context.KORDconn,
                               pendingListStatement(kind_.settlement, std::stoll(kind_.party), 1));
         !rows.eof(); rows.moveNext())
      listed.insert(rows.text(key) + " " + rows.text("BalAmt"));
    EXPECT_EQ(listed, wanted);
  }

  const char* aging() const { return kind_.receipt ? "AgingDr" : "AgingCr"; }

  Rows rowsOf(const std::string& tranNo) {
    const std::string of = " where TranNo = " + tranNo;
    Rows all = bareRows(
        company_,
        "select Nature, DocNo, Cancel, PartyCode, PartyCode2, TrAmount, Received, Balance from Transactions" + of);
    for (const std::string& statement :
         {"select AccCode, Debit, Credit from SubTransactions" + of + " order by Serial",
          "select DocNo, DocNo2, TranDate, PartyCode, Payment, WHTaxRt, WHTax, AdvAdj, Discount, TotPayment from " +
              std::string(aging()) + of + " order by Serial"})
      for (const std::string& row : plainTexts(file_, statement)) all.push_back(row);
    return all;
  }

  void expectOthersUntouched(int number) {
    for (const auto& [docNo, document] : documents_)
      EXPECT_EQ(docNo == number ? document.rows : rowsOf(document.tranNo), document.rows) << docNo;
    EXPECT_EQ(plainTexts(file_, "select count(*) from Transactions where TranType = " + std::to_string(kind_.tranType)),
              Rows{std::to_string(documents_.size())});
  }

  void expectWhole(const Document& document, int number, bool petty, int lines, const std::string& total) {
    ++checked;
    const std::string of = " where TranNo = " + document.tranNo;
    const std::string items = std::string(" from ") + aging() + of;
    const auto ledger = plainSums(file_, "select Debit, Credit from SubTransactions" + of);
    EXPECT_EQ(ledger[0], ledger[1]);
    const auto header = plainSums(
        file_, "select TrAmount, Received, Balance, Carriage, AdditionalTax, Discount from Transactions" + of);
    EXPECT_EQ(header[0], std::llround(text::amountFrom(total) * 100));
    const auto settled = plainSums(file_, "select TotPayment, Payment, WHTax, AdvAdj, Discount" + items);
    if (petty) {
      const char* const side = kind_.receipt ? "Credit" : "Debit";
      EXPECT_EQ(plainTexts(file_, "select count(*)" + items), Rows{"0"});
      EXPECT_EQ(bareRows(company_,
                         std::string("select count(*) from SubTransactions") + of + " and " + side + " is not null"),
                Rows{std::to_string(lines)});
      EXPECT_EQ(header, (std::vector<std::int64_t>{ledger[0], ledger[0], 0, 0, 0, 0}));
      return;
    }
    EXPECT_EQ(plainTexts(file_, "select count(*)" + items + " and DocNo2 = " + std::to_string(number) +
                                    " and PartyCode = " + kind_.party),
              Rows{std::to_string(lines)});
    EXPECT_EQ(settled, (std::vector<std::int64_t>{header[0] - header[2], header[1] - header[2], header[3], header[4],
                                                  header[5]}));
    EXPECT_EQ(settled[0], settled[1] + settled[2] + settled[3] + settled[4]);
    const auto moved = [&](const char* account) {
      return (kind_.receipt ? 1 : -1) *
             plainSums(file_, "select coalesce(Debit, 0) - coalesce(Credit, 0) from SubTransactions" + of +
                                  " and AccCode = " + account)[0];
    };
    EXPECT_EQ(moved(kind_.money), header[1]);
    EXPECT_EQ(moved(kind_.party), header[4] - header[0]);
    EXPECT_EQ(moved(kind_.receipt ? "14001001" : "22001001"), header[3]);
    EXPECT_EQ(moved(kind_.receipt ? "60001002" : "40001003"), header[5]);
  }

  const Kind& kind_;
  SettlementCompany company_;
  PlainFile file_{company_.company.file()};
  std::map<int, Document> documents_;  // by number
  int shown_ = 0;                      // 0: the next save adds a document
  Clerk clerk_;
};

TEST(SettlementScreenProperties, EveryDocumentIsWholeAndNoOtherOneMovesWhateverIsTypedPrintedAndTurned) {
  for (const Kind& kind : kinds) {
    SCOPED_TRACE(kind.tranType);
    Desk desk(kind);
    for (int step = 1; step <= 240; ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      desk.step();
      if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(desk.saved(), 4u);
    EXPECT_GT(desk.checked, 20u);
    EXPECT_GT(desk.refused, 1u);
    EXPECT_EQ(desk.natures.size(), 2u);
  }
}

}  // namespace
