#pragma once

#include <cstdint>
#include <filesystem>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/connection/connection.h"
#include "store/file/open_database.h"
#include "store/sql/compile.h"
#include "store/sqlite/statement_cache.h"
#include "store/sqlite/table_changes.h"

namespace velmo::store {

// A result that is still being read from the file. Before anything is written it reads itself to the end, so that it
// never sees half of a change.
class OpenReader {
 public:
  virtual ~OpenReader() = default;
  virtual void finishReading() = 0;
  virtual void abandonReading() noexcept = 0;  // the file is being closed
};

// What holds client state that an undone transaction has to give back.
class TransactionParticipant {
 public:
  virtual ~TransactionParticipant() = default;
  virtual void committed() noexcept = 0;
  virtual void rolledBack() noexcept = 0;
};

// A statement of the dialect, compiled, with the values of its literals.
struct BoundStatement {
  std::shared_ptr<const sql::CompiledStatement> compiled;
  std::vector<Value> parameters;
};

struct InsertionPlan;

inline constexpr int busyTimeout = 2000;    // milliseconds that a write waits for another program
inline constexpr int logPagesLimit = 8000;  // 32 MB; below that the log is moved into the file by foldLog() alone

// The open file behind a Connection and the recordsets opened on it, which keep it alive.
struct Connection::Impl {
  Impl(const Catalog& tables, int newestVersion) : catalog(tables), newestSchemaVersion(newestVersion) {}
  ~Impl();

  void open(const std::filesystem::path& path, std::string_view password);
  void attach(const std::filesystem::path& path, int openFlags);  // without the checks of open()
  // Takes the log into the file and lets it be written without one, which SQLite refuses while any other connection
  // has it open: false then, and nothing has changed. The next attach() brings the log back.
  bool leaveLog();
  // The same file as it is now, for as long as somebody reads there, whatever is written to it. Cannot write.
  std::shared_ptr<Impl> snapshot() const;
  void close() noexcept;
  void requireOpen() const;

  // Throws StoreError (Statement) with the clause and the place of what does not fit.
  BoundStatement compile(std::string_view statement);
  PreparedStatement prepare(std::string_view sql);
  // Runs SQL of our own that takes no parameters and gives no rows.
  void run(const char* sql);
  // Runs a writing statement and returns the number of rows it wrote, cascades left out.
  std::int64_t write(std::string_view sql, const std::vector<Value>& parameters);
  std::int64_t write(PreparedStatement& statement);  // the same, with its values bound

  void refuseWriting();

  void stamp(int version);  // writes whose file it is and the version of its schema into it

  enum class Lock {
    Writing,  // others go on reading
    Sole      // without a log, others wait
  };
  // Throws StoreError, and nothing is open then, when the file is not in its place any more or has become one of a
  // newer version: an older program must not go on writing into a newer schema.
  void begin(Lock lock = Lock::Writing);
  void commit();
  void rollback() noexcept;
  // Takes back what the open transaction has written. It goes on without being able to write or to commit.
  void undo() noexcept;
  bool insideTransaction() const;  // as the database sees it: a full disk ends a transaction by itself

  // To the kept totals, no more lines than that; false when there are none, few, or others are disturbed.
  bool addLaterLines(std::int64_t atMost);
  void addReader(const std::shared_ptr<OpenReader>& reader);
  void finishReaders();
  // Enrols for the end of the open transaction; each participant enrols once per transaction.
  void enrol(const std::shared_ptr<TransactionParticipant>& participant) { participants.push_back(participant); }

  const Catalog& catalog;
  int newestSchemaVersion;
  sqlite3* database = nullptr;
  std::string fileName;
  std::unique_ptr<OpenDatabase> file;
  int schemaVersion = 0;           // of the file when it was opened
  std::optional<StoreError> harm;  // what was found in the file: nothing may be written into it any more
  std::shared_ptr<StatementCache> statements;
  TableChanges changes;
  std::vector<std::shared_ptr<const InsertionPlan>> insertionPlans;  // of the latest rows that were added
  std::int64_t transaction = 0;                                      // the open one's number, counting up; 0 outside
  std::int64_t transactionsBegun = 0;
  std::int64_t portion = 64;   // lines that are added to kept totals in an idle moment
  bool isAddingLines = false;  // until none are left

 private:
  bool addPortion(const KeptTotals& kept, std::int64_t atMost);
  void goBackToWork();
  void connect(const std::filesystem::path& path, int openFlags);
  void prepareForWork();
  std::int64_t number(const char* pragma);
  // Why nothing may be written; to be asked in a transaction, in which nobody changes the version.
  std::optional<StoreError> refusalToWrite();
  void requireInPlace() const;
  std::int64_t run(PreparedStatement& statement);

  struct Shape {
    std::string key;
    std::shared_ptr<const sql::CompiledStatement> compiled;
  };

  std::vector<std::weak_ptr<OpenReader>> readers;
  std::vector<std::weak_ptr<TransactionParticipant>> participants;
  std::list<Shape> shapes;  // most recently used first
  std::unordered_map<std::string_view, std::list<Shape>::iterator> shapeByKey;
};

}  // namespace velmo::store
