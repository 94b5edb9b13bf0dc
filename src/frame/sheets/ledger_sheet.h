#pragma once

#include <cstdint>
#include <string_view>

#include "frame/sheets/sheet_rows.h"
#include "session/workplace.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {

// The amounts that are typed into a sheet of ledger lines: debit and credit beside each other, or one of them under
// the caption "Amount".
enum class LedgerSides { Both, Debit, Credit };

enum class LedgerColumn {
  AccCode,
  AccName,
  Desc,
  Amount,  // of the one side; the debit of two
  Credit   // of two
};

struct LedgerSums {
  double debit = 0;
  double credit = 0;
};

// Ledger lines that the user types himself: reads and writes the rows of `SubTransactions` under the rules of each
// column. A line has a debit or a credit, never both: to change its side the other cell is emptied first. Where there
// is one side only, whose sum is posted to the other, its amounts are of money, as they are shown.
class LedgerSheet : public SheetRows {
 public:
  LedgerSheet(LedgerSides sides, session::Workplace& workplace);

  void bind(store::Recordset lines);
  void detach();
  bool isBound() const override { return bound_; }
  int rowCount() const override;
  const std::vector<SheetColumn>& columns() const override { return columns_; }

  std::string shownText(int row, int column) const override;
  std::string editText(int row, int column) const override;
  std::string plainText(int row, int column) const override;
  bool mayEdit(int row, int column) override;
  // The code of an account brings its name along; what is no account's code is refused, and so is to empty the code of
  // a line that has an amount.
  bool enter(int row, int column, std::string_view typed) override;
  void removeRow(int row) override;

  // Over all lines; an empty amount counts nothing.
  LedgerSums sums() const;

 private:
  store::Value valueAt(int row, int column) const;
  bool isEmpty(int row, int column) const { return plainText(row, column).empty(); }
  int otherSide(int column) const;  // -1 when there is one side only
  bool isOneSided() const { return names_.size() == static_cast<std::size_t>(LedgerColumn::Credit); }
  bool refuse(std::string_view what);
  bool enterAccount(int row, std::string_view typed);
  bool enterAmount(int row, int column, std::string_view typed);
  void write(int row, int column, const store::Value& value);

  session::Workplace& workplace_;
  store::Recordset lines_;
  bool bound_ = false;
  std::vector<SheetColumn> columns_;
  std::vector<std::string_view> names_;  // of the recordset's fields, by column
  std::vector<int> fields_;
};

// Reads the ledger lines of a document (0: a new one) in their order, those that fulfil the condition ("debit is
// null"), and fills the sheet up with blank rows. The cursor stands on the first row.
void openLedgerSheet(store::Connection& connection, store::Recordset& lines, std::int64_t tranNo,
                     std::string_view condition = {});

// Writes the sheet as the ledger lines of a document: lines without an account go, a line without a description takes
// the document's, and the lines keep their keys.
void writeLedgerSheet(store::Recordset& lines, std::int64_t tranNo, std::string_view desc);

}  // namespace velmo::frame
