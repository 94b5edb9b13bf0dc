#include "attack/program_at_work.h"

#include "attack/risk_places.h"
#include "frame/document_number.h"
#include "store/recordset.h"

namespace velmo::attack {
namespace {

constexpr const char* balances =
    "SELECT SubTransactions.AccCode, Sum(SubTransactions.Debit) AS Debits, Sum(SubTransactions.Credit) AS Credits FROM "
    "Transactions INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo WHERE "
    "((Transactions.Cancel)=No) AND ((Transactions.FYID)=1) GROUP BY SubTransactions.AccCode";

void readReport(Cashier& cashier) {
  for (store::Recordset rows(cashier.connection(), balances, store::LockType::ReadOnly); !rows.eof(); rows.moveNext()) {
  }
}

void doSomething(Cashier& cashier, int choice) {
  switch (choice) {
    case 0:
      return cashier.connection().checkpoint();
    case 1:
      return readReport(cashier);
    case 2:
      return startProgram();
    case 3:
      return backUp();
    default:
      return cashier.step();
  }
}

}  // namespace

void workAsProgram(int pipe, unsigned seed, const Documents& known, Cashier::Deletes deletes, int steps) {
  constexpr int choices = 24;
  std::mt19937 random(seed);
  Cashier cashier(pipe, seed + 1, known, deletes);
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
