#pragma once

#include "documents/print/paper_texts.h"

namespace velmo::documents {

inline constexpr const char* SlipAmount = "0.00; (0.00)";
inline constexpr const char* SlipDeduction = "(0.00); 0.00";  // of what is taken off

// An invoice on a roll as long as its lines, in black alone, since thermal heads know no shades. `lines` have the
// fields itemname and those of the figures, which stand below it.
printing::Report invoiceOnSlip(const std::vector<printing::Column>& figures, const PaperTexts& texts,
                               const std::shared_ptr<const printing::ReportData>& lines);

}  // namespace velmo::documents
