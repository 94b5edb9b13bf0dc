#include "demo_company/tool_serials.h"

#include <utility>

namespace velmo::demo {
namespace {

void append(std::string& line, const std::string& serial) {
  if (!line.empty()) line += ' ';
  line += serial;
}

}  // namespace

// Drills, grinders and saws.
bool ToolSerials::hasNumbers(const TradedItem& item) {
  return item.subCategory == "PWR01" || item.subCategory == "PWR02" || item.subCategory == "PWR03";
}

std::string ToolSerials::next(const TradedItem& item) {
  return item.subCategory.substr(3) + "-" + std::to_string(++last_);
}

std::string ToolSerials::arrive(const TradedItem& item, int quantity) {
  std::string line;
  if (!hasNumbers(item)) return line;
  for (; quantity > 0; --quantity) append(line, there_[item.code].emplace_back(next(item)));
  return line;
}

std::string ToolSerials::leave(const TradedItem& item, int quantity) {
  std::string line;
  if (!hasNumbers(item)) return line;
  for (std::vector<std::string>& there = there_[item.code]; quantity > 0; --quantity) {
    if (there.empty()) there.push_back(next(item));
    append(line, there.front());
    there.erase(there.begin());
  }
  return line;
}

}  // namespace velmo::demo
