#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "frame/posting/document_values.h"
#include "text/date_time.h"

namespace velmo::frame {

// An open item, or what settles one: a row of AgingDr (receivables) or AgingCr (payables). Amounts that a document
// does not use are 0.
struct AgingRow {
  std::int64_t docNo = 0;                       // of the invoice or bill that the row belongs to
  std::int64_t docNo2 = 0;                      // of the document that writes the row
  std::optional<std::string> vendorInvNo = {};  // AgingCr only
  text::DateTime tranDate = {};                 // of the invoice or bill
  text::DateTime tranDate2 = {};                // of the document
  std::int64_t partyCode = 0;
  double trAmount = 0;
  double returned = 0;
  double payment = 0;
  double totPayment = 0;
};

enum class AgingSide { Receivable, Payable };

// The row of a document that is not cancelled.
struct AgingRule {
  AgingSide side = AgingSide::Receivable;
  std::function<AgingRow(const DocumentValues&)> row;
};

}  // namespace velmo::frame
