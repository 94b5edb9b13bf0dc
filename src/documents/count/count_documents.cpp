#include "documents/count/count_documents.h"

#include "documents/stock/stock_types.h"
#include "frame/document/compose_document.h"
#include "frame/items/line_arithmetic.h"
#include "frame/posting/document_number.h"
#include "frame/posting/item_lines.h"
#include "frame/posting/posted_accounts.h"
#include "text/decimal_sum.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

CountLine lineOf(const Goods& goods, double quantity) {
  const frame::LineAmounts amounts = frame::lineAmounts({.quantity = text::numberText(quantity),
                                                         .rate = text::numberText(goods.cost),
                                                         .discountRate = {},
                                                         .discount = "0"});
  return {.code = goods.code,
          .name = goods.name,
          .unit = goods.unit,
          .quantity = quantity,
          .rate = goods.cost,
          .amount = text::amountFrom(amounts.gross)};
}

void addLine(std::vector<CountDocument>& documents, const frame::DocumentType& type, CountLine line) {
  if (documents.empty() || documents.back().lines.size() == static_cast<std::size_t>(frame::sheetRows))
    documents.push_back({.type = &type, .lines = {}});
  CountDocument& document = documents.back();
  document.total = text::sumOf({document.total, line.amount});
  document.lines.push_back(std::move(line));
}

frame::DocumentValues valuesOf(const CountSave& save) {
  frame::DocumentValues values;
  values.TrDate = save.place.moment.date();
  values.Desc = "Count sheet of " + save.location + ", book quantity as at " +
                text::formatDate(save.place.moment, "dd-mm-yyyy hh:nn:ss");
  values.LocationList = {.text = save.location, .id = save.place.locationId, .matches = save.place.locationId != 0};
  return values;
}

store::Recordset sheetOf(store::Connection& connection, const CountDocument& document) {
  const bool added = document.type->form.tranType == schema::tran_type::InventoryAdded;
  store::Recordset sheet(connection, "Select * from stockflow where tranno = 0", store::LockType::BatchOptimistic);
  for (const CountLine& line : document.lines)
    sheet.addNew({{"itemcode", line.code},
                  {"itemname", line.name},
                  {added ? "stockin" : "stockout", line.quantity},
                  {"unit", line.unit},
                  {"rate", line.rate},
                  {"grossamt", line.amount},
                  {"discamt", 0.0},
                  {"itemvalue", line.amount}});
  return sheet;
}

store::Recordset documentsOf(session::LoginContext& context, const frame::DocumentType& type) {
  return {context.KORDconn,
          "SELECT * from transactions where trantype=" + std::to_string(type.form.tranType) +
              frame::yearCondition(type.belongsTo, context.FYID) + " order by docno",
          store::LockType::Optimistic, store::Fetch::AsNeeded};
}

std::string saveOne(session::LoginContext& context, const CountDocument& counted, const CountSave& save) {
  const frame::DocumentType& type = *counted.type;
  store::Recordset tran = documentsOf(context, type);
  store::Recordset sheet = sheetOf(context.KORDconn, counted);
  frame::DocumentValues values = valuesOf(save);
  values.DocNo = std::to_string(frame::nextDocNo(tran));
  values.totals = frame::RecalculateTotals(frame::sumLines(sheet), {.Discount = "0", .Carriage = "0", .Received = "0"},
                                           frame::ReceivedRule::AsTyped, context.currencyname);
  auto document = frame::composeDocument(type, values, context, save.now, {}, frame::HeaderWrite::Add);
  if (!document) throw store::StoreError(store::ErrorKind::Failed, document.error());
  frame::demandAccounts(context.KORDconn, *document->ledger);
  frame::writeDocumentWithin(context.KORDconn, *document, tran, sheet);
  return std::string(schema::documentKind(type.form.tranType).name) + " No. " + values.DocNo;
}

}  // namespace

std::vector<CountDocument> countDocuments(const CountSheet& sheet, NotCounted notCounted) {
  std::vector<CountDocument> added, reduced;
  for (std::size_t i = 0; i < sheet.size(); ++i) {
    const CountSheet::Line& line = sheet.line(i);
    const auto difference = CountSheet::difference(line, notCounted);
    if (!difference) continue;
    if (*difference > 0)
      addLine(added, addInventoryType(), lineOf(line.goods, *difference));
    else
      addLine(reduced, reduceInventoryType(), lineOf(line.goods, -*difference));
  }
  added.insert(added.end(), std::make_move_iterator(reduced.begin()), std::make_move_iterator(reduced.end()));
  return added;
}

std::string countRefusal(const session::LoginContext& context, const CountSave& save) {
  const frame::SaveSituation situation{
      .addMode = true, .yearStart = context.FinancialYearStart, .yearEnd = context.FinancialYearEnd};
  frame::DocumentValues values = valuesOf(save);
  values.DocNo = "1";  // any that is one: documents get the next of their kind
  for (const auto* steps : {&frame::documentSteps(), &addInventoryType().validation})
    for (const frame::ValidationStep& step : *steps)
      if (step.fails(values, situation)) return std::string(step.text);
  return {};
}

std::vector<std::string> saveCount(session::LoginContext& context, const std::vector<CountDocument>& documents,
                                   const CountSave& save) {
  std::vector<std::string> names;
  store::Connection::Transaction transaction(context.KORDconn);
  for (const CountDocument& document : documents) names.push_back(saveOne(context, document, save));
  transaction.commit();
  return names;
}

}  // namespace velmo::documents
