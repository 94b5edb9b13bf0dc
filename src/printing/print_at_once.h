#pragma once

#include <optional>
#include <string>

#include "printing/report.h"

namespace velmo::printing {

// The printers of this machine, by the names that printAtOnce() takes.
std::vector<std::string> printerNames();

// Prints all pages without a dialog; returns when the printer has taken them. A full sentence when it has not.
std::optional<std::string> printAtOnce(Report report, const std::string& printer);

}  // namespace velmo::printing
