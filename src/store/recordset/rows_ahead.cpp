#include "store/recordset/rows_ahead.h"

#include <sqlite3.h>

#include <future>
#include <thread>

namespace velmo::store {

// The connection is made on the caller's thread, handed to the other, and handed back with the rows.
struct RowsAhead::Work {
  Connection connection;
  std::promise<Recordset> promise;
  std::future<Recordset> rows = promise.get_future();
  std::thread thread;
};

RowsAhead::RowsAhead(const Connection& books, std::string statement)
    : work_(new Work{.connection = books.snapshot(), .promise = {}, .thread = {}}) {
  work_->thread = std::thread([work = work_.get(), statement = std::move(statement)] {
    try {
      work->promise.set_value(Recordset(work->connection, statement, LockType::ReadOnly));
    } catch (...) {
      work->promise.set_exception(std::current_exception());
    }
  });
}

RowsAhead::~RowsAhead() {
  if (!work_->thread.joinable()) return;
  while (!isReady(1)) sqlite3_interrupt(work_->connection.handle());  // once more, where it had not begun
  work_->thread.join();
}

bool RowsAhead::isReady(int patience) const {
  return work_->rows.wait_for(std::chrono::milliseconds(patience)) == std::future_status::ready;
}

Recordset RowsAhead::take() {
  work_->rows.wait();
  work_->thread.join();
  return work_->rows.get();
}

}  // namespace velmo::store
