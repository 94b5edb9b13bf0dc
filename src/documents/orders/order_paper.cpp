#include "documents/orders/order_paper.h"

#include "documents/conversions/conversion_commands.h"
#include "documents/trade/trade_body.h"
#include "documents/trade/trade_rules.h"
#include "store/values/value.h"

namespace velmo::documents {

namespace {

void header(const frame::DocumentValues& values, const session::LoginContext&, frame::HeaderRow& row) {
  const std::int64_t party = store::integerOf(values.PartyCodeTxt);
  for (const std::string_view account : {"PartyCode", "PartyCode2"}) row.set(account, party);
  const double total = figureOf(values.totals, frame::Figure::TExc);
  row.set("TrAmount", total);
  row.set("WordsAmt", frame::amountInWordsOnly(total));
}

}  // namespace

frame::DocumentType orderPaper(std::string_view screen, std::string_view title, TradeKind kind) {
  const schema::DocumentForm& form = schema::documentForm(screen);
  kind.figures = TradeFigures::OfLinesOnly;
  return {.form = form,
          .title = title,
          .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
          .find = {},
          .makeBody = tradeBody(std::move(kind)),
          .printCommands = frame::PrintCommands::DocumentOnly,
          .header = header,
          .conversions = conversionCommands(form.tranType),
          .marks = conversionMarks(form.tranType)};
}

TradeKind salePaper(frame::ItemGridKind lines) {
  TradeKind kind{.party = customers(), .lines = std::move(lines)};
  kind.party.cashCode.reset();
  return kind;
}

TradeKind purchasePaper(frame::ItemGridKind lines) {
  return {.party = vendors(), .lines = std::move(lines)};
}

}  // namespace velmo::documents
