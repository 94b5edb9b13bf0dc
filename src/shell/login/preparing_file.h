#pragma once

#include <functional>

#include "schema/company_file.h"

namespace velmo::shell {

// What `prepare` gives or throws, worked beside the screen. When it takes longer than a moment, as after a new version
// of the program, a window that stays until it is done says so.
schema::FileState whilePreparing(const std::function<schema::FileState()>& prepare);

}  // namespace velmo::shell
