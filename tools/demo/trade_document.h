#pragma once

#include <string>
#include <vector>

#include "documents/trade/trade_kind.h"
#include "frame/document/document_type.h"
#include "frame/posting/document_totals.h"
#include "frame/posting/document_writer.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::demo {

struct TradedParty {
  std::int64_t code = 0;
  std::string name;
  std::string address;
  std::string phone;
  std::string terms;
  std::int64_t employee = 0;
};

struct TradedItem {
  std::string code;
  std::string name;
  std::string unit;
  double cost = 0;
  double price = 0;
  std::string subCategory;
  bool isService = false;
};

// A line of a document that goods may come or go back from.
struct TradedLine {
  std::int64_t docNo = 0;
  text::DateTime day;
  std::int64_t party = 0;
  std::string reference;  // the vendor's number
  std::string itemCode;
  int quantity = 0;
  double rate = 0;
};

// All parties, by their code, and all items, by theirs.
std::vector<TradedParty> readParties(store::Connection& connection);
std::vector<TradedItem> readItems(store::Connection& connection);

// An invoice, a bill or a return as somebody at a screen makes it out.
class TradeDocument {
 public:
  TradeDocument(session::LoginContext& context, const frame::DocumentType& type, const documents::TradeKind& kind,
                const text::DateTime& moment, std::int64_t docNo);

  void setParty(const TradedParty& party);
  void refer(const std::string& field, const std::string& number, const text::DateTime& day);
  void add(const TradedItem& item, int quantity, double rate, int discountRate, const std::string& serials = {});
  const documents::TradeKind& kind() const { return kind_; }
  const std::vector<TradedLine>& lines() const { return traded_; }

  // Pays a share of the net total, in whole money unless it is all of it.
  void pay(double share, frame::ReceivedRule rule);
  // What it comes to, and what of it is paid.
  double netTotal(frame::ReceivedRule rule) const;

  // What a save puts into the books; the item lines are in sheet().
  frame::DocumentWrite compose(frame::ReceivedRule rule);
  store::Recordset& sheet() { return sheet_; }
  frame::DocumentValues& values() { return values_; }
  frame::TypedAmounts& typed() { return typed_; }

 private:
  frame::DocumentTotals totals(frame::ReceivedRule rule) const;

  session::LoginContext& context_;
  const frame::DocumentType& type_;
  const documents::TradeKind& kind_;
  text::DateTime moment_;
  frame::DocumentValues values_;
  frame::TypedAmounts typed_{.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"};
  store::Recordset sheet_;
  std::vector<TradedLine> traded_;
};

}  // namespace velmo::demo
