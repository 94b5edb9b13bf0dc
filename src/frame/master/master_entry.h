#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "session/workplace.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {

// The store reads names of columns whatever the case of their letters.
struct ColumnOrder {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const;
};

// A row of master data as it stands in the boxes, and what it is tested against.
struct MasterEntry {
  session::Workplace& workplace;
  store::Recordset rows;  // of the level; stands on the row in the boxes unless that is a new one
  std::map<std::string, std::string, ColumnOrder> texts;    // of the boxes, by column
  std::map<std::string, store::Value, ColumnOrder> values;  // what would be written, by column
  std::vector<std::string> parentKeys;                      // outermost first; the type's root key is the first of all
  bool isNew = false;

  store::Connection& connection() const { return workplace.context.KORDconn; }
  // Of the box of a column; without a box, of the stored row.
  std::string text(std::string_view column) const;
  store::Value value(std::string_view column) const;
  std::string stored(std::string_view column) const;  // "" for a new row
  const std::string& parent() const { return parentKeys.back(); }
  bool finds(const std::string& statement) const;  // any row
};

// The tests that many kinds of rows share.
std::function<std::optional<std::string>(const MasterEntry&)> emptyText(const std::string& column,
                                                                        const std::string& words);
std::function<std::optional<std::string>(const MasterEntry&)> notNumeric(const std::string& column,
                                                                         const std::string& words);
std::function<std::optional<std::string>(const MasterEntry&)> noEntry(const std::string& column,
                                                                      const std::string& words);
// Another row has the code, or is like it where it has wildcards. `select` is the statement up to the quoted code:
// "select itemcode from stocklevel3 where itemcode like ".
std::function<std::optional<std::string>(const MasterEntry&)> codeTaken(const std::string& column,
                                                                        const std::string& select,
                                                                        const std::string& words);
// The statement, up to the key of the row, gives rows.
std::function<std::optional<std::string>(const MasterEntry&)> hasRows(
    const std::string& select, const std::function<std::string(const MasterEntry&)>& literal,
    const std::function<std::string(const MasterEntry&)>& words);
// The statement, up to the code of the row in a column, gives rows that have the code or are like it.
std::function<std::optional<std::string>(const MasterEntry&)> codeHasRows(
    const std::string& column, const std::string& select, const std::function<std::string(const MasterEntry&)>& words);
std::function<std::optional<std::string>(const MasterEntry&)> isYesColumn(const std::string& column,
                                                                          const std::string& words);

}  // namespace velmo::frame
