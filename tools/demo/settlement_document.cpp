#include "demo_company/settlement_document.h"

#include <stdexcept>

#include "demo_company/parties.h"
#include "text/format.h"
#include "text/number.h"
#include "vouchers/settlement/settlement_types.h"
#include "vouchers/settlement/settlement_writer.h"

namespace velmo::demo {

using namespace vouchers;

SettlementDocument::SettlementDocument(session::LoginContext& context, const SettlementKind& kind,
                                       const text::DateTime& moment, std::int64_t docNo)
    : context_(context), kind_(kind), moment_(moment) {
  values_.DocNo = std::to_string(docNo);
  values_.TrDate = moment.date();
  if (kind.by == PaidBy::Cheque) {
    values_.fields["ChqNo"] = std::to_string(400099 + docNo);
    values_.fields["ChqDt"] = text::formatDate(moment, "dd-MM-yyyy");
    if (isReceipt(kind)) values_.fields["ChqBank"] = "City Bank";
  }
  const std::int64_t money = kind.by == PaidBy::Cash ? frame::cashInHand.code : firstBank;
  values_.ACodeTxt = std::to_string(money);
  values_.Acc = accountName(money);
  for (const auto& [sheet, table] : {std::pair(&invoices_, agingTable(kind)), {&petty_, "subtransactions"}})
    sheet->open(context.KORDconn, "Select * from " + std::string(table) + " where tranno = 0",
                store::LockType::BatchOptimistic);
}

void SettlementDocument::setParty(std::int64_t party) {
  values_.PartyCodeTxt = std::to_string(party);
  values_.PartyNameTxt = accountName(party);
}

void SettlementDocument::settle(const PendingItem& item, double amount, double tax, double discount) {
  const double payment = text::roundHalfEven(amount - tax - discount, 2);
  std::vector<store::FieldValue> row{
      {"docno", item.docNo}, {"trandate", item.tranDate}, {"payment", payment},   {"whtax", tax},
      {"advadj", 0.0},       {"discount", discount},      {"totpayment", amount}, {"partycode", item.partyCode}};
  if (!isReceipt(kind_)) row.push_back({"vendorinvno", item.key});
  invoices_.addNew(row);
  settlement_.invoices += item.key + ", ";
  sums_.payment += payment;
  sums_.whTax += tax;
  sums_.discount += discount;
  sums_.totPayment += amount;
}

void SettlementDocument::book(const PettyLine& line, double amount) {
  settlement_.mode = SettlementMode::Petty;
  settlement_.TAmt = text::formatNumber(amount, "0.00");
  values_.Desc = line.what;
  petty_.addNew({{"acccode", line.account},
                 {"accname", accountName(line.account)},
                 {isReceipt(kind_) ? "credit" : "debit", amount}});
}

frame::DocumentWrite SettlementDocument::compose() const {
  auto document =
      composeSettlement(settlementType(kind_), kind_, values_, settlement_, context_, moment_, frame::HeaderWrite::Add);
  if (!document) throw std::logic_error(document.error());
  return std::move(*document);
}

void SettlementDocument::writeRows(std::int64_t tranNo) {
  if (settlement_.mode == SettlementMode::Party)
    writeSettlement(kind_, invoices_, values_, tranNo, context_.FYID);
  else
    writePetty(kind_, context_.KORDconn, petty_, invoices_, values_, settlement_, tranNo);
}

std::string SettlementDocument::accountName(std::int64_t code) const {
  return store::Recordset(context_.KORDconn, "select accname from acclevel3 where acccode=" + std::to_string(code),
                          store::LockType::ReadOnly)
      .text("accname");
}

}  // namespace velmo::demo
