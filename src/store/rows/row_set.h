#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "store/connection/connection_impl.h"
#include "store/rows/cell_table.h"
#include "store/rows/result_source.h"
#include "store/rows/row_writer.h"

namespace velmo::store {

// A row's place in its set, for as long as the set lives.
using RowId = std::int64_t;

enum class RowState : std::uint8_t {
  Clean,     // as in the file
  Modified,  // holds values that are not in the file
  Inserted,  // not in the file yet
  Deleted,   // still in the file, to be deleted
  Gone       // neither here nor in the file
};

// The rows of a result, shared by all cursors over them: as they stand in the file, and beside that what was changed
// and not yet written. A large result is read as its rows are looked at.
class RowSet : public OpenReader, public TransactionParticipant, public std::enable_shared_from_this<RowSet> {
 public:
  static std::shared_ptr<RowSet> open(std::shared_ptr<const ResultSource> source);
  // By other SQL that gives the fields of the source.
  static std::shared_ptr<RowSet> open(std::shared_ptr<const ResultSource> source, std::string_view sql,
                                      const std::vector<Value>& parameters);

  const ResultSource& source() const { return *source_; }

  // Rows read so far, deleted ones included.
  RowId fetched() const { return static_cast<RowId>(states_.size()); }
  bool hasMore() const { return reader_.has_value(); }
  void fetch(RowId rows);  // so many more, as far as there are
  void fetchAll();

  RowState state(RowId row) const { return states_[static_cast<std::size_t>(row)]; }
  bool isThere(RowId row) const { return state(row) != RowState::Deleted && state(row) != RowState::Gone; }
  bool isPending(RowId row) const { return state(row) != RowState::Clean && state(row) != RowState::Gone; }
  // Rises whenever a row ceases to be there, and the other one when a row comes back.
  std::int64_t losses() const { return losses_; }
  std::int64_t returns() const { return returns_; }

  Value value(RowId row, int field) const;
  bool isBlank(RowId row, int field) const;  // holds nothing, or no more than an empty text
  int compare(RowId left, RowId right, int field) const;
  bool hasPendingRows() const;

  // Pending changes, at the client only.
  using Edits = FieldValues;
  RowId append();
  void edit(RowId row, FieldValues values);
  Edits edits(RowId row) const;
  void restore(RowId row, RowState state, Edits edits);  // takes back what edit() did since
  void markDeleted(RowId row);
  void markDeleted(const std::vector<RowId>& rows);
  void discard(RowId row);  // all that is pending in the row

  // Writes the pending changes of one row to the file, in the transaction that is open. Changes nothing when it throws.
  void write(RowId row);
  void write(const std::vector<RowId>& rows);  // one after the other, up to the one that cannot be written

  void finishReading() override { fetchAll(); }
  void abandonReading() noexcept override { reader_.reset(); }
  void committed() noexcept override { forgetUndo(); }
  void rolledBack() noexcept override;

 private:
  // What a row was. Of one that was only edited further: how many of its edits stood, and those that were replaced.
  struct Undo {
    RowId row;
    RowState state;
    std::unique_ptr<Edits> edits = {};                // nullptr for none
    std::unique_ptr<std::vector<Value>> stored = {};  // nullptr unless those of a row in the file changed
    std::vector<RowId> others = {};                   // rows of the same state with nothing pending
    std::optional<std::ptrdiff_t> editsKept = {};     // then `edits` are the replaced ones
  };

  explicit RowSet(std::shared_ptr<const ResultSource> source);
  void setState(RowId row, RowState state);
  void write(RowId row, const RowWriter& writer);
  void store(RowId row, const Edits& filledIn);
  const Edits* pendingEdits(RowId row) const;  // nullptr for none
  Value storedValue(RowId row, int field) const;
  std::unique_ptr<Edits> takeEdits(RowId row);
  void setEdits(RowId row, std::unique_ptr<Edits> edits);
  bool remembers();
  bool isToRemember(RowId row, bool storedToo);
  void remember(RowId row);
  Undo* rememberEdit(RowId row);
  static void keepReplaced(Undo& before, const Edits::value_type& replaced);
  void takeBackEdits(const Undo& before);
  void windBack();
  void forgetUndo() noexcept;

  std::shared_ptr<const ResultSource> source_;
  CellTable stored_;
  std::vector<RowState> states_;
  std::vector<std::unique_ptr<Edits>> edits_;  // by row, up to the last that was edited; null where nothing is pending
  std::optional<PreparedStatement> reader_;
  std::int64_t losses_ = 0;
  std::int64_t returns_ = 0;
  std::int64_t undoTransaction_ = 0;
  std::vector<Undo> undo_;
};

}  // namespace velmo::store
