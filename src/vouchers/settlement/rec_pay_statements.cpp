#include "vouchers/settlement/rec_pay_statements.h"

#include "store/connection/connection.h"

namespace velmo::vouchers {

namespace {

constexpr const char* bankOfTheCheque = "text1, text2, text3, text4 as ChqBank, ";
constexpr const char* ownBankAccount = "text1, text2 as ChqBank, text3, text4, ";
constexpr const char* settlementAmounts =
    "text8, Discount, tax1, tax2, additionaltax, carriage, tramount, Received, Balance, ";
constexpr const char* pettyAmounts = "Discount, carriage, tramount, Received, Balance, ";

std::string note(const char* texts, const char* amounts, const std::string& currencyName, std::int64_t tranNo) {
  return "SELECT TranNo, DocNo, DocNo2, TranDate, Nature, Desc, D1 as ChqNo, D1Date as ChqDt, D2, D2Date, " +
         std::string(texts) + "text5, text6, " + amounts + "(" + store::quoted(currencyName + " ") +
         " & wordsamt) as WordsAmount, IIf([Cancel]=0,'','CANCELLED') AS CStatus FROM Transactions Where TranNo = " +
         std::to_string(tranNo);
}

}  // namespace

std::string recPayStatement(const SettlementKind& kind, const std::string& currencyName, std::int64_t tranNo) {
  const bool chequePaid = !isReceipt(kind) && kind.by == PaidBy::Cheque;
  return note(chequePaid ? ownBankAccount : bankOfTheCheque, settlementAmounts, currencyName, tranNo);
}

std::string recPayPettyShape(const SettlementKind& kind, const std::string& currencyName, std::int64_t tranNo) {
  const std::string side = isReceipt(kind) ? "Credit" : "Debit";
  return "Shape {" + note(bankOfTheCheque, pettyAmounts, currencyName, tranNo) +
         "} as ParentCmd APPEND ({SELECT TranNo, AccCode, AccName, Desc, " + side +
         " as Amt FROM SubTransactions where " + side + " is not null and " + side +
         "<>0 ORDER BY serial} as ChildCmd RELATE 'TranNo' TO 'TranNo') AS ChildCmd";
}

}  // namespace velmo::vouchers
