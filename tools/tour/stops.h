#pragma once

#include "shell/window/main_shell.h"

namespace velmo::tour {

class Guide;

// A group of screens that the tour visits in the running program, in one file each. It leaves the shell as it found
// it: what it opened is closed again, or it is a tab that later stops open anew without harm. Throws std::logic_error
// when a screen no longer is as the tour knows it.
using Stop = void (*)(Guide& guide, shell::MainShell& shell);

// Accounts, parties, the catalogue, people and rights, as their keepers see them.
void visitMasters(Guide& guide, shell::MainShell& shell);
// The day's work at the sale invoice: a sale on credit, its print-outs, finding it again.
void visitSaleInvoices(Guide& guide, shell::MainShell& shell);
// The company's own data, its currency, logo and print formats; help and the program's own box.
void visitSettings(Guide& guide, shell::MainShell& shell);
// A purchase, a credit note and a debit note.
void visitTradeDocuments(Guide& guide, shell::MainShell& shell);
// From offer to gate: quotations, orders, challans and gate passes, and what becomes of them.
void visitOrders(Guide& guide, shell::MainShell& shell);
// Goods that move, come and go without a party, and a count sheet.
void visitStockMoves(Guide& guide, shell::MainShell& shell);
// A recipe, goods made from it, and where the serial numbers of tools went.
void visitProductions(Guide& guide, shell::MainShell& shell);
// Money that comes in against invoices, and petty cash that goes out.
void visitSettlements(Guide& guide, shell::MainShell& shell);
// A journal voucher, its print-out, and the notes of a receipt and of petty cash.
void visitJournal(Guide& guide, shell::MainShell& shell);
// The ledger of a customer, the ledgers of many accounts, the day book, and runs of vouchers.
void visitLedgerReports(Guide& guide, shell::MainShell& shell);
// The trial balance, the balances of customers, vendors, cash and banks, and the ledger of a job.
void visitBalances(Guide& guide, shell::MainShell& shell);
// One invoice in every layout, on plain paper and on the company's own letterhead, and the label sheets.
void visitPrintOuts(Guide& guide, shell::MainShell& shell);

}  // namespace velmo::tour
