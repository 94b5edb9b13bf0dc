#pragma once

#include <optional>

namespace velmo::bench {

// A benchmark starts this program once more, which then is the real one in the current folder and says when its windows
// have been painted. The exit code, where the arguments ask for that.
std::optional<int> startedToSayWhen(int argc, char** argv);

}  // namespace velmo::bench
