#pragma once

#include <QString>

#include "printing/function_totals.h"
#include "printing/report.h"

namespace velmo::printing {

// What the text of an element may draw on.
struct TextSource {
  const Report& report;
  const ReportWalk& rows;
  const FunctionTotals& totals;
  int ownLevel = 0;  // the level of the section
  int pageNumber = 1;
};

// The text of a label, field or function; "" for other elements. The count of pages stands as TotalPagesMark.
QString elementText(const Element& element, const TextSource& source);

// A value as a field shows it: null is blank; without a format, as bound controls show it.
std::string formatted(const store::Value& value, const std::string& format);

}  // namespace velmo::printing
