#include <gtest/gtest.h>

#include <map>

#include "support/dice.h"
#include "text/format.h"
#include "text/number.h"
#include "vouchers/clerk.h"
#include "vouchers/journal/general_journal_type.h"

// Journal vouchers at random, as they are typed: whatever agrees to the cent is saved with every digit, printed in the
// middle and given other numbers, and no other voucher moves.
namespace {

using namespace velmo;
using namespace velmo::test;
using Rows = std::vector<std::string>;

enum Column { Code = 0, Debit = 3, Credit = 4 };

class Desk : private Dice {
 public:
  Desk() : Dice(41) {}

  void voucher() {
    const bool again = !saved_.empty() && pick(3) == 0;
    const auto shown = again ? std::next(saved_.begin(), pick(static_cast<int>(saved_.size()))) : saved_.end();
    const std::string before = again ? shown->second.tranNo : "";
    if (again) {
      clerk_.show(before);
      clearLines();
    } else {
      clerk_.press("CancelBttn");
    }
    int number = 1 + pick(60);
    while (saved_.contains(number)) ++number;
    clerk_.type("DocNo", QString::number(number));
    const Rows typed = typeLines();
    const bool agrees = clerk_.text("DTot") == clerk_.text("CTot");
    if (!agrees) company_.prompts.expect("Cannot Save", "Totals of debits and credits must be equal.");
    clerk_.press(pick(2) ? "SaveBttn" : "PrintBill");
    QApplication::processEvents();
    if (!agrees) {
      ++refused;
      if (again) clerk_.press("CancelBttn");
      expectUntouched({});
      clerk_.press(again ? "AddBttn" : "CancelBttn");
      return;
    }
    const std::string tranNo =
        plainTexts(file_, "select TranNo from Transactions where TranType = 41 and DocNo = " + std::to_string(number))
            .front();
    EXPECT_EQ(tranNo, again ? before : tranNo) << "a shown voucher stays the same";
    if (again) saved_.erase(shown);
    saved_[number] = {tranNo, ledger(tranNo)};
    EXPECT_EQ(saved_[number].rows, typed);
    EXPECT_EQ(plainTexts(file_, "select count(*) from Transactions where TranType = 41"),
              Rows{std::to_string(saved_.size())});
    expectUntouched(tranNo);
  }

  std::size_t saved() const { return saved_.size(); }
  int refused = 0;

 private:
  struct Voucher {
    std::string tranNo;
    Rows rows;
  };

  void cell(int row, Column column, const std::string& text) {
    clerk_.cell("Grid", row, column, QString::fromStdString(text));
  }

  void clearLines() {
    auto& table = clerk_.find<QTableView>("Grid");
    table.setFocus(Qt::TabFocusReason);
    while (!clerk_.shown("Grid", 0, Code).empty()) {
      table.setCurrentIndex(table.model()->index(0, Code));
      press(table, Qt::Key_Delete, Qt::ControlModifier);
    }
  }

  // Some lines and one that makes them agree, to the cent or not quite: the ledger that they are to become.
  Rows typeLines() {
    const char* const accounts[] = {"10001001", "60001001", "12001002"};
    Rows typed;
    const auto add = [&](Column side, const std::string& figure) {
      const auto row = static_cast<int>(typed.size());
      const char* const account = accounts[pick(3)];
      cell(row, Code, account);
      cell(row, side, figure);
      const std::string stored = text::numberText(text::amountFrom(figure));
      typed.push_back(std::string(account) + "|" + (side == Debit ? stored + "|" : "|" + stored));
    };
    for (int line = 1 + pick(3); line > 0; --line) add(pick(2) ? Debit : Credit, amount(10));
    const double open = text::amountFrom(clerk_.text("DTot")) - text::amountFrom(clerk_.text("CTot"));
    const double nearly = pick(4) ? 0 : pick(2) ? 0.004 : 0.01;
    const std::string rest = text::formatNumber(std::fabs(open) + nearly, "0.000");
    if (text::amountFrom(rest) != 0 && rest.size() < 15) add(open < 0 ? Debit : Credit, rest);
    return typed;
  }

  Rows ledger(const std::string& tranNo) {
    Rows rows;
    PlainRows lines(file_,
                    "select AccCode, Debit, Credit from SubTransactions where TranNo = " + tranNo + " order by Serial");
    while (lines.next()) {
      const auto figure = [&](int column) {
        return lines.text(column).empty() ? std::string() : text::numberText(lines.number(column));
      };
      rows.push_back(lines.text(0) + "|" + figure(1) + "|" + figure(2));
    }
    return rows;
  }

  void expectUntouched(const std::string& butFor) {
    for (const auto& [number, voucher] : saved_)
      EXPECT_EQ(voucher.tranNo == butFor ? voucher.rows : ledger(voucher.tranNo), voucher.rows) << number;
  }

  SettlementCompany company_;
  PlainFile file_{company_.company.file()};
  std::map<int, Voucher> saved_;  // by number
  Clerk clerk_{company_, vouchers::makeGeneralJournal, noVoucher};
};

TEST(JournalScreenProperties, WhatAgreesToTheCentIsSavedToTheLastDigit) {
  Desk desk;
  for (int voucher = 1; voucher <= 60; ++voucher) {
    SCOPED_TRACE("voucher " + std::to_string(voucher));
    desk.voucher();
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(desk.saved(), 20u);
  EXPECT_GT(desk.refused, 1);
}

}  // namespace
