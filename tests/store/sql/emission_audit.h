#pragma once

#include <string>
#include <string_view>

#include "store/sql/compile.h"

namespace velmo::test {

// Nothing of a statement may reach the store unread: the emitted text consists of quoted names that are the
// catalogue's, the emitter's or the statement's own aliases, of parameters, of small numbers, and of known words and
// functions. "" when it does.
std::string emissionProblem(const store::sql::CompiledStatement& compiled, std::string_view statement);

}  // namespace velmo::test
