#pragma once

#include <string_view>

namespace velmo::store::sql {

// How many symbols SQLite's parser must keep open at once while it reads emitted SQL; never too few.
int parserDepth(std::string_view sql);

// SQLite keeps 100. What is left over is for the conditions that a cursor puts round a statement's own.
inline constexpr int deepestParser = 90;

}  // namespace velmo::store::sql
