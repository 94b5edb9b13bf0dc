#pragma once

#include <string>
#include <vector>

#include "frame/report/report_period.h"
#include "printing/pieces.h"

// Parts that the print-outs of reports share.
namespace velmo::reports {

// Today's date as "dd-MM-yy", and an amount with a sum under it where a name for the sum is given.
printing::Column dateColumn();
printing::Column amountColumn(const std::string& heading, const std::string& field, const std::string& headingName,
                              const std::string& totalName = {});

struct TitleLine {
  std::string name;
  std::string text;
};

// A report header: the company's lines, a title, and quieter lines below it.
printing::Section titledHead(printing::Report& report, const printing::Letterhead& letterhead,
                             const std::vector<TitleLine>& lines);

// A label or figure in a column of a table, beside what belongs there: "Balance Brought Forward", a closing balance.
void addUnderColumn(printing::Section& section, const printing::ColumnPlace& place, printing::Twips top,
                    const std::string& name, printing::Content content, printing::Weight weight);

}  // namespace velmo::reports
