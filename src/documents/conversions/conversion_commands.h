#pragma once

#include <vector>

#include "frame/document/document_type.h"

namespace velmo::documents {

// The commands that make other documents of a kind, in the order of the table.
std::vector<frame::ConversionCommand> conversionCommands(int tranType);

// The marks that they leave, each with its label: ConvLbl1, ConvLbl2, ConvLbl3. A number that stands in a field of the
// screen is no mark but that field's.
std::vector<frame::ConversionMark> conversionMarks(int tranType);

}  // namespace velmo::documents
