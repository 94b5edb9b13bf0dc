#pragma once

#include <memory>
#include <string>
#include <vector>

#include "reports/parts/report_pieces.h"

// A print-out of one table as data: company, title and lines below it once, the headings of the columns on every page,
// a level of headings for each group of rows, and rows of totals.
namespace velmo::reports {

// What stands in a row of its own under a column: the sum of a field, or a text.
struct UnderColumn {
  std::string column;      // by its field
  std::string name = {};   // of the element
  std::string sumOf = {};  // field
  std::string text = {};   // where there is no sum
  printing::Weight weight = printing::Weight::SemiBold;
};

enum class Ground { Band, Plain };

struct TotalsRow {
  std::string labelName = {};
  std::string label = {};       // it ends where the first total begins
  std::string labelField = {};  // or: a field of the level whose foot this is
  printing::Twips labelLeft = 0;
  std::vector<UnderColumn> totals = {};
  Ground ground = Ground::Band;
  printing::Twips above = 0;  // white before it
};

// The sums of the columns that have a name for a sum.
std::vector<UnderColumn> sumsOf(const std::vector<printing::Column>& columns);

struct TableLevel {
  std::string dataMember;  // the chapter that holds its rows; of the outermost level only a name
  std::string headingName;
  std::vector<printing::Column> heading;  // fields of its row side by side, placed like columns
  std::vector<TotalsRow> totals = {};     // below its rows
};

struct TablePrint {
  std::string title = {};            // of the window and the file; none: the first line of the head
  std::vector<TitleLine> head = {};  // `ReportLabel`, and the quieter lines below it
  printing::Paper paper = printing::A4;
  std::vector<TableLevel> levels = {};  // outer to inner
  std::string detailMember = {};
  std::vector<printing::Column> columns = {};
  std::vector<UnderColumn> opening = {};  // below the headings: a balance brought forward
  std::vector<TotalsRow> totals = {};     // below the last row
};

printing::Report tablePrint(const session::LoginContext& context, const TablePrint& table,
                            std::shared_ptr<const printing::ReportData> rows, text::DateTime today);

}  // namespace velmo::reports
