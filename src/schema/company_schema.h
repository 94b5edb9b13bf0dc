#pragma once

#include "store/values/catalog.h"

namespace velmo::schema {

// Every table of a company's database with its key, relations and indexes.
const store::Catalog& companyCatalog();

// The version this program writes; stored in the file, raised by each upgrade step.
inline constexpr int schemaVersion = 6;

}  // namespace velmo::schema
