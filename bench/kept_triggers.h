#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace velmo::bench {

// Takes the triggers of the kept totals out of the file: of all, or of those whose names begin so.
inline void dropTotals(sqlite3* file, const std::vector<std::string>& names = {""}) {
  std::vector<std::string> triggers;
  const auto take = [](void* place, int, char** values, char**) {
    static_cast<std::vector<std::string>*>(place)->emplace_back(values[0]);
    return 0;
  };
  sqlite3_exec(file, "select name from sqlite_schema where type = 'trigger'", take, &triggers, nullptr);
  if (triggers.empty()) throw std::logic_error("the file keeps no totals");
  for (const std::string& trigger : triggers) {
    const auto isNamed = [&](const std::string& name) { return trigger.starts_with(name); };
    if (std::ranges::none_of(names, isNamed)) continue;
    if (sqlite3_exec(file, ("drop trigger " + trigger).c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(file));
  }
}

}  // namespace velmo::bench
