#pragma once

#include <functional>
#include <optional>
#include <string>

#include "printing/report.h"

namespace velmo::printing {

// Called with the pages written so far and their count, 0 when it is not known; false stops the writing.
using Progress = std::function<bool(int written, int total)>;

// Writes a report as a PDF file with real text and embedded fonts, page by page, so that memory does not grow with the
// pages. The file appears under its name only when it is whole; an older one is replaced then. Returns the reason as a
// full sentence when it could not be written, "" when the progress stopped it, and nothing when the file stands. Text
// of the paths is UTF-8. Failures of the data throw as they come, and leave no file.
[[nodiscard]] std::optional<std::string> writePdf(const Report& report, const std::string& path,
                                                  const Progress& progress = {});

}  // namespace velmo::printing
