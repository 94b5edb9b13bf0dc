#include "vouchers/settlement/rec_pay_print.h"

#include "printing/preview_window.h"
#include "printing/recordset_data.h"
#include "vouchers/settlement/rec_pay_sheet.h"
#include "vouchers/settlement/rec_pay_statements.h"

namespace velmo::vouchers {

namespace {

RecPaySheet sheetOf(const session::LoginContext& context, const SettlementKind& kind, const store::Recordset& note,
                    text::DateTime today) {
  return {.money = kind.money,
          .letterhead = printing::letterheadOf(context),
          .currencyCode = context.ccode,
          .today = today,
          .docNo = note.text("DocNo"),
          .tranDate = note.date("TranDate"),
          .status = note.text("CStatus"),
          .party = note.text("text1"),
          .nature = note.text("Nature"),
          .means = note.text("text3"),
          .accountCaption = std::string(kind.accountCaption),
          .chequeNo = note.text("ChqNo"),
          .chequeDate = note.text("ChqDt"),
          .description = note.text("Desc"),
          .words = note.text("WordsAmount"),
          .total = note.number("tramount")};
}

}  // namespace

printing::Report recPayPrint(const session::LoginContext& context, const SettlementKind& kind, SettlementMode mode,
                             const store::Recordset& note, text::DateTime today) {
  RecPaySheet sheet = sheetOf(context, kind, note, today);
  if (note.fieldIndex("text2") >= 0) {
    sheet.account = note.text("text2");
    sheet.chequeBank = note.text("ChqBank");
  } else {
    sheet.account = note.text("ChqBank");
  }
  if (mode == SettlementMode::Petty) return recPayPettyReport(sheet, std::make_shared<printing::RecordsetData>(note));
  sheet.settlement = note.text("text8");
  sheet.received = note.number("Received");
  sheet.withheldTax = note.number("carriage");
  sheet.advanceAdjusted = note.number("additionaltax");
  sheet.discount = note.number("Discount");
  return recPayReport(sheet);
}

void showRecPay(session::Workplace& workplace, const SettlementKind& kind, SettlementMode mode, std::int64_t tranNo,
                QWidget* screen) {
  session::LoginContext& context = workplace.context;
  store::Recordset note;
  if (mode == SettlementMode::Petty)
    note.openShape(context.KORDconn, recPayPettyShape(kind, context.currencyname, tranNo));
  else
    note.open(context.KORDconn, recPayStatement(kind, context.currencyname, tranNo), store::LockType::ReadOnly);
  if (note.isEmpty()) return;
  context.PrintRS = note;
  printing::showPreview(screen, recPayPrint(context, kind, mode, note, workplace.clock.today()), workplace.files,
                        [&context] { context.PrintRS = {}; });
}

}  // namespace velmo::vouchers
