#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "store/values/catalog.h"
#include "store/values/error.h"
#include "store/values/schema_version.h"
#include "store/values/value.h"

struct sqlite3;

namespace velmo::store {

// One open database file. Everything that is particular to SQLite stands here and in the emitter of statements.
// Not for use from several threads at once.
class Connection {
 public:
  struct Impl;

  // A file of a newer schema than `newestSchemaVersion` is refused by open().
  explicit Connection(const Catalog& catalog, int newestSchemaVersion = anySchemaVersion);
  ~Connection();
  Connection(Connection&&) noexcept;
  Connection& operator=(Connection&&) noexcept;

  // Opens the file that a connection string names ("Provider=...;Data Source=Uninstall\Uninstall.MDB;...;Jet OLEDB:
  // Database Password=..."), relative to the current directory, and verifies its password. Throws StoreError and
  // leaves the file untouched when it is damaged, foreign, newer or closed to us.
  void open(std::string_view connectionString);
  // Undoes an open transaction. Recordsets keep the rows they have read and refuse everything else.
  void close();
  bool isOpen() const;

  // Another connection to the file, which sees it as it is now whatever is written afterwards, and cannot write. While
  // it lives the log grows. Throws StoreError.
  Connection snapshot() const;

  // For moments without work: writing itself leaves the log alone until it is large, and does not add every line to
  // the kept totals.
  //
  // Adds a portion of the lines to the kept totals, for about so many milliseconds; false when nothing is left to do
  // now. A power failure may take it back, whole.
  bool addLaterLines(double milliseconds);
  // Moves what was written from the log into the file, as far as nobody reads there.
  void foldLog();
  // Both, to the end.
  void checkpoint();

  // For a file that was found damaged: until it is closed nothing is written into it through this connection, be it
  // the log. Every attempt to write or to commit throws StoreError (Damaged); what only tidies up does nothing.
  void refuseWriting();
  bool refusesWriting() const;

  // Runs an INSERT, UPDATE or DELETE of the dialect and returns the number of rows written.
  std::int64_t execute(std::string_view statement);

  // Everything between the construction and commit() is one durable change; leaving the scope without commit() undoes
  // it. Recordsets that were written to inside take back their pending state with it. Scopes do not nest.
  class Transaction {
   public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

   private:
    bool isOpen() const;  // not after the connection was closed meanwhile

    std::shared_ptr<Impl> connection_;
    std::int64_t number_;  // among the transactions of the connection
  };
  bool inTransaction() const;

  // Grows when rows of the table were written through this connection, and for every table when another program wrote
  // to the file or a transaction was undone: what was read at the same generation is still what is there.
  std::int64_t generationOf(std::string_view table) const;
  // The same of the whole file.
  std::int64_t generation() const;

  const Catalog& catalog() const;
  sqlite3* handle() const;  // for the store's own files, benchmarks and tests

  const std::shared_ptr<Impl>& impl() const { return impl_; }  // for the store's own files

 private:
  explicit Connection(std::shared_ptr<Impl> impl);

  std::shared_ptr<Impl> impl_;
};

// A typed text as a literal of a statement: quotes doubled, in single quotes. Wildcards stay wildcards.
std::string quoted(std::string_view text);
// The same of a text that was picked, stored or shown, for use behind like: its wildcards stand for themselves, and it
// is matched whole, in letters of either case.
std::string quotedWhole(std::string_view text);
// #11-22-2026#, whatever the locale.
std::string dateLiteral(const text::DateTime& date);

}  // namespace velmo::store
