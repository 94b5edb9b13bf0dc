#pragma once

#include "frame/document/document_type.h"

namespace velmo::documents {

// Recipes: records of no year, which move no stock and post nothing.
const frame::DocumentType& billOfMaterialType();

}  // namespace velmo::documents
