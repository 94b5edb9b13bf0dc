#pragma once

#include "printing/pieces.h"

namespace velmo::documents {

// Columns that hold what a document has to show.
struct FittedColumns {
  std::vector<printing::Column> columns = {};
  double size = 0;  // points of the table's text
};

// Widens every column that has a width of its own to what must not be broken over two lines: the widest figure among
// the lines and, where it is summed, the sum; of texts the longest word, which may be a code that somebody has to read
// off, as long as it is within 40 mm. When less than `leastText` would be left for the column of width 0, the text of
// the table gets smaller, down to 5 points.
FittedColumns fitColumns(std::vector<printing::Column> columns, const printing::ReportData& lines,
                         printing::Twips bodyWidth, printing::Twips leastText, double size);

// A section at another size: positions and heights by one factor, fonts by the other. Widths stay.
struct Density {
  double lengths = 1;
  double fonts = 1;
};
void condense(printing::Section& section, const Density& density);

}  // namespace velmo::documents
