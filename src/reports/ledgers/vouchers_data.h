#pragma once

#include <string>

#include "printing/report_data.h"
#include "store/connection/connection.h"

namespace velmo::reports {

// The documents that a clause on Transactions chooses, by their number, as rows of `ParentCmd`: `tranno`, `docno`,
// `trandate`, `desc`, `WordsAmt`, `trantype` and `CStatus`, each with its ledger lines in the chapter `ChildCmd`:
// `Serial`, `AccCode`, `AccName`, `TranNo`, `Desc`, `Debit` and `Credit`, without empty ones. A walk keeps neither a
// document nor a line behind the one it stands on, and reads the file as it was when the object was made.
class VouchersData : public printing::ReportData {
 public:
  VouchersData(const store::Connection& books, std::string currencyName, std::string chosen);  // throws StoreError

  bool isEmpty() const;
  std::unique_ptr<printing::ReportRows> rows() const override;

 private:
  mutable store::Connection books_;
  std::string currencyName_;
  std::string chosen_;
};

}  // namespace velmo::reports
