#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "demo_company/dice.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::demo {

// The workshop at the back, which cuts, mixes and packs: some recipes, and every Saturday goods made from them.
class Workshop {
 public:
  // Writes the recipes. `stock` is what is left to sell of every item: what goes in leaves it, what comes out enters.
  Workshop(session::LoginContext& context, std::map<std::string, double>& stock, const text::DateTime& moment);

  // What is made on a day up to `now`.
  void work(const text::DateTime& day, const text::DateTime& now);

 private:
  struct Item {
    std::string code;
    std::string name;
    std::string unit;
    double cost = 0;
  };
  Item itemNamed(const std::string& name);
  void addLine(store::Recordset& sheet, const char* quantityField, const Item& item, double quantity, double amount);
  void make(const std::string& product, double pieces, const text::DateTime& moment);

  session::LoginContext& context_;
  std::map<std::string, double>& stock_;
  Dice dice_;
  std::vector<std::string> products_;  // their codes
};

}  // namespace velmo::demo
