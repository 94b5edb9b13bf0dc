#include "demo_company/openings.h"

#include "demo_company/parties.h"
#include "demo_company/people.h"
#include "schema/document_kinds.h"
#include "store/recordset/recordset.h"
#include "text/number.h"

namespace velmo::demo {
namespace {

constexpr int cash = 10001001;
constexpr int openingInventory = 50001001;
constexpr int capital = 31001001;

double cents(double amount) {
  return text::roundHalfEven(amount, 2);
}

struct Opening {
  std::int64_t tranNo;
  std::int64_t year;
  text::DateTime date;
};

// The lines of the opening entry, with the sum of what was debited less what was credited.
class OpeningLedger {
 public:
  OpeningLedger(store::Connection& connection, const Opening& opening)
      : lines_(connection, "select * from SubTransactions where TranNo=0"),
        names_(connection, "select AccCode, AccName from AccLevel3 order by AccCode"),
        tranNo_(opening.tranNo) {}

  void debit(int account, double amount) { add(account, "Debit", amount, amount); }
  void credit(int account, double amount) { add(account, "Credit", amount, -amount); }
  double difference() const { return cents(difference_); }

 private:
  void add(int account, const char* side, double amount, double change) {
    names_.moveFirst();
    names_.find("AccCode = " + std::to_string(account));
    lines_.addNew({{"TranNo", tranNo_},
                   {"AccCode", account},
                   {"AccName", names_.text("AccName")},
                   {"Desc", "Balance Brought Forward"},
                   {side, cents(amount)}});
    difference_ += change;
  }

  store::Recordset lines_;
  store::Recordset names_;
  std::int64_t tranNo_;
  double difference_ = 0;
};

// Writes the goods at every location and returns their value.
double writeStock(store::Connection& connection, const Opening& opening, Dice& dice) {
  store::Recordset items(connection, "select * from StockLevel3 where CatID not like 'Service' order by ItemCode");
  store::Recordset lines(connection, "select * from StockFlow where TranNo=0");
  double value = 0;
  for (int location = 1; location <= locationCount; ++location) {
    int serial = 0;
    for (items.moveFirst(); !items.eof(); items.moveNext()) {
      if (location > 1 && !dice.inHundred(40)) continue;
      const double quantity = location == 1 ? dice.between(60, 400) : dice.between(10, 90);
      const double rate = items.number("PurchasePrice");
      const double worth = cents(quantity * rate);
      value += worth;
      lines.addNew({{"TranNo", opening.tranNo},
                    {"Serial", ++serial},
                    {"ItemCode", items.text("ItemCode")},
                    {"ItemName", items.text("ItemName")},
                    {"Packs", 1.0},
                    {"PackPcs", 1.0},
                    {"StockIn", quantity},
                    {"Unit", items.text("Unit")},
                    {"Rate", rate},
                    {"GrossAmt", worth},
                    {"DiscRate", 0.0},
                    {"DiscAmt", 0.0},
                    {"ItemValue", worth},
                    {"LocationID", location},
                    {"JobID", 0}});
    }
  }
  return cents(value);
}

struct OpenItem {
  int party;
  std::int64_t number;
  int daysBefore;  // the year
  double amount;
  std::string vendorNumber;  // of a bill
};

void addOpenItem(store::Recordset& rows, const Opening& opening, const OpenItem& item) {
  const text::DateTime date = opening.date.addDays(-item.daysBefore);
  std::vector<store::FieldValue> values = {{"TranNo", opening.tranNo},
                                           {"DocNo", item.number},
                                           {"DocNo2", item.number},
                                           {"TranDate", date},
                                           {"TranDate2", date},
                                           {"PartyCode", item.party},
                                           {"TranType", schema::tran_type::OpeningBalance},
                                           {"TrAmount", item.amount},
                                           {"Return", 0.0},
                                           {"Payment", 0.0},
                                           {"WHTaxRt", 0.0},
                                           {"WHTax", 0.0},
                                           {"Discount", 0.0},
                                           {"AdvAdj", 0.0},
                                           {"TotPayment", 0.0},
                                           {"FYID", opening.year}};
  if (!item.vendorNumber.empty()) values.push_back({"VendorInvNo", item.vendorNumber});
  rows.addNew(values);
}

// About every other customer came into the year with one to three unpaid invoices.
void writeReceivables(store::Connection& connection, const Opening& opening, OpeningLedger& ledger, Dice& dice) {
  store::Recordset rows(connection, "select * from AgingDr where TranNo=0");
  std::int64_t number = 9000;
  for (int party = firstCustomer; party < firstCustomer + customerCount; ++party) {
    if (!dice.inHundred(55)) continue;
    double balance = 0;
    for (int invoices = dice.between(1, 3); invoices > 0; --invoices) {
      const double amount = dice.between(4000, 90000) / 100.0;
      const int age = dice.between(1, 75);
      addOpenItem(rows, opening,
                  {.party = party, .number = ++number, .daysBefore = age, .amount = amount, .vendorNumber = {}});
      balance += amount;
    }
    ledger.debit(party, balance);
  }
}

void writePayables(store::Connection& connection, const Opening& opening, OpeningLedger& ledger, Dice& dice) {
  store::Recordset rows(connection, "select * from AgingCr where TranNo=0");
  std::int64_t number = 4000;
  for (int party = firstVendor; party < firstVendor + vendorCount; ++party) {
    if (!dice.inHundred(70)) continue;
    double balance = 0;
    for (int bills = dice.between(1, 2); bills > 0; --bills) {
      const double amount = dice.between(20000, 350000) / 100.0;
      const int age = dice.between(1, 60);
      ++number;
      addOpenItem(rows, opening,
                  {.party = party,
                   .number = number,
                   .daysBefore = age,
                   .amount = amount,
                   .vendorNumber = "V-" + std::to_string(dice.between(1000, 9999)) + "-" + std::to_string(number)});
      balance += amount;
    }
    ledger.credit(party, balance);
  }
}

}  // namespace

void writeOpenings(store::Connection& connection, Dice& dice) {
  const store::Recordset header(connection, "select * from Transactions where TranType=11");
  const Opening opening{header.integer("TranNo"), header.integer("FYID"), header.date("TranDate")};
  OpeningLedger ledger(connection, opening);
  ledger.debit(cash, 3150.75);
  const double bankBalances[bankCount] = {42810.20, 17345.00, 8620.55};
  for (int bank = 0; bank < bankCount; ++bank) ledger.debit(firstBank + bank, bankBalances[bank]);
  writeReceivables(connection, opening, ledger, dice);
  ledger.debit(openingInventory, writeStock(connection, opening, dice));
  writePayables(connection, opening, ledger, dice);
  ledger.credit(capital, ledger.difference());
}

}  // namespace velmo::demo
