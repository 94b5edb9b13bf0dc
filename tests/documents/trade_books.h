#pragma once

#include <random>

#include "documents/invoice_company.h"
#include "documents/purchase_bill_type.h"
#include "documents/purchase_return_type.h"
#include "documents/sale_invoice_pos_type.h"
#include "documents/sale_invoice_type.h"
#include "documents/sale_return_type.h"
#include "frame/compose_document.h"
#include "frame/day_text.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::test {

using frame::DocumentType;
using frame::DocumentValues;

struct RandomLine {
  const char* item;
  double quantity;
  double rate;
  double discountRate;
};

struct RandomDocument {
  const DocumentType* type;
  std::vector<RandomLine> lines;
  double discount = 0;
  double carriage = 0;
  double paidShare = 0;    // of the net total, from 0 to 1
  std::string returnedNo;  // of a return: the invoice or bill, and its day; made up when empty
  text::DateTime returnedDay;
  bool leavesStock = false;
  bool cancelled = false;
  std::int64_t party = 0;
  std::int64_t docNo = 0;
};

class TradeBooks : public InvoiceCompany {
 public:
  TradeBooks() {
    context.KORDconn.execute(
        "INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (21001002, 'Mills', 210, 21001)");
  }

  RandomDocument make(std::int64_t docNo) {
    static const DocumentType* const types[] = {&documents::saleInvoiceType(), &documents::saleInvoicePosType(),
                                                &documents::saleReturnType(), &documents::purchaseBillType(),
                                                &documents::purchaseReturnType()};
    RandomDocument document;
    document.type = types[pick(5)];
    const int lineCount = 1 + pick(5);
    for (int i = 0; i < lineCount; ++i)
      document.lines.push_back(
          {pick(2) ? "H1" : "N1", (1 + pick(9999)) / 100.0, pick(100000) / 1000.0, pick(3) ? 0.0 : pick(9999) / 100.0});
    document.discount = pick(2) ? 0 : pick(200) / 100.0;
    document.carriage = pick(2) ? 0 : (pick(400) - 200) / 100.0;
    document.paidShare = document.type == &documents::saleInvoicePosType() ? 1 : pick(5) / 4.0;
    document.leavesStock = pick(3) == 0;
    document.cancelled = pick(5) == 0;
    const bool bought = document.type->TranType < 30;
    document.party = bought ? 21001002 : document.paidShare == 1 ? 12001001 : 12001002 + pick(2);
    document.docNo = docNo;
    return document;
  }

  std::int64_t save(const RandomDocument& document, std::int64_t tranNo = 0) {
    const DocumentType& type = *document.type;
    store::Recordset sheet(context.KORDconn, "Select * from stockflow where tranno = " + std::to_string(tranNo),
                           store::LockType::BatchOptimistic);
    if (tranNo == 0) fillSheet(sheet, document);
    context.InvoiceInvLedger = context.BillInvLedger = document.leavesStock;
    const DocumentValues values = lastSaved = valuesOf(document, sheet);
    const auto composed = frame::composeDocument(type, values, context, clock.now(), sheet,
                                                 tranNo == 0 ? frame::HeaderWrite::Add : frame::HeaderWrite::Update);
    if (!composed) return 0;  // a total below zero has no debit side
    store::Recordset tran(context.KORDconn, "SELECT * from transactions where tranno = " + std::to_string(tranNo));
    return frame::writeDocument(context.KORDconn, *composed, tran, sheet);
  }

  DocumentValues lastSaved;

  double sum(const std::string& statement) {
    const store::Recordset row(context.KORDconn, statement, store::LockType::ReadOnly);
    return row.isEmpty() ? 0 : row.number("s");
  }

  // Everything that a document wrote, without keys and stamps.
  std::string written(std::int64_t tranNo) {
    std::string all;
    for (const char* statement :
         {"select docno, trandate, nature, desc, d1, d2, partycode, partycode2, text1, text4, text7, text11, text12, "
          "discount, carriage, tramount, received, balance, wordsamt, cancel, invledger from transactions where "
          "tranno=",
          "select serial, itemcode, itemname, stockin, stockout, unit, rate, grossamt, discrate, discamt, itemvalue, "
          "locationid from stockflow where tranno=",
          "select acccode, accname, desc, debit, credit from subtransactions where tranno=",
          "select docno, docno2, partycode, tramount, return, payment, totpayment from agingdr where tranno=",
          "select docno, docno2, vendorinvno, partycode, tramount, return, payment, totpayment from agingcr where "
          "tranno="})
      for (const std::string& row : rows(statement + std::to_string(tranNo))) all += row + "\n";
    return all;
  }

  int pick(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

 private:
  static void fillSheet(store::Recordset& sheet, const RandomDocument& document) {
    for (const RandomLine& line : document.lines) {
      const frame::LineAmounts amounts =
          frame::lineAmounts({.quantity = text::numberText(line.quantity),
                              .rate = text::numberText(line.rate),
                              .discountRate = line.discountRate == 0 ? "" : text::numberText(line.discountRate),
                              .discount = "0.00"});
      sheet.addNew({{"ItemCode", std::string(line.item)},
                    {"ItemName", std::string(line.item)},
                    {document.type->lines.quantityField, line.quantity},
                    {"Unit", std::string("Pcs")},
                    {"Rate", line.rate},
                    {"GrossAmt", text::amountFrom(amounts.gross)},
                    {"DiscAmt", text::amountFrom(amounts.discount)},
                    {"ItemValue", text::amountFrom(amounts.net)}});
    }
  }

  DocumentValues valuesOf(const RandomDocument& document, const store::Recordset& sheet) {
    const auto shown = [](double amount) { return text::formatNumber(amount, "#0.00; (#0.00)"); };
    const frame::ReceivedRule rule = document.type->counter       ? frame::ReceivedRule::Tendered
                                     : document.party == 12001001 ? frame::ReceivedRule::WholeNetTotal
                                                                  : frame::ReceivedRule::AsTyped;
    frame::TypedAmounts typed{
        .Discount = shown(document.discount), .Carriage = shown(document.carriage), .Received = "0"};
    const frame::LineSums sums = frame::sumLines(sheet);
    const double net = text::amountFrom(frame::RecalculateTotals(sums, typed, rule, "Rupees").NetTotal);
    typed.Received = shown(std::max(0.0, net * document.paidShare));
    DocumentValues values;
    values.DocNo = std::to_string(document.docNo);
    values.TrDate = clock.today();
    values.Cancel = document.cancelled;
    values.PartyCodeTxt = std::to_string(document.party);
    values.PartyNameTxt = "Party";
    values.IncomeCode = std::to_string(document.type->head->initialCode);
    values.IncomeAcc = "Head";
    values.ACodeTxt = "10001001";
    values.Acc = "Cash in Hand";
    values.LocationList = {"Main", 1, true};
    const std::string reference = document.returnedNo.empty() ? std::to_string(document.docNo) : document.returnedNo;
    values.fields = {{"D1", reference}, {"D2", reference}};
    if (!document.returnedNo.empty())
      for (const char* day : {"D1Dt", "D2Dt"}) values.fields[day] = frame::dayText(document.returnedDay);
    values.totals = frame::RecalculateTotals(sums, typed, rule, "Rupees");
    return values;
  }

  std::mt19937 random_{20261122};
};

}  // namespace velmo::test
