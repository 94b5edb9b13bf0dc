#include "reports/balances/acc_bal_print.h"

#include <gmock/gmock.h>

#include "frame/report/report_rows.h"
#include "printing/page_lines.h"
#include "printing/page_pictures.h"
#include "printing/recordset_data.h"
#include "reports/balances/balances_rows.h"
#include "reports/balances/balances_statements.h"
#include "reports/balances_company.h"

namespace velmo::reports {
namespace {

using printing::Page;
using Lines = std::vector<std::string>;

class AccBalPrint : public testing::Test, protected test::BalancesCompany {
 protected:
  using Print = printing::Report (*)(const session::LoginContext&, const BalancesSheet&, BalancesData);

  AccBalPrint() {
    context.CompanyAddress = "12 Dock Road";
    sheet.dateLine = "From  April 01, 2026  To  June 30, 2026";
    sheet.opening = 0;
    sheet.closing = -1012.34;
    sheet.today = day(11, 22);
  }
  BalancesData hierarchy(const std::string& statement) {
    store::Recordset rows;
    rows.openShape(context.KORDconn, statement);
    return withoutEmptyLevels(std::make_shared<printing::RecordsetData>(rows), {"level2", "level3"});
  }
  BalancesData flat(const std::string& statement) {
    return std::make_shared<frame::ReportRowsData>(std::make_shared<frame::RecordsetRows>(
        store::Recordset(context.KORDconn, statement, store::LockType::ReadOnly)));
  }
  Lines body(Print print, BalancesData rows, const char* picture) {
    const printing::Report report = print(context, sheet, std::move(rows));
    const std::vector<Page> pages = printing::test::cleanPages(report, picture);
    head = printing::test::textsOf(pages.front());
    return printing::test::linesOf(pages);
  }

  const BalancePeriod period{1, day(4, 1), day(6, 30)};
  BalancesSheet sheet;
  std::string head;
};

TEST_F(AccBalPrint, SixColumnsStandUnderTheirTypes) {
  run("update AccLevel3 set AccName='A name that is so long that it takes two lines of the print-out, although there "
      "is room for more than one hundred characters in a line of it' where AccCode=12002001");
  EXPECT_EQ(body(accBalRpt, hierarchy(sixColumnHierarchy(period, AccountsOfType{120})), "AccBalRpt"),
            (Lines{"= 120|Customers|2,835.50|Debit", "- 12001|Trade Customers|780.50|Debit",
                   "12001002|O'Brien & Sons|1,080.50|Debit|0.00|300.00|780.50|Debit",
                   "- 12002|Export Customers|2,055.00|Debit",
                   "12002001|A name that is so long that it takes two lines of the print-out, although there "
                   "is|0.00|Debit|2,000.00|0.00|2,000.00|Debit",
                   "room for more than one hundred characters in a line of it",
                   "12002002|Nobody's|0.00|Debit|55.00|0.00|55.00|Debit",
                   "- Totals Rs.|0.00|Debit|2,055.00|300.00|1,012.34|Credit"}))
      << "a customer who settled to the cent is not listed";
  for (const char* words :
       {"Harbour Timber", "Trial Balance", "From  April 01, 2026  To  June 30, 2026", "Acc Code", "Account Name",
        "Opening Balance", "Debit Rs.", "Credit Rs.", "Closing Balance", "Printed By: Ayesha"})
    EXPECT_THAT(head, testing::HasSubstr(words));
  const Lines whole = body(accBalRpt, hierarchy(sixColumnHierarchy(period, AllAccounts())), "AccBalRpt-all");
  EXPECT_THAT(whole, testing::Contains("= 310|Capital|480.75|Credit"));
  EXPECT_THAT(whole, testing::Not(testing::Contains(testing::StartsWith("= 150")))) << "a type without balances";
}

// Types and sub types that are not whole on a page are headed again on the next, here the sales.
TEST_F(AccBalPrint, TwoColumnsAddUpWithinTheirTypes) {
  sheet.reportLabel = "Accounts Balances";
  EXPECT_THAT(
      body(accBalRpt2, hierarchy(twoColumnHierarchy(period, AllAccounts())), "AccBalRpt2"),
      testing::ElementsAre(
          "= 100|Cash|500.25|Debit", "- 10001|Cash in Hand|500.25|Debit", "10001001|Cash in Hand|500.25",
          "- Cash in Hand|500.25|0.00", "- Cash|500.25|0.00", "= 110|Bank Accounts|300.30|Debit",
          "- 11001|Current Accounts|300.30|Debit", "11001001|City Bank|300.30", "- Current Accounts|300.30|0.00",
          "- Bank Accounts|300.30|0.00", "= 120|Customers|2,835.50|Debit", "- 12001|Trade Customers|780.50|Debit",
          "12001002|O'Brien & Sons|780.50", "- Trade Customers|780.50|0.00", "- 12002|Export Customers|2,055.00|Debit",
          "12002001|Far Trading|2,000.00", "12002002|Nobody's|55.00", "- Export Customers|2,055.00|0.00",
          "- Customers|2,835.50|0.00", "= 210|Vendors|740.10|Credit", "- 21001|Trade Vendors|740.10|Credit",
          "21001002|Mills|740.10", "- Trade Vendors|0.00|740.10", "- Vendors|0.00|740.10",
          "= 310|Capital|480.75|Credit", "- 31001|Owner's Account|480.75|Credit", "31001001|Owner's Capital|480.75",
          "- Owner's Account|0.00|480.75", "- Capital|0.00|480.75", "= 400|Sales and Services|3,055.30|Credit",
          "- 40001|Sales|3,055.30|Credit", "40001001|Sales|3,055.30", "= 400|Sales and Services|3,055.30|Credit",
          "- 40001|Sales|3,055.30|Credit", "- Sales|0.00|3,055.30", "- Sales and Services|0.00|3,055.30",
          "= 500|Purchases and Production|640.10|Debit", "- 50001|Purchases and Inventory|640.10|Debit",
          "50001002|Purchases|640.10", "- Purchases and Inventory|640.10|0.00",
          "- Purchases and Production|640.10|0.00", "- Totals Rs.|4,276.15|4,276.15"));
  EXPECT_THAT(head, testing::HasSubstr("Accounts Balances"));
}

TEST_F(AccBalPrint, RangesAndPartiesHaveNoGroups) {
  sheet.reportLabel = "Customers' Balances";
  sheet.nameHeading = "Customer Name";
  const Lines customers = {"12001002|O'Brien & Sons|1,080.50|Debit|0.00|300.00|780.50|Debit",
                           "12002001|Far Trading|0.00|Debit|2,000.00|0.00|2,000.00|Debit",
                           "12002002|Nobody's|0.00|Debit|55.00|0.00|55.00|Debit",
                           "- Totals Rs.|0.00|Debit|2,055.00|300.00|1,012.34|Credit"};
  EXPECT_EQ(body(accBalRptRange, flat(customerBalances(period, "((OBQry.Level1ID) = 120)")), "AccBalRptCus"),
            customers);
  EXPECT_THAT(head, testing::HasSubstr("Customer Name"));
  EXPECT_THAT(head, testing::HasSubstr("Customers' Balances"));
  const AccountRange range{12001002, 21001002};
  EXPECT_EQ(body(accBalRptRange, flat(sixColumnBalances(period, range)), "AccBalRptRange").size(), 5U);
  EXPECT_EQ(body(accBalRptRange2, flat(twoColumnRangePrint(period, range)), "AccBalRptRange2"),
            (Lines{"12001002|O'Brien & Sons|780.50", "12002001|Far Trading|2,000.00", "12002002|Nobody's|55.00",
                   "21001002|Mills|740.10", "- Totals Rs.|2,835.50|740.10"}));
  EXPECT_EQ(body(accBalRptRange2, flat(twoColumnRangePrint(period, {1, 2})), "empty"), Lines{"- Totals Rs.|0.00|0.00"});
}

}  // namespace
}  // namespace velmo::reports
