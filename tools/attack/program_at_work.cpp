#include "attack/program_at_work.h"

#include <map>
#include <stdexcept>

#include "attack/amount.h"
#include "attack/risk_places.h"
#include "frame/posting/document_number.h"
#include "store/recordset/forward_reader.h"
#include "store/recordset/recordset.h"

namespace velmo::attack {
namespace {

constexpr const char* balances =
    "SELECT SubTransactions.AccCode, Sum(SubTransactions.Debit) AS Debits, Sum(SubTransactions.Credit) AS Credits FROM "
    "Transactions INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo WHERE "
    "((Transactions.Cancel)=No) AND ((Transactions.FYID)=1) GROUP BY SubTransactions.AccCode";

constexpr const char* ledgerLines =
    "SELECT SubTransactions.AccCode, SubTransactions.Debit, SubTransactions.Credit FROM Transactions INNER JOIN "
    "SubTransactions ON Transactions.TranNo = SubTransactions.TranNo WHERE ((Transactions.Cancel)=No) AND "
    "((Transactions.FYID)=1)";

void readReport(store::Connection& books) {
  if (const std::string flaw = flawOfReport(books); !flaw.empty()) throw std::runtime_error(flaw);
}

void doSomething(Cashier& cashier, int choice) {
  switch (choice) {
    case 0:
      return cashier.connection().checkpoint();
    case 1:
      return readReport(cashier.connection());
    case 2:
      return startProgram();
    case 3:
      return backUp();
    case 4:
      return importAccounts(cashier.connection());
    case 5:
      return logIn(cashier.connection());
    case 6:
      return passBalances(cashier.connection());
    default:
      return cashier.step();
  }
}

}  // namespace

// In the sums of the file and in those of its lines, at one moment while others save.
std::string flawOfReport(store::Connection& books) {
  store::Connection snapshot = books.snapshot();
  struct Sides {
    Amount debits, credits;
  };
  std::map<std::int64_t, Sides> accounts;
  Sides all;
  for (store::Recordset rows(snapshot, balances, store::LockType::ReadOnly); !rows.eof(); rows.moveNext()) {
    Sides& account = accounts[rows.integer("AccCode")];
    account = {Amount(rows.number("Debits")), Amount(rows.number("Credits"))};
    all.debits += account.debits;
    all.credits += account.credits;
  }
  if (!all.debits.isAbout(all.credits)) return "a trial balance is not balanced";
  std::map<std::int64_t, Sides> ofLines;
  for (store::ForwardReader lines(snapshot, ledgerLines); lines.next();) {
    Sides& account = ofLines[lines.integer(0)];
    account.debits += Amount(lines.number(1));
    account.credits += Amount(lines.number(2));
  }
  for (const auto& [code, sides] : ofLines)
    if (!sides.debits.isAbout(accounts[code].debits) || !sides.credits.isAbout(accounts[code].credits))
      return "a trial balance is not that of the lines";
  return {};
}

void workAsProgram(int pipe, unsigned seed, const Documents& known, int steps) {
  constexpr int choices = 24;
  std::mt19937 random(seed);
  Cashier cashier(pipe, seed + 1, known);
  for (int step = 0; step < steps; ++step) {
    try {
      doSomething(cashier, std::uniform_int_distribution(0, choices)(random));
    } catch (const frame::DocNoTaken&) {
    } catch (const store::StoreError& failure) {
      if (failure.kind() != store::ErrorKind::Busy) throw;
    }
  }
}

}  // namespace velmo::attack
