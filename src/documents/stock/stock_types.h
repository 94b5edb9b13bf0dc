#pragma once

#include "frame/document/document_type.h"

namespace velmo::documents {

const frame::DocumentType& addInventoryType();
const frame::DocumentType& reduceInventoryType();
const frame::DocumentType& inventoryTransfersType();

}  // namespace velmo::documents
