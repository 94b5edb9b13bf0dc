#include <gtest/gtest.h>

#include "documents/invoice_company.h"
#include "frame/items/item_grid.h"

namespace velmo::test {
namespace {

namespace fs = std::filesystem;

// The folder is renamed while a sale is being keyed: nothing is saved, everything stays on the screen, and the sale is
// saved when the folder is back.
TEST(ScreenWithoutFile, KeepsTheSaleUntilTheFileIsBack) {
  InvoiceCompany shop;
  InvoiceScreen screen(shop);
  fs::rename("Uninstall", "Renamed");
  shop.prompts.expectTitle("Cannot Save");
  screen.saveInvoice("12001002");
  EXPECT_EQ(screen.text("PartyCodeTxt"), "12001002");
  EXPECT_EQ(screen.text("DocNo"), "1");
  EXPECT_EQ(shop.one("select count(*) as N from transactions where trantype=32"), "0");
  fs::rename("Renamed", "Uninstall");
  screen.press("SaveBttn");
  EXPECT_EQ(shop.one("select docno, tramount from transactions where trantype=32"), "1|100");
  EXPECT_EQ(shop.one("select count(*) as N from stockflow inner join transactions on stockflow.tranno = "
                     "transactions.tranno where trantype=32"),
            "1");
}

}  // namespace
}  // namespace velmo::test
