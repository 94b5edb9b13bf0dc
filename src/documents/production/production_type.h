#pragma once

#include "frame/document/document_type.h"

namespace velmo::documents {

// Goods made of others. The screen stays on its document once it is printed.
const frame::DocumentType& productionType();

}  // namespace velmo::documents
