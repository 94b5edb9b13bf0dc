#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "support/plain_rows.h"

namespace velmo::test {

// Amounts are whole cents, debits above zero.
struct Posting {
  std::int64_t day = 0;
  std::int64_t tranNo = 0;
  std::int64_t account = 0;
  std::int64_t amount = 0;
};

// What the ledgers of the demonstration company's year must hold, worked out from the documents themselves: item lines,
// settled invoices, open items and header amounts. The ledger lines are not looked at.
struct OwnBooks {
  std::map<std::int64_t, std::vector<Posting>> documents;  // what each posts, cancelled ones too, by TranNo
  std::map<std::int64_t, std::vector<Posting>> ledgers;    // by account, in their order, without cancelled documents
  std::map<std::string, int> counts;                       // of documents: "32 counter", "28 Petty Payment"
  std::vector<std::string> oddities;  // headers that differ from their lines, documents that nobody knows how to post

  std::int64_t balance(std::int64_t account, std::int64_t beforeDay) const;
};

// `stockCounted`: the year's entry of closing stock has been rewritten for the day that it bears.
OwnBooks workOut(PlainFile& company, bool stockCounted);

}  // namespace velmo::test
