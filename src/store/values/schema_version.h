#pragma once

#include <limits>

namespace velmo::store {

// The newest version of a schema that is taken, when every one is.
inline constexpr int anySchemaVersion = std::numeric_limits<int>::max();

}  // namespace velmo::store
