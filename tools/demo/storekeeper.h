#pragma once

#include <map>
#include <string>

#include "demo_company/dice.h"
#include "frame/document/document_type.h"
#include "session/login_context.h"

namespace velmo::demo {

// Moves goods between the company's places every week, and brings the books to what was found at the end of a month.
class Storekeeper {
 public:
  // `stock` is what is left to sell of every item; what goes to another place is kept aside.
  Storekeeper(session::LoginContext& context, std::map<std::string, double>& stock);

  // What is written on a day up to `now`.
  void work(const text::DateTime& day, const text::DateTime& now);

 private:
  void moveGoods(const text::DateTime& moment);
  void adjust(const text::DateTime& moment);
  void write(const frame::DocumentType& type, const text::DateTime& moment, const std::string& remarks, int lines);
  void addLine(store::Recordset& sheet, const frame::DocumentType& type);

  session::LoginContext& context_;
  std::map<std::string, double>& stock_;
  Dice dice_;
  store::Recordset items_;
  bool homewards_ = false;  // goods come back to the shop
};

}  // namespace velmo::demo
