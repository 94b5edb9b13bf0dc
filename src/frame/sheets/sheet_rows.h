#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo::frame {

enum class CellKind {
  Text,
  Figure  // right-aligned, in figures of equal width
};

enum class CellUse {
  Typed,
  Locked,  // shown quietly; Enter and Tab pass over it
  Result,  // locked too, but what the line is about
  Hidden
};

// A column of a sheet, as the user meets it.
struct SheetColumn {
  std::string caption;
  int width = 0;  // in figures of the table's font, at least; 0: it takes the room that is left
  CellKind kind = CellKind::Text;
  CellUse use = CellUse::Typed;
};

inline bool isLocked(const SheetColumn& column) {
  return column.use != CellUse::Typed;
}

// The lines of a sheet behind its cells, with the rules of each column. Rows and columns are counted from 0; all of it
// but isBound(), rowCount() and columns() needs bound lines.
class SheetRows {
 public:
  virtual ~SheetRows() = default;

  virtual bool isBound() const = 0;
  virtual int rowCount() const = 0;  // 0 when not bound
  virtual const std::vector<SheetColumn>& columns() const = 0;

  virtual std::string shownText(int row, int column) const = 0;  // "(5.00)"
  virtual std::string editText(int row, int column) const = 0;   // as it is opened for typing: "-5.00"
  virtual std::string plainText(int row, int column) const = 0;  // as stored; "" for an empty cell

  // May the cell be opened for typing? Tells the user what stands against it.
  virtual bool mayEdit(int row, int column) = 0;
  // False, and nothing changed, when the text may not stand there.
  virtual bool enter(int row, int column, std::string_view typed) = 0;
  // An entry of the column's drop list, by its key.
  virtual bool choose(int row, int column, std::string_view key) { return enter(row, column, key); }
  // A blank line at the end takes the place of the one removed.
  virtual void removeRow(int row) = 0;
};

}  // namespace velmo::frame
