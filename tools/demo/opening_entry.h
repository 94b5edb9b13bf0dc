#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "frame/posting/aging.h"
#include "store/recordset/recordset.h"

namespace velmo::demo {

double cents(double amount);

// The entry with which a company comes into a year: balances of accounts, unpaid invoices and bills, goods.
class OpeningEntry {
 public:
  struct OpenItem {
    int party;
    std::int64_t number;
    text::DateTime date;
    double amount;
    std::string vendorNumber;  // of a bill
  };
  struct Goods {
    int location;
    std::string code;
    std::string name;
    std::string unit;
    double quantity;
    double rate;
  };

  // The year has its entry already, without lines.
  OpeningEntry(store::Connection& connection, std::int64_t fyid);

  void debit(int account, double amount) { add(account, "Debit", amount, amount); }
  void credit(int account, double amount) { add(account, "Credit", amount, -amount); }
  double difference() const { return cents(difference_); }  // debits less credits

  void owe(frame::AgingSide side, const OpenItem& item);
  const text::DateTime& date() const { return date_; }  // the day before the year
  double stock(const Goods& goods);                     // what they are worth

 private:
  void add(int account, const char* side, double amount, double change);

  std::int64_t tranNo_ = 0;
  std::int64_t year_;
  text::DateTime date_;
  std::map<std::int64_t, std::string> names_;  // of accounts
  store::Recordset ledger_, receivables_, payables_, goods_;
  std::map<int, int> serials_;  // by location
  double difference_ = 0;
};

}  // namespace velmo::demo
