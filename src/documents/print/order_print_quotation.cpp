#include "documents/print/order_prints.h"
#include "session/own_letterhead.h"

namespace velmo::documents {

const OrderPrint& quotationPrint() {
  static const OrderPrint print{
      .title = "Quotation",
      .heading = "QUOTATION",
      .number = "Quotation No.",
      .references = {{"d1dttxt", "Dated", "D1Date"}, {"partycontact", "Contact Person", "Text6"}},
      .across = {{"subjlbl", "Subject", "D1"}},
      .notes = {{"termslbl", "Terms & Conditions", "Text8"}},
      .standingTerms = PaperField{"standinglbl", "Terms & Conditions", "TermsQuote"},
      .total = "Total  ",
      .letterhead = LetterheadSetting{&session::LoginContext::qf, session::on_letterhead::quotation,
                                      &session::LoginContext::qtm}};
  return print;
}

void printQuotation(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen) {
  showOrder(quotationPrint(), workplace, onScreen, screen);
}

}  // namespace velmo::documents
