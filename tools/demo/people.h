#pragma once

#include "store/connection/connection.h"

namespace velmo::demo {

// The company's own data, users with their rights, employees, locations, brands, regions and sectors.
void writePeople(store::Connection& connection);

inline constexpr int employeeCount = 6;
inline constexpr int locationCount = 3;
inline constexpr int regionCount = 5;  // the first is the standard one
inline constexpr int sectorCount = 6;  // the first is the standard one
inline constexpr int brandCount = 11;  // the first is the standard one

}  // namespace velmo::demo
