#pragma once

#include <map>
#include <string>
#include <vector>

#include "demo_company/trade_document.h"

namespace velmo::demo {

// The serial numbers of power tools, by item: written down as the tools arrive, and again as one of them leaves. A tool
// of before has a number that nobody wrote down when it came.
class ToolSerials {
 public:
  // What stands in the line; nothing for goods without numbers.
  std::string arrive(const TradedItem& item, int quantity);
  std::string leave(const TradedItem& item, int quantity);

 private:
  static bool hasNumbers(const TradedItem& item);
  std::string next(const TradedItem& item);

  std::map<std::string, std::vector<std::string>> there_;
  int last_ = 1000;
};

}  // namespace velmo::demo
