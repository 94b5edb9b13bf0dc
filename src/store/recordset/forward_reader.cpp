#include "store/recordset/forward_reader.h"

#include <sqlite3.h>

#include "store/connection/connection_impl.h"
#include "store/rows/cell_table.h"
#include "store/rows/result_source.h"

namespace velmo::store {

struct ForwardReader::Impl {
  std::shared_ptr<const ResultSource> source;
  PreparedStatement statement;
};

ForwardReader::ForwardReader(Connection& connection, std::string_view statement) {
  const std::shared_ptr<Connection::Impl>& open = connection.impl();
  const std::shared_ptr<const ResultSource> source = describeResult(open, open->compile(statement), LockType::ReadOnly);
  impl_ = std::make_unique<Impl>(Impl{source, open->prepare(source->statement.compiled->sql)});
  impl_->statement.bindLiterals(source->statement.parameters);
}

ForwardReader::~ForwardReader() = default;

bool ForwardReader::next() {
  return impl_->statement.step();
}

int ForwardReader::field(std::string_view name) const {
  return impl_->source->requireField(name);
}

Value ForwardReader::value(int field) const {
  return resultValue(impl_->statement.handle(), field, impl_->source->types[static_cast<std::size_t>(field)]);
}

bool ForwardReader::isNull(int field) const {
  return sqlite3_column_type(impl_->statement.handle(), field) == SQLITE_NULL;
}

double ForwardReader::number(int field) const {
  return sqlite3_column_double(impl_->statement.handle(), field);
}

std::int64_t ForwardReader::integer(int field) const {
  return sqlite3_column_int64(impl_->statement.handle(), field);
}

std::string_view ForwardReader::text(int field) const {
  sqlite3_stmt* row = impl_->statement.handle();
  const auto* begin = reinterpret_cast<const char*>(sqlite3_column_text(row, field));
  return begin == nullptr ? std::string_view()
                          : std::string_view(begin, static_cast<std::size_t>(sqlite3_column_bytes(row, field)));
}

}  // namespace velmo::store
