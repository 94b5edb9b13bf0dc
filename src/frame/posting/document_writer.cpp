#include "frame/posting/document_writer.h"

#include "store/recordset/add_row.h"

namespace velmo::frame {

namespace {

// A document keeps the number that it has, whoever else has it in an old file.
void demandFreeNumber(store::Connection& connection, const DocumentWrite& document, const store::Recordset& tran) {
  const auto column = [&](std::string_view name) { return store::integerOf(document.header.value(name)); };
  const DocumentNumber number{.DocNo = column("DocNo"),
                              .TranType = column("TranType"),
                              .FYID = column("FYID"),
                              .belongsTo = document.belongsTo};
  if (document.mode == HeaderWrite::Update && tran.integer("docno") == number.DocNo) return;
  if (isTaken(connection, number)) throw DocNoTaken();
}

std::int64_t writeHeader(const DocumentWrite& document, store::Recordset& tran) {
  if (document.mode == HeaderWrite::Add) {
    tran.addNew(document.header.all());
  } else {
    std::vector<std::string_view> kept(document.keptColumns.begin(), document.keptColumns.end());
    kept.insert(kept.end(), {"UserAdded", "TimeAdded"});
    tran.update(document.header.without(kept));
  }
  return tran.integer("tranno");
}

// A new document has none.
void removeRows(store::Connection& connection, const char* table, std::int64_t tranNo, HeaderWrite mode) {
  if (mode == HeaderWrite::Add) return;
  connection.execute(std::string("delete from ") + table + " where tranno=" + std::to_string(tranNo));
}

store::Value amountOrNull(const std::optional<double>& amount) {
  return amount ? store::Value(*amount) : store::Value(store::Null{});
}

void writeLedger(store::Connection& connection, std::int64_t tranNo, const DocumentWrite& document) {
  removeRows(connection, "subtransactions", tranNo, document.mode);
  for (const LedgerLine& line : *document.ledger)
    store::addRow(connection, "subtransactions",
                  {{"tranno", tranNo},
                   {"acccode", line.accCode},
                   {"accname", line.accName},
                   {"desc", line.desc},
                   {"debit", amountOrNull(line.debit)},
                   {"credit", amountOrNull(line.credit)}});
}

void writeAging(store::Connection& connection, std::int64_t tranNo, const DocumentWrite& document) {
  const char* const table = document.agingSide == AgingSide::Receivable ? "agingdr" : "agingcr";
  removeRows(connection, table, tranNo, document.mode);
  if (!document.aging) return;
  const AgingRow& row = *document.aging;
  std::vector<store::FieldValue> fields{{"tranno", tranNo},
                                        {"docno", row.docNo},
                                        {"docno2", row.docNo2},
                                        {"trandate", row.tranDate},
                                        {"trandate2", row.tranDate2},
                                        {"partycode", row.partyCode},
                                        {"trantype", document.header.value("TranType")},
                                        {"tramount", row.trAmount},
                                        {"return", row.returned},
                                        {"payment", row.payment},
                                        {"whtaxrt", 0.0},
                                        {"whtax", 0.0},
                                        {"discount", 0.0},
                                        {"AdvAdj", 0.0},
                                        {"totpayment", row.totPayment},
                                        {"fyid", document.header.value("FYID")}};
  if (row.vendorInvNo) fields.push_back({"vendorInvNo", *row.vendorInvNo});
  store::addRow(connection, table, fields);
}

std::function<void(std::int64_t tranNo)> lineWriter(const DocumentWrite& document, store::Recordset& sheet) {
  return [&](std::int64_t tranNo) {
    writeLines(sheet, {.tranNo = tranNo, .locationId = document.locationId, .jobId = document.jobId});
  };
}

}  // namespace

std::int64_t writeDocumentWithin(store::Connection& connection, const DocumentWrite& document, store::Recordset& tran,
                                 const std::function<void(std::int64_t tranNo)>& writeRows) {
  if (document.demand) document.demand();
  demandFreeNumber(connection, document, tran);
  const std::int64_t tranNo = writeHeader(document, tran);
  writeRows(tranNo);
  if (document.ledger) writeLedger(connection, tranNo, document);
  if (document.agingSide) writeAging(connection, tranNo, document);
  return tranNo;
}

std::int64_t writeDocument(store::Connection& connection, const DocumentWrite& document, store::Recordset& tran,
                           const std::function<void(std::int64_t tranNo)>& writeRows) {
  store::Connection::Transaction transaction(connection);
  const std::int64_t tranNo = writeDocumentWithin(connection, document, tran, writeRows);
  transaction.commit();
  return tranNo;
}

std::int64_t writeDocument(store::Connection& connection, const DocumentWrite& document, store::Recordset& tran,
                           store::Recordset& sheet) {
  return writeDocument(connection, document, tran, lineWriter(document, sheet));
}

std::int64_t writeDocumentWithin(store::Connection& connection, const DocumentWrite& document, store::Recordset& tran,
                                 store::Recordset& sheet) {
  return writeDocumentWithin(connection, document, tran, lineWriter(document, sheet));
}

}  // namespace velmo::frame
