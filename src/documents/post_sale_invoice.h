#pragma once

#include <cstdint>
#include <string>
#include <tl/expected.hpp>
#include <vector>

#include "session/login_context.h"
#include "store/connection/connection.h"
#include "text/date_time.h"

namespace velmo::documents {

struct SaleInvoiceLine {
  std::string itemCode;
  std::string itemName;
  double quantity = 0;
  std::string unit;
  double rate = 0;
  double discountRate = 0;  // per cent; 0 for none
  std::string productSerials = {};
};

// A sale invoice as a program that has no screen writes it.
struct SaleInvoiceValues {
  std::int64_t docNo = 0;
  text::DateTime day;
  std::int64_t customerCode = 0;
  std::string customerName;
  std::string customerAddress = {};
  std::string customerTelephone = {};
  std::string terms = {};
  std::string remarks = {};
  std::string orderNo = {};
  std::string orderDate = {};
  std::string challanNo = {};
  std::string challanDate = {};
  std::int64_t incomeCode = 40001001;
  std::string incomeName = "Sales";
  int invoiceType = 1;  // 0 point of sale, 1 sale, 2 service
  std::int64_t employeeId = 0;
  std::int64_t jobId = 0;
  std::int64_t locationId = 1;
  double discount = 0;
  double carriage = 0;
  double received = 0;  // a walk-in customer pays in full whatever stands here
  bool cancelled = false;
  std::vector<SaleInvoiceLine> lines;
};

// Posts a new sale invoice exactly as the screen does, in one durable change, and returns its key; or the sentence that
// tells why it cannot be posted. The tests that a person meets before saving are the screen's. Throws StoreError, and
// then nothing was written.
tl::expected<std::int64_t, std::string> postSaleInvoice(store::Connection& connection,
                                                        const session::LoginContext& context, const text::DateTime& now,
                                                        const SaleInvoiceValues& invoice);

}  // namespace velmo::documents
