#include "vouchers/settlement/settlement_types.h"

#include "frame/document/document_screen.h"
#include "text/number.h"
#include "vouchers/settlement/find_settlements.h"
#include "vouchers/settlement/rec_pay_print.h"
#include "vouchers/settlement/settlement_body.h"

namespace velmo::vouchers {

namespace {

using frame::DocumentValues;
using frame::SaveSituation;

// What was typed of a cheque stands as it is; nothing of it is tested.
std::vector<frame::DocumentField> chequeFields(const SettlementKind& kind) {
  if (kind.by == PaidBy::Cash) return {};
  std::vector<frame::DocumentField> fields = {{.name = "ChqNo", .column = "D1", .label = "Cheque No."},
                                              {.name = "ChqDt", .column = "D1Date", .label = "Dated "}};
  if (isReceipt(kind)) fields.push_back({.name = "ChqBank", .column = "text4", .label = "Cheque Bank"});
  return fields;
}

bool isPetty(const DocumentValues& values) {
  return values.field("RecOpt") == "1";
}

std::vector<frame::ValidationStep> validation(const SettlementKind& kind) {
  return {{.fails = [](const DocumentValues& v, const SaveSituation&) { return !isPetty(v) && v.PartyNameTxt.empty(); },
           .text = kind.partyRefusal,
           .control = "PartyCode"},
          {.fails = [](const DocumentValues& v, const SaveSituation&) { return v.Acc.empty(); },
           .text = kind.accountRefusal,
           .control = "BankCode"},
          frame::jobIsListedOrBlank(),
          frame::employeeIsListedOrBlank(),
          {.fails = [](const DocumentValues& v,
                       const SaveSituation&) { return isPetty(v) && text::amountFrom(v.field("TAmt")) == 0; },
           .text = "Transaction must have some value greater than 0."}};
}

QWidget* makeScreen(const SettlementKind& kind, session::Workplace& workplace, QWidget* parent,
                    frame::PrintOuts printOuts) {
  frame::DocumentType type = settlementType(kind);
  type.print = [&kind](session::Workplace& place, const DocumentValues& onScreen, QWidget* screen) {
    const auto mode = isPetty(onScreen) ? SettlementMode::Petty : SettlementMode::Party;
    showRecPay(place, kind, mode, place.context.PrintRS.integer("tranno"), screen);
  };
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

}  // namespace

frame::DocumentType settlementType(const SettlementKind& kind) {
  return {.form = kind.form,
          .title = kind.title,
          .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
          .find = findSettlements(kind),
          .makeBody = [&kind](const frame::BodyPlace& place) -> std::shared_ptr<frame::DocumentBody> {
            return std::make_shared<SettlementBody>(kind, place);
          },
          .locationChoice = frame::LocationChoice::None,
          .afterPrint = frame::AfterPrint::StayOnSaved,
          .fields = chequeFields(kind),
          .validation = validation(kind)};
}

QWidget* makeCashReceipts(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(cashReceipts(), workplace, parent, std::move(printOuts));
}

QWidget* makeBankReceipts(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(bankReceipts(), workplace, parent, std::move(printOuts));
}

QWidget* makeCashPayments(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(cashPayments(), workplace, parent, std::move(printOuts));
}

QWidget* makeBankPayments(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(bankPayments(), workplace, parent, std::move(printOuts));
}

}  // namespace velmo::vouchers
