#include "store/sql/statements.h"

#include <algorithm>
#include <cctype>

namespace velmo::test {

namespace {

bool startsWithWord(std::string_view text, std::string_view word) {
  return text.size() > word.size() && std::ranges::equal(text.substr(0, word.size()), word, {}, [](char c) {
           return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
         });
}

// Calls with each position outside of quotes, parentheses and brackets until the callee is done.
template <typename Callee>
void walkTopLevel(std::string_view text, Callee callee) {
  int depth = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '\'')
      at = std::min(text.find('\'', at + 1), text.size());
    else if (c == '(' || c == '[')
      ++depth;
    else if (c == ')' || c == ']')
      --depth;
    else if (depth == 0 && callee(at))
      return;
  }
}

std::string nameOfItem(std::string_view item) {
  std::size_t alias = std::string_view::npos;
  walkTopLevel(item, [&](std::size_t at) {
    if (startsWithWord(item.substr(at), " as ")) alias = at + 4;
    return false;
  });
  if (alias == std::string_view::npos) {
    const auto dot = item.rfind('.');
    alias = dot == std::string_view::npos ? 0 : dot + 1;
  }
  const auto first = item.find_first_not_of(" [", alias);
  return std::string(item.substr(first, item.find_last_not_of(" ]") - first + 1));
}

}  // namespace

const Statements& allStatements() {
  static const Statements all = [] {
    Statements every;
    for (auto part : {officeStatements(), masterStatements(), documentStatements(), findStatements(),
                      settlementStatements(), ledgerStatements(), inventoryStatements(), tradeStatements()})
      std::ranges::move(part, std::back_inserter(every));
    return every;
  }();
  return all;
}

std::vector<std::string> commandsOf(std::string_view statement) {
  if (!startsWithWord(statement, "shape")) return {std::string(statement)};
  std::vector<std::string> commands;
  for (auto open = statement.find('{'); open != std::string_view::npos; open = statement.find('{', open + 1))
    commands.emplace_back(statement.substr(open + 1, statement.find('}', open) - open - 1));
  return commands;
}

std::vector<std::string> promisedColumns(std::string_view select) {
  if (!startsWithWord(select, "select")) return {};
  std::string_view list = select.substr(7);
  if (startsWithWord(list, "top ")) list = list.substr(list.find(' ', 4) + 1);
  std::vector<std::string> names;
  std::size_t start = 0, end = list.size();
  walkTopLevel(list, [&](std::size_t at) {
    if (list[at] == ',') {
      names.push_back(nameOfItem(list.substr(start, at - start)));
      start = at + 1;
    } else if (startsWithWord(list.substr(at), " from ")) {
      end = at;
    }
    return end < list.size();
  });
  names.push_back(nameOfItem(list.substr(start, end - start)));
  return names;
}

}  // namespace velmo::test
