#include "store/recordset/rows_ahead.h"

#include <sqlite3.h>

#include <future>
#include <thread>

namespace velmo::store {

// The connection is made on the caller's thread, handed to the other, and handed back with the rows.
struct RowsAhead::Work {
  Connection connection;
  Recordset rows;
  std::promise<void> promise;
  std::future<void> done = promise.get_future();
  std::thread thread;
};

RowsAhead::RowsAhead(const Connection& books, std::string statement)
    : work_(new Work{.connection = books.snapshot(), .rows = {}, .promise = {}, .thread = {}}) {
  work_->thread = std::thread([work = work_.get(), statement = std::move(statement)] {
    try {
      work->rows.open(work->connection, statement, LockType::ReadOnly);
      work->promise.set_value();
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
  return !work_->done.valid() || work_->done.wait_for(std::chrono::milliseconds(patience)) == std::future_status::ready;
}

Recordset& RowsAhead::rows() {
  if (work_->done.valid()) {
    work_->done.wait();
    work_->thread.join();
    work_->done.get();
  }
  return work_->rows;
}

}  // namespace velmo::store
