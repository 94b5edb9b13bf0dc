#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/recordset/recordset.h"
#include "store/values/value.h"
#include "text/date_time.h"

namespace velmo::frame {

// The one row of `Transactions` that every document has, with all columns in the order in which they are written.
// Columns that the document does not use hold "" or 0.
class HeaderRow {
 public:
  HeaderRow();

  // Throws std::invalid_argument for a name that is no column of the row.
  void set(std::string_view column, store::Value value);
  const store::Value& value(std::string_view column) const;

  // Who saved it and when: on a new document also its author. Times are local.
  void stamp(int userId, const text::DateTime& now);

  // The columns of a new document.
  std::vector<store::FieldValue> all() const;
  // The columns that a further save writes: without the author's stamp and the columns that are to be kept.
  std::vector<store::FieldValue> without(std::span<const std::string_view> kept) const;

 private:
  static constexpr std::size_t columnCount = 47;  // all but the key
  std::array<store::Value, columnCount> values_;
  std::size_t next_ = 0;  // behind the column that was set last
};

}  // namespace velmo::frame
