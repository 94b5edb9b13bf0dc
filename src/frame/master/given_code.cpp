#include "frame/master/given_code.h"

#include "text/number.h"

namespace velmo::frame {

GivenCode givenBy(const CodeSeries& series) {
  auto next = [series](const MasterEntry& entry) {
    const std::string& parent = entry.parent();
    const std::string last = lastCode(entry.connection(), series.column, series.table, series.ofParent(parent));
    return codeAfter(last, parent, series.digits);
  };
  return {.column = series.column, .table = series.table, .next = std::move(next)};
}

std::string codeAfter(const std::string& last, const std::string& parent, int digits) {
  if (parent.empty()) return {};
  const auto length = static_cast<std::size_t>(digits);
  std::string number;
  if (last.empty()) {
    number = std::string(length - 1, '0') + '1';
  } else {
    const std::string running = last.size() > length ? last.substr(last.size() - length) : last;
    if (running == std::string(length, '9')) return {};
    number = std::to_string(static_cast<int>(text::leadingNumber(running)) + 1);
    number.insert(0, length - std::min(length, number.size()), '0');
  }
  return parent + number;
}

std::string lastCode(store::Connection& connection, const std::string& column, const std::string& table,
                     const std::string& condition) {
  store::Recordset rows(connection,
                        "select " + column + " from " + table + " where " + condition + " order by " + column,
                        store::LockType::ReadOnly, store::Fetch::AsNeeded);
  if (rows.isEmpty()) return {};
  rows.moveLast();
  return rows.text(column);
}

}  // namespace velmo::frame
