#pragma once

#include <cstdint>
#include <functional>

#include "session/workplace.h"

class QWidget;

namespace velmo::frame {

// Print-outs that document screens share and that are built on a floor of their own; the catalogue of screens hands
// them over.
struct PrintOuts {
  // Shows the ledger voucher of a saved document. Empty: the command is not offered.
  std::function<void(session::Workplace&, std::int64_t tranNo, QWidget* parent)> voucher;
};

}  // namespace velmo::frame
