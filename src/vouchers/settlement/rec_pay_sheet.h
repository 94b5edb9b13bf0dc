#pragma once

#include <memory>
#include <string>

#include "printing/pieces.h"
#include "vouchers/settlement/settlement_kind.h"

namespace velmo::vouchers {

// What a receipt or payment note shows. A text that is empty takes no room.
struct RecPaySheet {
  Money money = Money::Received;
  printing::Letterhead letterhead = {};
  std::string currencyCode = {};
  text::DateTime today = {};

  std::string docNo = {};
  text::DateTime tranDate = {};
  std::string status = {};  // "CANCELLED"
  std::string party = {};   // of invoices that are settled
  std::string nature = {};
  std::string means = {};  // "Cash", "Cheque"
  std::string accountCaption = {};
  std::string account = {};  // cash or bank
  std::string chequeNo = {};
  std::string chequeDate = {};
  std::string chequeBank = {};
  std::string description = {};
  std::string settlement = {};  // in words and amounts
  std::string words = {};       // the amount

  // Without invoices all but the total are of no account.
  double received = 0;
  double withheldTax = 0;
  double advanceAdjusted = 0;
  double discount = 0;
  double total = 0;
};

// "RECEIPT NOTE" or "PAYMENT NOTE".
std::string noteTitle(Money money);

// The layout `RecPay`, of invoices that are settled: deductions of 0 are left out, and so is a total that is the amount
// received or paid.
printing::Report recPayReport(const RecPaySheet& sheet);

// The layout `RecPayPetty`, of lines: rows of `ParentCmd`, one to a page, with the chapter `ChildCmd`.
printing::Report recPayPettyReport(const RecPaySheet& sheet, std::shared_ptr<const printing::ReportData> lines);

}  // namespace velmo::vouchers
