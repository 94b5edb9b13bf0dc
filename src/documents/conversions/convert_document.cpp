#include "documents/conversions/convert_document.h"

#include "frame/posting/day_text.h"
#include "frame/posting/document_number.h"
#include "frame/posting/document_totals.h"
#include "frame/posting/document_writer.h"
#include "frame/posting/posted_accounts.h"
#include "session/stock_movement.h"
#include "store/recordset/add_row.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

// A document and its lines as they stand in the store.
struct Saved {
  store::Recordset document;
  store::Recordset lines;
};

Saved readSaved(store::Connection& connection, const Conversion& conversion, std::int64_t tranNo) {
  const std::string key = std::to_string(tranNo);
  Saved saved{
      .document =
          store::Recordset(connection, "Select * from transactions where tranno = " + key, store::LockType::ReadOnly),
      .lines = store::Recordset(connection, "Select * from stockflow where tranno = " + key + " order by serial",
                                store::LockType::ReadOnly)};
  if (saved.document.isEmpty())
    throw store::StoreError(store::ErrorKind::Conflict,
                            "This document is not there any more: it was deleted in another window. Nothing was made "
                            "from it.");
  if (saved.document.yes("Cancel"))
    throw store::StoreError(store::ErrorKind::Conflict, std::string(conversion.refusal));
  return saved;
}

std::int64_t nextNumber(store::Connection& connection, int tranType, int fyid) {
  store::Recordset tran(connection,
                        "Select docno from transactions where fyid = " + std::to_string(fyid) +
                            " and trantype=" + std::to_string(tranType) + " order by docno",
                        store::LockType::ReadOnly, store::Fetch::AsNeeded);
  return frame::nextDocNo(tran);
}

std::string filled(const store::Recordset& document, std::string_view from, const text::DateTime& now) {
  if (from == presentTime) return store::textOf(text::DateTime{0, now.second});
  const store::Value value = document.value(from);
  const auto* day = std::get_if<text::DateTime>(&value);
  return day ? frame::dayText(*day) : store::textOf(value);
}

// As a screen without amounts below the lines shows it.
double netOfLines(const store::Recordset& lines) {
  const frame::DocumentTotals totals =
      frame::RecalculateTotals(frame::sumLines(lines), {}, frame::ReceivedRule::AsTyped, {});
  return text::amountFrom(totals.TExc);
}

frame::HeaderRow headerOf(const Conversion& conversion, const store::Recordset& document, double net,
                          const session::LoginContext& context, const text::DateTime& now) {
  const auto total = [&](TotalOf which) { return which == TotalOf::Lines ? net : document.number("TrAmount"); };
  const std::int64_t party = document.integer("PartyCode2");
  frame::HeaderRow row;
  row.set("TranDate", now.date());
  row.set("TranType", std::int64_t{conversion.to});
  for (const std::string_view same : {"Nature", "Desc", "Text1", "Text2", "Text3"}) row.set(same, document.text(same));
  for (const std::string_view same : {"EmpID", "JobIDFrom", "JobIDTo", "LocationFrom", "LocationTo"})
    row.set(same, document.integer(same));
  for (const FilledColumn& column : conversion.columns) row.set(column.column, filled(document, column.from, now));
  row.set("PartyCode", conversion.posting ? conversion.posting->head.code : party);
  row.set("PartyCode2", party);
  row.set("TrAmount", total(conversion.total));
  row.set("Balance", net);
  row.set("WordsAmt", frame::amountInWordsOnly(total(conversion.words)));
  row.set("FYID", std::int64_t{context.FYID});
  row.set("InvLedger", session::leavesStock(conversion.to, context));
  row.stamp(context.UserID, now);
  return row;
}

std::vector<frame::LedgerLine> ledgerOf(const ConvertedPosting& posting, const store::Recordset& document, double net) {
  const std::string party = document.text("Text1");
  const bool debited = posting.party == PartySide::Debited;
  const auto line = [net](std::int64_t account, std::string_view name, const std::string& desc, bool isDebit) {
    return frame::LedgerLine{.accCode = account,
                             .accName = std::string(name),
                             .desc = desc,
                             .debit = isDebit ? std::optional(net) : std::nullopt,
                             .credit = isDebit ? std::nullopt : std::optional(net)};
  };
  const frame::LedgerLine ofParty = line(document.integer("PartyCode2"), party, {}, debited);
  const frame::LedgerLine ofHead = line(posting.head.code, posting.head.name, party + " - ", !debited);
  return debited ? std::vector{ofParty, ofHead} : std::vector{ofHead, ofParty};
}

frame::AgingRow openItemOf(const ConvertedPosting& posting, const store::Recordset& document, double net,
                           std::int64_t number, const text::DateTime& today) {
  frame::AgingRow row{.docNo = number,
                      .docNo2 = number,
                      .tranDate = today,
                      .tranDate2 = today,
                      .partyCode = document.integer("PartyCode2"),
                      .trAmount = net};
  if (posting.openItem == frame::AgingSide::Payable) row.vendorInvNo = "";
  return row;
}

frame::DocumentWrite compose(const Conversion& conversion, const Saved& saved, const session::LoginContext& context,
                             std::int64_t number, const text::DateTime& now) {
  const double net = netOfLines(saved.lines);
  frame::DocumentWrite document{.header = headerOf(conversion, saved.document, net, context, now)};
  for (const std::string_view column : {"DocNo", "DocNo2"}) document.header.set(column, number);
  if (!conversion.posting) return document;
  document.ledger = ledgerOf(*conversion.posting, saved.document, net);
  document.agingSide = conversion.posting->openItem;
  document.aging = openItemOf(*conversion.posting, saved.document, net, number, now.date());
  return document;
}

// The packing of a line is not carried over.
void copyLines(store::Connection& connection, const Conversion& conversion, const Saved& saved, std::int64_t tranNo,
               std::int64_t locationId) {
  const std::string_view copied[] = {"Serial",   "ItemCode",          "ItemName", "ProductSerials", "Packs",
                                     "PackPcs",  conversion.quantity, "Unit",     "Rate",           "GrossAmt",
                                     "DiscRate", "DiscAmt",           "ItemValue"};
  store::Recordset lines = saved.lines;
  for (; !lines.eof(); lines.moveNext()) {
    if (store::isBlank(lines.value("ItemCode"))) continue;
    std::vector<store::FieldValue> fields{{"TranNo", tranNo}};
    for (const std::string_view column : copied) fields.push_back({column, lines.value(column)});
    fields.push_back({"LocationID", locationId});
    fields.push_back({"JobID", saved.document.integer("JobIDFrom")});
    store::addRow(connection, "stockflow", fields);
  }
}

void note(store::Connection& connection, const ConversionTrace& trace, std::int64_t tranNo, std::int64_t number,
          const text::DateTime& today) {
  std::string columns =
      std::string(trace.column) + " = " + store::quoted(std::string(trace.words) + std::to_string(number));
  if (!trace.dayColumn.empty())
    columns += ", " + std::string(trace.dayColumn) + " = " + store::quoted(frame::dayText(today));
  connection.execute("update transactions set " + columns + " where tranno = " + std::to_string(tranNo));
}

}  // namespace

std::int64_t convertDocument(session::LoginContext& context, const Conversion& conversion, std::int64_t tranNo,
                             const text::DateTime& now) {
  store::Connection& connection = context.KORDconn;
  store::Connection::Transaction transaction(connection);
  const Saved saved = readSaved(connection, conversion, tranNo);
  const std::int64_t number = nextNumber(connection, conversion.to, context.FYID);
  const frame::DocumentWrite document = compose(conversion, saved, context, number, now);
  if (document.ledger) demandAccounts(connection, *document.ledger);
  store::Recordset tran(connection, "Select * from transactions where tranno = 0");
  const std::int64_t made = frame::writeDocumentWithin(connection, document, tran, [&](std::int64_t madeTranNo) {
    copyLines(connection, conversion, saved, madeTranNo, context.stocklocationid);
  });
  note(connection, conversion.trace, tranNo, number, now.date());
  transaction.commit();
  return made;
}

}  // namespace velmo::documents
