#pragma once

#include <functional>
#include <random>

#include "attack/told_books.h"
#include "frame/posting/document_values.h"
#include "frame/posting/document_writer.h"
#include "session/login_context.h"

namespace velmo::attack {

// Saves, changes, cancels and deletes sale invoices of random content, by the functions that the screens use, and tells
// of every step through a pipe. Works in the current folder's company. Throws StoreError when the store refuses; the
// step is not told as done then.
class Cashier {
 public:
  // Of the known documents some are changed or deleted.
  Cashier(int pipe, unsigned seed, Documents known);

  void step();     // one of them
  void saveNew();  // a further one
  void changeKnown();
  void deleteKnown();
  store::Connection& connection() { return context_.KORDconn; }

 private:
  int between(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
  void tell(Report::Phase phase, std::int64_t docNo, const Expected& outcome) const;
  // Tells of it, and that it was refused where nothing was written.
  void carryOut(std::int64_t docNo, const Expected& outcome, const std::function<void()>& write);
  std::int64_t goToKnown();
  void save(std::int64_t docNo, frame::HeaderWrite mode);
  void fillLines(store::Recordset& sheet, std::int64_t lines);

  int pipe_;
  std::mt19937 random_;
  Documents known_;
  session::LoginContext context_;
  store::Recordset tran_;
};

}  // namespace velmo::attack
