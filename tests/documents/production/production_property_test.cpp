#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <map>

#include "documents/production/workshop_desk.h"
#include "support/dice.h"
#include "support/exact_decimal.h"
#include "support/parted.h"
#include "text/format.h"
#include "text/number.h"

// Recipes and productions at random, typed, imported, changed, cancelled and deleted, between receipts of other kinds
// that come, change and go: what is posted is balanced and worth what it cost, recipes count nowhere, and the cost of
// every item is the average of its receipts, added up digit by digit.
namespace velmo::documents {
namespace {

using frame::GridColumn;

constexpr const char* items[] = {"H1", "N1", "P1"};

class Workshop : private test::Dice {
 public:
  explicit Workshop(unsigned seed)
      : Dice(seed), production_(shop_, makeProduction), recipes_(shop_, makeBillofMaterial) {
    shop_.prompts.listen();
  }

  void step() {
    switch (pick(12)) {
      case 0:
        return writeRecipe();
      case 1:
      case 2:
        return receive();
      case 3:
        return change();
      case 4:
        production_.press("PrevBttn");
        return production_.press("DelBttn");
      case 5:
        production_.press("PrevBttn");
        production_.find<QCheckBox>("CancelOption").click();
        return production_.press("SaveBttn");
      default:
        return produce();
    }
  }

  void checkBooks() {
    for (const std::string& row : shop_.rows(
             "select T.docno, T.tramount, Sum(IIf(IsNull(S.debit),0,S.debit)) as Debits, "
             "Sum(IIf(IsNull(S.credit),0,S.credit)) as Credits, T.discount+T.carriage+T.received+T.balance as Cost "
             "from transactions as T inner join subtransactions as S on T.tranno = S.tranno where T.trantype=42 group "
             "by T.tranno, T.docno, T.tramount, T.discount, T.carriage, T.received, T.balance")) {
      const std::vector<std::string_view> fields = test::parted(row);
      EXPECT_EQ(fields[1], fields[2]) << row;
      EXPECT_EQ(fields[2], fields[3]) << row;
      EXPECT_EQ(fields[3], fields[4]) << row;
      ++productions;
    }
    EXPECT_EQ(shop_
                  .rows("select S.tranno from subtransactions as S inner join transactions as T on S.tranno = T.tranno "
                        "where T.trantype=95")
                  .size(),
              0U);
    shop_.context.Costs.arm();
    shop_.context.Costs.settle(shop_.context.KORDconn, 1, text::DateTime::fromCalendar(2026, 12, 31));
    for (const char* item : items) checkItem(item);
  }
  int productions = 0;

 private:
  QString figure(int whole, int decimals) {
    return QString::number(1 + pick(whole)) + "." + QString::number(pick(decimals)).rightJustified(3, '0');
  }

  // Every line is looked at by itself, and no total that the file keeps.
  void checkItem(const std::string& item) {
    test::ExactDecimal in, out, quantity, value;
    store::Recordset lines(shop_.context.KORDconn,
                           "select T.trantype, T.cancel, T.invledger, S.stockin, S.stockout, S.itemvalue from "
                           "stockflow as S inner join transactions as T on S.tranno = T.tranno where S.itemcode = '" +
                               item + "'",
                           store::LockType::ReadOnly);
    for (; !lines.eof(); lines.moveNext()) {
      const std::int64_t type = lines.integer("trantype");
      if (lines.yes("cancel") || type == 95) continue;
      in += lines.number("stockin");
      out += lines.number("stockout");
      const bool counts = type == 11 || type == 21 || type == 22 || type == 42 || type == 45;
      if (!counts || store::isNull(lines.value("stockin"))) continue;
      quantity += lines.number("stockin");
      value += lines.number("itemvalue");
    }
    test::ExactDecimal balance = in;
    balance -= out.value();
    EXPECT_DOUBLE_EQ(frame::itemAvailable(shop_.context.KORDconn, item, 0, 1), balance.value()) << item;
    if (quantity.value() == 0) return;
    const double cost =
        text::amountFrom(shop_.one("select valuationcost2 from stocklevel3 where itemcode='" + item + "'"));
    EXPECT_NEAR(cost, value.value() / quantity.value(), 1e-13 * std::abs(cost)) << item;
  }

  void writeRecipe() {
    recipes_.press(pick(3) == 0 ? "PrevBttn" : "CancelBttn");
    recipes_.type("ICode", items[pick(3)]);
    for (int row = 0, count = pick(4); row < count; ++row)
      recipes_.line("Grid", row, items[pick(3)], figure(4, 1000), figure(9, 1000));
    recipes_.type("Labour", figure(5, 100));
    recipes_.type("FOH", figure(5, 100));
    recipes_.press("SaveBttn");
  }

  void produce() {
    production_.press(pick(4) == 0 ? "PrevBttn" : "CancelBttn");
    production_.line("GridOut", 0, items[pick(3)], figure(9, 1000));
    production_.press("ImportBttn");
    if (pick(2)) production_.line("GridIn", pick(5), items[pick(3)], figure(9, 1000), figure(9, 1000));
    if (pick(3) == 0) {
      production_.type("TotOS", figure(20, 100));
      auto& parties = production_.find<QComboBox>("PartyList");
      parties.setCurrentIndex(parties.findText("Zoe Builders"));
    }
    if (pick(5) != 0) {  // valued by hand: a piece at all that it costs
      production_.cell("GridOut", 0, GridColumn::Quantity, "1");
      production_.cell("GridOut", 0, GridColumn::Rate, QString::fromStdString(production_.text("TotCOP")));
    }
    production_.press(pick(4) == 0 ? "PrintBill_1" : "SaveBttn");
    QApplication::processEvents();
  }

  void receive() {
    constexpr int types[] = {11, 21, 22, 45, 35, 47, 25};
    const int type = types[pick(7)];
    const bool arrives = type != 47 && type != 25;
    store::Recordset tran(shop_.context.KORDconn, "select * from transactions where tranno=0");
    tran.addNew({{"DocNo", std::int64_t{++last_}},
                 {"TranType", std::int64_t{type}},
                 {"FYID", std::int64_t{1}},
                 {"TranDate", text::DateTime::fromCalendar(2026, 1 + pick(12), 1 + pick(28))},
                 {"Cancel", false},
                 {"InvLedger", false}});
    store::Recordset lines(shop_.context.KORDconn, "select * from stockflow where tranno=0");
    for (int count = 1 + pick(3); count > 0; --count)
      lines.addNew({{"TranNo", tran.integer("TranNo")},
                    {"ItemCode", std::string(items[pick(3)])},
                    {arrives ? "StockIn" : "StockOut", text::amountFrom(figure(9, 1000).toStdString())},
                    {"ItemValue", text::amountFrom(figure(90, 100).toStdString())}});
    others_.push_back(tran.integer("TranNo"));
  }

  void change() {
    if (others_.empty()) return;
    const std::string ofOne =
        " where tranno = " + std::to_string(others_[static_cast<std::size_t>(pick(static_cast<int>(others_.size())))]);
    switch (pick(4)) {
      case 0:
        return shop_.run("update transactions set cancel = yes" + ofOne);
      case 1:
        return shop_.run("update transactions set cancel = no" + ofOne);
      case 2:
        return shop_.run("delete from transactions" + ofOne);
      default:
        return shop_.run("update stockflow set itemvalue = " + figure(50, 100).toStdString() + ofOne);
    }
  }

  test::WorkshopCompany shop_;
  test::WorkshopScreen production_;
  test::WorkshopScreen recipes_;
  std::vector<std::int64_t> others_;
  std::int64_t last_ = 100;
};

TEST(ProductionProperty, IsWorthWhatItCostWhateverIsDone) {
  int productions = 0;
  for (unsigned seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(seed);
    Workshop workshop(seed);
    for (int i = 0; i < 60 && !testing::Test::HasFailure(); ++i) {
      workshop.step();
      if (i % 4 == 3) workshop.checkBooks();
    }
    productions += workshop.productions;
  }
  EXPECT_GT(productions, 100);
}

}  // namespace
}  // namespace velmo::documents
