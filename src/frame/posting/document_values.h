#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "frame/posting/document_totals.h"
#include "text/date_time.h"

namespace velmo::frame {

// One of the reference lists (JobList, EmpList, LocationList) as it stands.
struct ListChoice {
  std::string text;
  std::int64_t id = 0;   // of the entry; 0 when the text is blank or no entry
  bool matches = false;  // the text is an entry

  bool operator==(const ListChoice&) const = default;
};

// What a document screen holds, as texts, which are its working values: the input of validation and posting.
struct DocumentValues {
  std::string DocNo;
  text::DateTime TrDate;
  std::string Desc;
  bool Cancel = false;

  std::string PartyCodeTxt;
  std::string PartyNameTxt;
  std::string PartyAddress;
  std::string PartyTel;
  std::string Terms;
  double PartyBalance = 0;  // debits less credits in the ledger
  double CreditLimit = 0;   // 0: no limit

  std::string IncomeCode;
  std::string IncomeAcc;

  std::string ACodeTxt = {};  // of documents that are paid at the counter: where the money goes
  std::string Acc = {};

  ListChoice JobList;
  ListChoice EmpList;
  ListChoice LocationList;
  // Where goods arrive, of documents that have two places: then JobList and LocationList are those they leave.
  ListChoice JobListTo = {};
  ListChoice LocationListTo = {};

  std::map<std::string, std::string, std::less<>> fields;  // the document's own, by control name
  DocumentTotals totals;

  bool operator==(const DocumentValues&) const = default;

  // The text of an own field; "" when it was not filled.
  const std::string& field(std::string_view name) const {
    static const std::string blank;
    const auto found = fields.find(name);
    return found == fields.end() ? blank : found->second;
  }
};

}  // namespace velmo::frame
