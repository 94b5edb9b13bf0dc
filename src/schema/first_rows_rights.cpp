#include "schema/first_rows.h"
#include "store/recordset/recordset.h"

namespace velmo::schema {
namespace {

struct Right {
  int id;
  const char* words;  // finish the sentence "You do not have access to ..."
};

// A screen of documents has two rights: the first to write new ones, the second to look at saved ones.
constexpr Right rights[] = {
    {2, "welcome screen."},
    {12, "edit chart of accounts, customers, vendors and banks."},
    {14, "accounts opening balances."},
    {22, "edit chart of inventory and services."},
    {24, "inventory opening balances."},
    {25, "edit inventory brands."},
    {26, "edit inventory locations."},
    {28, "edit item prices."},
    {32, "edit item re-order levels."},
    {34, "edit inventory valuation method."},
    {38, "edit inventory movement settings."},
    {41, "edit customer regions."},
    {42, "edit business sectors."},
    {43, "edit employees."},
    {44, "edit jobs."},
    {52, "add purchase orders."},
    {54, "view purchase orders."},
    {57, "add purchase bills."},
    {58, "go through purchase bills."},
    {59, "view purchase bills."},
    {60, "add purchase returns."},
    {62, "view purchase returns."},
    {64, "add bank payments."},
    {66, "view bank payments."},
    {68, "add cash payments."},
    {70, "view cash payments."},
    {82, "add quotations."},
    {84, "view quotations."},
    {86, "add sale orders."},
    {88, "view sale orders."},
    {90, "add delivery challans."},
    {92, "view delivery challans."},
    {93, "add sale invoices."},
    {94, "view sale invoices."},
    {95, "add point of sale invoices."},
    {97, "view point of sale invoices."},
    {98, "add sale returns."},
    {100, "view sale returns."},
    {102, "add bank receipts."},
    {104, "view bank receipts."},
    {106, "add cash receipts."},
    {108, "view cash receipts."},
    {122, "add journal vouchers."},
    {124, "view journal vouchers."},
    {126, "add inventory transfers."},
    {128, "view inventory transfers."},
    {129, "add and view bills of material."},
    {132, "add production."},
    {134, "view production."},
    {142, "add inventory adjustments."},
    {144, "view inventory adjustments."},
    {152, "add inward gate passes."},
    {154, "view inward gate passes."},
    {156, "add outward gate passes."},
    {158, "view outward gate passes."},
    {180, "view journal report."},
    {184, "print vouchers."},
    {186, "track product serials."},
    {188, "view items below re-order level."},
    {190, "track purchase orders."},
    {191, "track sale orders."},
    {192, "view purchase reports."},
    {193, "view payments report."},
    {196, "view items purchase analysis."},
    {198, "view invoice wise purchase activity report."},
    {199, "view party wise purchase activity report."},
    {200, "view accounts payable aging."},
    {212, "view sale reports."},
    {213, "view receipts report."},
    {214, "view sale activity reports."},
    {216, "view items and services sale analysis."},
    {220, "view accounts receivable aging."},
    {224, "view profitability reports."},
    {230, "view jobs ledgers."},
    {232, "view inventory ledgers."},
    {236, "view inventory balances."},
    {240, "view accounts ledgers."},
    {242, "view cash and bank balances."},
    {244, "view customers' balances."},
    {246, "view vendors' balances."},
    {248, "view trial balance."},
    {252, "view income statement."},
    {254, "view balance sheet."},
};

}  // namespace

void writeRights(store::Connection& connection) {
  store::Recordset rows(connection, "select * from UserRights");
  for (const Right& right : rights)
    rows.addNew({{"RightID", right.id},
                 {"RightType", right.words},
                 {"Operator1", false},
                 {"Operator2", false},
                 {"Operator3", false},
                 {"Operator4", false},
                 {"Operator5", false},
                 {"Operator6", false},
                 {"Operator7", false},
                 {"Operator8", false},
                 {"Operator9", false}});
}

}  // namespace velmo::schema
