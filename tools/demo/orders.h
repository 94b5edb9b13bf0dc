#pragma once

#include <map>
#include <string>
#include <vector>

#include "demo_company/dice.h"
#include "frame/document/document_type.h"
#include "session/login_context.h"

namespace velmo::demo {

// From offer to gate: quotations and orders of customers and to vendors, of which some are still open, some delivered
// in part and not billed, and most have gone all the way.
class OrderClerk {
 public:
  // `stock` is what is left to sell of every item; what is ordered is kept aside.
  OrderClerk(session::LoginContext& context, std::map<std::string, double>& stock);

  // What is written on a day up to `now`: new papers, and what became of older ones.
  void work(const text::DateTime& day, const text::DateTime& now);

 private:
  using Fields = std::map<std::string, std::string, std::less<>>;  // by control name
  // A paper that is to become another one.
  struct Due {
    text::DateTime day;
    std::int64_t tranNo = 0;
    int from = 0;
    int to = 0;
  };

  void quote(const text::DateTime& moment);
  void takeOrder(const text::DateTime& moment);
  void orderGoods(const text::DateTime& moment);
  void carryOn(const text::DateTime& moment);
  void follow(std::int64_t tranNo, int tranType, const text::DateTime& day);
  void expect(int chances, std::int64_t tranNo, int from, int to, const text::DateTime& day);

  std::int64_t write(const frame::DocumentType& type, const text::DateTime& moment, std::int64_t party, Fields fields);
  void addLines(store::Recordset& sheet, bool inward);
  // A person gives what a conversion left empty, or takes half of the goods off.
  enum class Delivered { Whole, Half };
  void complete(const frame::DocumentType& type, std::int64_t tranNo, const text::DateTime& moment, const Fields& given,
                Delivered delivered = Delivered::Whole);
  void stockUp(std::int64_t bill);

  session::LoginContext& context_;
  std::map<std::string, double>& stock_;
  Dice dice_;
  store::Recordset items_;
  std::vector<Due> due_;
};

}  // namespace velmo::demo
