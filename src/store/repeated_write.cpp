#include "store/repeated_write.h"

#include "store/connection_impl.h"

namespace velmo::store {

struct RepeatedWrite::Impl {
  std::shared_ptr<Connection::Impl> connection;
  std::size_t values;
  PreparedStatement statement;
};

RepeatedWrite::RepeatedWrite(Connection& connection, std::string_view statement, std::size_t values) {
  const std::shared_ptr<Connection::Impl>& open = connection.impl();
  const BoundStatement bound = open->compile(statement);
  if (bound.parameters.size() != values)
    throw StoreError(ErrorKind::Misuse, "The statement does not take these values: " + std::string(statement));
  impl_ = std::make_unique<Impl>(Impl{open, values, open->prepare(bound.compiled->sql)});
}

RepeatedWrite::~RepeatedWrite() = default;

std::int64_t RepeatedWrite::run(std::span<const Value> values) {
  if (values.size() != impl_->values)
    throw StoreError(ErrorKind::Misuse, "A repeated statement was given another number of values.");
  int index = 0;
  for (const Value& value : values) impl_->statement.bindInPlace(++index, value);
  return impl_->connection->write(impl_->statement);
}

}  // namespace velmo::store
