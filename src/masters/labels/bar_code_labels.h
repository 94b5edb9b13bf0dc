#pragma once

#include <string>
#include <tl/expected.hpp>

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {

// The sheets of labels: BarCodesPrint has 24 of 70 x 37 mm on A4, BarCodesPrint2 has 40 of 48.5 x 25.4 mm.
enum class LabelSheet { BarCodesPrint, BarCodesPrint2 };

inline constexpr int MostLabelCopies = 10000;

// The statement behind the labels of an item; its rows are `items` below.
std::string barCodeStatement(const std::string& itemCode, const std::string& currencyCode);

// Sheets of labels, `copies` (from 1 to MostLabelCopies) for every row of `items`: name, bars, code and price. Where
// labels cannot be made - no item, a code that no bar code or no label of the sheet can hold, another number of
// copies - the reason comes as a full sentence.
tl::expected<printing::Report, std::string> barCodeLabels(const session::LoginContext& context,
                                                          const store::Recordset& items, LabelSheet sheet, int copies,
                                                          text::DateTime today);

}  // namespace velmo::masters
