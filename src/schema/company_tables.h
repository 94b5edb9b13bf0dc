#pragma once

#include <vector>

#include "store/values/catalog.h"

// The company's tables by subject. A relation stands only where no screen ever writes a key without a parent: documents
// keep 0 or null where they name no employee, job or location, so those columns are not related.
namespace velmo::schema {

std::vector<store::Table> accountTables();    // chart of accounts and the two statements built on it
std::vector<store::Table> documentTables();   // documents, their ledger and item lines, open invoices and bills
store::KeptTotals accountTotals();            // debits and credits by account
store::KeptTotals stockTotals();              // what came in and went out by item
store::KeptTotals placeTotals();              // the same of each place
store::KeptTotals kindTotals();               // the same with its value of each kind of document
store::KeptTotals receiptTotals();            // what came in and its value by item and kind of document
store::KeptBalances openInvoices();           // what is open of an invoice
store::KeptBalances openBills();              // what is open of a bill
std::vector<store::Table> inventoryTables();  // catalogue of goods and services
std::vector<store::Table> peopleTables();     // parties' classification, employees, jobs, users
std::vector<store::Table> settingTables();    // company, years, currencies, document types, help

}  // namespace velmo::schema
