#include "demo_company/openings.h"

#include "demo_company/opening_entry.h"
#include "demo_company/parties.h"
#include "demo_company/people.h"

namespace velmo::demo {
namespace {

constexpr int cash = 10001001;
constexpr int openingInventory = 50001001;
constexpr int capital = 31001001;

// Writes the goods at every location and returns their value.
double writeStock(store::Connection& connection, OpeningEntry& entry, Dice& dice) {
  store::Recordset items(connection, "select * from StockLevel3 where CatID not like 'Service' order by ItemCode");
  double value = 0;
  for (int location = 1; location <= locationCount; ++location)
    for (items.moveFirst(); !items.eof(); items.moveNext()) {
      if (location > 1 && !dice.inHundred(40)) continue;
      const double quantity = location == 1 ? dice.between(60, 400) : dice.between(10, 90);
      value += entry.stock({.location = location,
                            .code = items.text("ItemCode"),
                            .name = items.text("ItemName"),
                            .unit = items.text("Unit"),
                            .quantity = quantity,
                            .rate = items.number("PurchasePrice")});
    }
  return cents(value);
}

// About every other customer came into the year with one to three unpaid invoices.
void writeReceivables(OpeningEntry& entry, Dice& dice) {
  std::int64_t number = 9000;
  for (int party = firstCustomer; party < firstCustomer + customerCount; ++party) {
    if (!dice.inHundred(55)) continue;
    double balance = 0;
    for (int invoices = dice.between(1, 3); invoices > 0; --invoices) {
      const double amount = dice.between(4000, 90000) / 100.0;
      const int age = dice.between(1, 75);
      entry.owe(frame::AgingSide::Receivable, {.party = party,
                                               .number = ++number,
                                               .date = entry.date().addDays(-age),
                                               .amount = amount,
                                               .vendorNumber = {}});
      balance += amount;
    }
    entry.debit(party, balance);
  }
}

void writePayables(OpeningEntry& entry, Dice& dice) {
  std::int64_t number = 4000;
  for (int party = firstVendor; party < firstVendor + vendorCount; ++party) {
    if (!dice.inHundred(70)) continue;
    double balance = 0;
    for (int bills = dice.between(1, 2); bills > 0; --bills) {
      const double amount = dice.between(20000, 350000) / 100.0;
      const int age = dice.between(1, 60);
      ++number;
      entry.owe(frame::AgingSide::Payable,
                {.party = party,
                 .number = number,
                 .date = entry.date().addDays(-age),
                 .amount = amount,
                 .vendorNumber = "V-" + std::to_string(dice.between(1000, 9999)) + "-" + std::to_string(number)});
      balance += amount;
    }
    entry.credit(party, balance);
  }
}

}  // namespace

void writeOpenings(store::Connection& connection, Dice& dice) {
  OpeningEntry entry(connection, 1);
  entry.debit(cash, 3150.75);
  const double bankBalances[bankCount] = {42810.20, 17345.00, 8620.55};
  for (int bank = 0; bank < bankCount; ++bank) entry.debit(firstBank + bank, bankBalances[bank]);
  writeReceivables(entry, dice);
  entry.debit(openingInventory, writeStock(connection, entry, dice));
  writePayables(entry, dice);
  entry.credit(capital, entry.difference());
}

}  // namespace velmo::demo
