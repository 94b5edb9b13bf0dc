#pragma once

#include <optional>
#include <string>

#include "printing/page_source.h"

class QPrinter;

namespace velmo::printing {

// Sends pages to a printer: those of its range, or all. Returns the reason as a full sentence when it did not start.
[[nodiscard]] std::optional<std::string> printPages(PageSource& pages, QPrinter& printer);

}  // namespace velmo::printing
