#include "demo_company/opening_entry.h"

#include "text/number.h"

namespace velmo::demo {
namespace {

constexpr int openingEntry = 11;

}  // namespace

double cents(double amount) {
  return text::roundHalfEven(amount, 2);
}

OpeningEntry::OpeningEntry(store::Connection& connection, std::int64_t fyid)
    : year_(fyid),
      ledger_(connection, "select * from SubTransactions where TranNo=0"),
      receivables_(connection, "select * from AgingDr where TranNo=0"),
      payables_(connection, "select * from AgingCr where TranNo=0"),
      goods_(connection, "select * from StockFlow where TranNo=0") {
  const store::Recordset header(connection,
                                "select * from Transactions where TranType=11 and FYID=" + std::to_string(fyid));
  tranNo_ = header.integer("TranNo");
  date_ = header.date("TranDate");
  for (store::Recordset accounts(connection, "select AccCode, AccName from AccLevel3", store::LockType::ReadOnly);
       !accounts.eof(); accounts.moveNext())
    names_[accounts.integer("AccCode")] = accounts.text("AccName");
}

void OpeningEntry::add(int account, const char* side, double amount, double change) {
  ledger_.addNew({{"TranNo", tranNo_},
                  {"AccCode", account},
                  {"AccName", names_.at(account)},
                  {"Desc", "Balance Brought Forward"},
                  {side, cents(amount)}});
  difference_ += change;
}

void OpeningEntry::owe(frame::AgingSide side, const OpenItem& item) {
  std::vector<store::FieldValue> values = {
      {"TranNo", tranNo_},      {"DocNo", item.number},    {"DocNo2", item.number},    {"TranDate", item.date},
      {"TranDate2", item.date}, {"PartyCode", item.party}, {"TranType", openingEntry}, {"TrAmount", item.amount},
      {"Return", 0.0},          {"Payment", 0.0},          {"WHTaxRt", 0.0},           {"WHTax", 0.0},
      {"Discount", 0.0},        {"AdvAdj", 0.0},           {"TotPayment", 0.0},        {"FYID", year_}};
  if (!item.vendorNumber.empty()) values.push_back({"VendorInvNo", item.vendorNumber});
  (side == frame::AgingSide::Receivable ? receivables_ : payables_).addNew(values);
}

double OpeningEntry::stock(const Goods& goods) {
  const double worth = cents(goods.quantity * goods.rate);
  goods_.addNew({{"TranNo", tranNo_},
                 {"Serial", ++serials_[goods.location]},
                 {"ItemCode", goods.code},
                 {"ItemName", goods.name},
                 {"Packs", 1.0},
                 {"PackPcs", 1.0},
                 {"StockIn", goods.quantity},
                 {"Unit", goods.unit},
                 {"Rate", goods.rate},
                 {"GrossAmt", worth},
                 {"DiscRate", 0.0},
                 {"DiscAmt", 0.0},
                 {"ItemValue", worth},
                 {"LocationID", goods.location},
                 {"JobID", 0}});
  return worth;
}

}  // namespace velmo::demo
