#pragma once

#include "printing/report_design.h"

namespace velmo::documents {

// The title of a document, element `vlabel`, and beside it `clbl`, the mark of one that is cancelled. Raises the
// section.
void addPaperTitle(printing::Section& head, printing::Twips width);

}  // namespace velmo::documents
