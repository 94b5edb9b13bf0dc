#include "schema/account_types.h"
#include "schema/first_rows.h"
#include "store/recordset/recordset.h"

namespace velmo::schema {
namespace {

struct Section {
  int id;
  const char* heading;
};

// The balance sheet reads the first two, debits positive in the first; the income statement reads the others.
constexpr Section sections[] = {
    {1, "Assets"},
    {2, "Liabilities and Equity"},
    {3, "Gross Profit / (Loss)"},
    {4, "Other Income less Expenses"},
};

struct Nature {
  int id;
  int section;
  const char* heading;
};

constexpr int equity = 30;

constexpr Nature natures[] = {
    {10, 1, "Current Assets"},        {11, 1, "Fixed Assets"},       {20, 2, "Current Liabilities"},
    {21, 2, "Long Term Liabilities"}, {equity, 2, "Owner's Equity"}, {40, 3, "Income from Sales and Services"},
    {50, 3, "Cost of Sales"},         {60, 4, "Operating Expenses"}, {61, 4, "Other Income"},
    {62, 4, "Financial Charges"},     {65, 4, "Taxation"},
};

struct AccountType {
  int id;
  int nature;
  const char* name;
};

// A new type takes the number after the last of its nature's group, so that no group may be without one.
constexpr AccountType types[] = {
    {account_type::Cash, 10, "Cash"},
    {account_type::Banks, 10, "Bank Accounts"},
    {account_type::Customers, 10, "Customers"},
    {account_type::Inventory, 10, "Inventory"},
    {account_type::Prepayments, 10, "Advances, Deposits and Prepayments"},
    {150, 11, "Furniture, Equipment and Vehicles"},
    {account_type::Vendors, 20, "Vendors"},
    {account_type::Payables, 20, "Taxes and Accrued Expenses Payable"},
    {250, 21, "Long Term Loans"},
    {310, equity, "Capital"},
    {account_type::AccumulatedProfit, equity, "Accumulated Profit & Loss"},
    {account_type::Income, 40, "Sales and Services"},
    {account_type::Expense, 50, "Purchases and Production"},
    {account_type::Selling, 60, "Selling and Administrative Expenses"},
    {700, 61, "Other Income"},
    {710, 62, "Bank Charges and Interest"},
    {750, 65, "Income Tax"},
};

struct SubType {
  int id;  // type and a running number of two digits
  const char* name;
};

constexpr SubType subTypes[] = {
    {10001, "Cash in Hand"},
    {11001, "Current Accounts"},
    {12001, "Trade Customers"},
    {13001, "Inventory in Hand"},
    {14001, "Taxes Paid in Advance"},
    {14002, "Advances, Deposits and Prepayments"},
    {15001, "Furniture and Fixtures"},
    {15002, "Office and Computer Equipment"},
    {15003, "Vehicles"},
    {15004, "Accumulated Depreciation"},
    {21001, "Trade Vendors"},
    {22001, "Taxes Payable"},
    {22002, "Accrued Expenses"},
    {25001, "Loans"},
    {31001, "Owner's Account"},
    {32001, "Accumulated Profit & Loss"},
    {40001, "Sales"},
    {40002, "Services"},
    {50001, "Purchases and Inventory"},
    {50002, "Labour"},
    {50003, "Factory Overheads"},
    {60001, "Selling and Distribution"},
    {60002, "Administration"},
    {60003, "Depreciation"},
    {70001, "Other Income"},
    {71001, "Bank Charges and Interest"},
    {75001, "Income Tax"},
};

// Accounts that the program posts to by number can be neither edited nor deleted.
enum class Kept { Always, AsLongAsWanted };

struct Account {
  int code;  // sub type and a running number of three digits
  const char* name;
  Kept kept = Kept::AsLongAsWanted;
  const char* terms = "0";
};

constexpr Account accounts[] = {
    {10001001, "Cash in Hand", Kept::Always},
    {10001002, "Petty Cash"},
    {12001001, "Walk-in (Cash) Customer", Kept::Always, "Cash"},
    {13001001, "Closing Inventory", Kept::Always},
    {14001001, "Advance Income Tax Deducted", Kept::Always},
    {14002001, "Advances to Employees"},
    {14002002, "Security Deposits"},
    {14002003, "Prepaid Rent"},
    {14002004, "Prepaid Insurance"},
    {15001001, "Furniture and Fixtures"},
    {15002001, "Office Equipment"},
    {15002002, "Computers"},
    {15003001, "Vehicles"},
    {15004001, "Accumulated Depreciation"},
    {21001001, "Retail / Cash Purchase", Kept::Always, "Cash"},
    {22001001, "Income Tax Deducted of Other Parties", Kept::Always},
    {22001002, "Sales Tax Payable"},
    {22001003, "Income Tax Payable"},
    {22002001, "Salaries Payable"},
    {22002002, "Rent Payable"},
    {22002003, "Other Accrued Expenses"},
    {25001001, "Bank Loan"},
    {31001001, "Owner's Capital"},
    {31001002, "Owner's Drawings"},
    {32001001, "Accumulated Profit & Loss", Kept::Always},
    {40001001, "Sales", Kept::Always},
    {40001002, "Sale Returns", Kept::Always},
    {40001003, "Discount Earned", Kept::Always},
    {40002001, "Services"},
    {50001001, "Opening Inventory", Kept::Always},
    {50001002, "Purchases", Kept::Always},
    {50001003, "Purchase Returns", Kept::Always},
    {50001004, "Carriage & Freight Inwards", Kept::Always},
    {50001005, "Cost of Inventory Adjusted", Kept::Always},
    {50001006, "Closing Inventory", Kept::Always},
    {50001007, "Material Used in Production", Kept::Always},
    {50001008, "Cost of Goods Produced", Kept::Always},
    {50002001, "Labour Wages", Kept::Always},
    {50003001, "Factory Overhead", Kept::Always},
    {60001001, "Carriage & Freight Outwards", Kept::Always},
    {60001002, "Discount Given to Parties", Kept::Always},
    {60001003, "Advertisement"},
    {60001004, "Sales Commission"},
    {60001005, "Packing Material"},
    {60001006, "Bad Debts"},
    {60002001, "Salaries and Wages"},
    {60002002, "Rent"},
    {60002003, "Electricity, Gas and Water"},
    {60002004, "Telephone and Internet"},
    {60002005, "Printing and Stationery"},
    {60002006, "Postage and Courier"},
    {60002007, "Repairs and Maintenance"},
    {60002008, "Fuel and Vehicle Running"},
    {60002009, "Travelling"},
    {60002010, "Entertainment"},
    {60002011, "Insurance"},
    {60002012, "Legal and Professional Fees"},
    {60002013, "Licences and Subscriptions"},
    {60002014, "Cleaning and Security"},
    {60002015, "Miscellaneous Expenses"},
    {60003001, "Depreciation"},
    {70001001, "Interest Received"},
    {70001002, "Sale of Scrap"},
    {70001003, "Gain / (Loss) on Sale of Assets"},
    {71001001, "Bank Charges"},
    {71001002, "Interest on Loans"},
    {75001001, "Income Tax for the Year"},
};

constexpr int anyone = 1;  // the first employee, sector and region, which every party starts with

}  // namespace

void writeStatementSections(store::Connection& connection) {
  store::Recordset sectionRows(connection, "select * from FS");
  for (const Section& section : sections) sectionRows.addNew({{"FSID", section.id}, {"FSType", section.heading}});
  store::Recordset natureRows(connection, "select * from FSNature");
  for (const Nature& nature : natures)
    natureRows.addNew({{"NatureID", nature.id}, {"FSID", nature.section}, {"AccNatureTop", nature.heading}});
}

void writeChartOfAccounts(store::Connection& connection) {
  store::Recordset typeRows(connection, "select * from AccLevel1");
  for (const AccountType& type : types)
    typeRows.addNew({{"TypeID", type.id}, {"Type", type.name}, {"NatureID", type.nature}});
  store::Recordset subTypeRows(connection, "select * from AccLevel2");
  for (const SubType& subType : subTypes)
    subTypeRows.addNew({{"Level2ID", subType.id}, {"L2AccName", subType.name}, {"TypeID", subType.id / 100}});
  store::Recordset accountRows(connection, "select * from AccLevel3");
  for (const Account& account : accounts)
    accountRows.addNew({
        {"AccCode", account.code},
        {"AccName", account.name},
        {"Level1ID", account.code / 100000},
        {"Level2ID", account.code / 1000},
        {"Contact", ""},
        {"Address", ""},
        {"Branch", ""},
        {"AccountTitle", ""},
        {"AccountNo", ""},
        {"Phone", ""},
        {"Mobile", ""},
        {"Fax", ""},
        {"EMail", ""},
        {"Website", ""},
        {"SalesTaxRegnNo", ""},
        {"NTN", ""},
        {"CreditLimit", 0.0},
        {"CreditTerms", account.terms},
        {"Remarks", ""},
        {"Default", account.kept == Kept::Always},
        {"EmpID", anyone},
        {"SectorID", anyone},
        {"Region1ID", anyone},
        {"Region2ID", anyone},
    });
}

}  // namespace velmo::schema
