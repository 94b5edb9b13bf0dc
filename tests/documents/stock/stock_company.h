#pragma once

#include "documents/invoice_company.h"
#include "documents/stock/stock_screens.h"
#include "forms/drop_combo.h"

namespace velmo::test {

// A company with a second place, two jobs and items that have a cost.
class StockCompany : public InvoiceCompany {
 public:
  StockCompany() {
    NewCompany::run({"delete from Transactions where TranType=45",
                     "INSERT INTO StockLocation (LocationID, LocationName) VALUES (2, 'Yard')",
                     "INSERT INTO Jobs (JobID, JobNo, JobDesc, Status) VALUES (1, 7, 'Shed', No)",
                     "INSERT INTO Jobs (JobID, JobNo, JobDesc, Status) VALUES (2, 8, 'Barn', No)",
                     "update stocklevel3 set valuationcost2 = 100, valuationtype = no where itemcode = 'H1'"});
    context.stocklocationid = 1;
    context.ItemsRS.requery();
  }
  // The goods of a place, or of a job, of documents that count.
  std::string balance(const std::string& condition) {
    return one(
        "select iif(isnull(sum(stockin)), 0, sum(stockin)) - iif(isnull(sum(stockout)), 0, sum(stockout)) as b "
        "from transactions inner join stockflow on transactions.tranno = stockflow.tranno where cancel = no and "
        "invledger = no and itemcode = 'H1' and " +
        condition);
  }
};

inline void choose(InvoiceScreen& screen, const char* list, std::int64_t id) {
  screen.find<forms::DropCombo>(list).setBoundValue(id);
}

}  // namespace velmo::test
