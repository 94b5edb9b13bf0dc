#include "store/recordset/text_rows.h"

#include <sqlite3.h>

#include <vector>

#include "store/rows/cell_table.h"
#include "store/rows/result_source.h"

namespace velmo::store {

void readTexts(const Connection& connection, std::string_view statement, std::span<const std::string> fields,
               const std::function<void(std::span<const std::string_view> texts)>& take) {
  const std::shared_ptr<Connection::Impl>& impl = connection.impl();
  const std::shared_ptr<const ResultSource> source = describeResult(impl, impl->compile(statement), LockType::ReadOnly);
  std::vector<int> columns;
  for (const std::string& field : fields) columns.push_back(source->requireField(field));
  PreparedStatement reader = impl->prepare(source->statement.compiled->sql);
  reader.bindLiterals(source->statement.parameters);
  std::vector<std::string> made(columns.size());
  std::vector<std::string_view> texts(columns.size());
  while (reader.step()) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      sqlite3_stmt* row = reader.handle();
      if (sqlite3_column_type(row, columns[i]) == SQLITE_TEXT &&
          source->types[static_cast<std::size_t>(columns[i])] == ColumnType::Text) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, columns[i]));
        texts[i] = {text, static_cast<std::size_t>(sqlite3_column_bytes(row, columns[i]))};
      } else {
        made[i] = textOf(resultValue(row, columns[i], source->types[static_cast<std::size_t>(columns[i])]));
        texts[i] = made[i];
      }
    }
    take(texts);
  }
}

}  // namespace velmo::store
