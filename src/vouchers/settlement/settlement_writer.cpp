#include "vouchers/settlement/settlement_writer.h"

#include "frame/document/compose_document.h"
#include "frame/posting/item_lines.h"
#include "frame/posting/posted_accounts.h"
#include "frame/sheets/ledger_sheet.h"
#include "text/number.h"

namespace velmo::vouchers {

namespace {

// The side of the ledger on which petty lines stand; the cash or bank account stands on the other.
std::string moneySide(const SettlementKind& kind) {
  return isReceipt(kind) ? "debit" : "credit";
}

void removeAll(store::Recordset& rows) {
  if (rows.isEmpty()) return;
  rows.moveFirst();
  while (!rows.eof()) {
    rows.remove();
    rows.moveNext();
  }
}

// Into the blank rows of a sheet, as if they were typed again: without their key and their document.
void copyRows(const store::Recordset& written, store::Recordset& sheet) {
  const std::int64_t rows = written.recordCount();
  const auto fields = static_cast<int>(written.fields().size());
  frame::fillSheet(sheet, rows);
  for (int field = 0; field < fields; ++field) {
    if (field == written.fieldIndex("Serial") || field == written.fieldIndex("TranNo")) continue;
    for (std::int64_t row = written.nextFilled(0, field); row < rows; row = written.nextFilled(row + 1, field))
      sheet.setAt(row, field, written.valueAt(row, field));
  }
}

// What `open` finds of the document, as rows of a new one.
void openAsNew(store::Recordset& sheet, std::int64_t tranNo,
               const std::function<void(store::Recordset&, std::int64_t)>& open) {
  store::Recordset written;
  open(written, tranNo);
  open(sheet, 0);
  copyRows(written, sheet);
}

}  // namespace

void openSettlement(const SettlementKind& kind, store::Connection& connection, store::Recordset& invoices,
                    std::int64_t tranNo, RowsAs rowsAs) {
  if (rowsAs == RowsAs::New)
    return openAsNew(invoices, tranNo, [&](store::Recordset& rows, std::int64_t document) {
      openSettlement(kind, connection, rows, document);
    });
  if (invoices.isOpen()) invoices.close();
  const std::string rows =
      "Select * from " + std::string(agingTable(kind)) + " where tranno = " + std::to_string(tranNo);
  invoices.open(connection, tranNo == 0 ? rows : rows + " order by serial", store::LockType::BatchOptimistic);
  frame::fillSheet(invoices, settlementRows);
}

void openPettyLines(const SettlementKind& kind, store::Connection& connection, store::Recordset& lines,
                    std::int64_t tranNo, RowsAs rowsAs) {
  if (rowsAs == RowsAs::New)
    return openAsNew(lines, tranNo, [&](store::Recordset& rows, std::int64_t document) {
      openPettyLines(kind, connection, rows, document);
    });
  frame::openLedgerSheet(connection, lines, tranNo, moneySide(kind) + " is null");
}

tl::expected<frame::DocumentWrite, std::string> composeSettlement(const frame::DocumentType& type,
                                                                  const SettlementKind& kind,
                                                                  const frame::DocumentValues& values,
                                                                  const SettlementValues& settlement,
                                                                  const session::LoginContext& context,
                                                                  const text::DateTime& now, frame::HeaderWrite mode) {
  frame::DocumentWrite document = frame::composeHeader(type, values, context, now, mode);
  writeSettlementHeader(kind, values, settlement, document.header);
  if (settlement.mode == SettlementMode::Party) {
    auto lines = settlementLines(kind, values, settlement);
    if (!lines) return tl::unexpected(lines.error());
    document.ledger = std::move(*lines);
  }
  return document;
}

void writeSettlement(const SettlementKind& kind, store::Recordset& invoices, const frame::DocumentValues& values,
                     std::int64_t tranNo, int fyid) {
  invoices.removeBlank(keyColumn(kind));
  for (; !invoices.eof(); invoices.moveNext())
    invoices.update({{"tranno", tranNo},
                     {"docno2", store::integerOf(values.DocNo)},
                     {"trandate2", values.TrDate.date()},
                     {"partycode", store::integerOf(values.PartyCodeTxt)},
                     {"trantype", std::int64_t{kind.form.tranType}},
                     {"tramount", 0.0},
                     {"return", 0.0},
                     {"fyid", std::int64_t{fyid}}});
  invoices.updateBatch();
}

void writePetty(const SettlementKind& kind, store::Connection& connection, store::Recordset& lines,
                store::Recordset& invoices, const frame::DocumentValues& values, const SettlementValues& settlement,
                std::int64_t tranNo) {
  frame::writeLedgerSheet(lines, tranNo, values.Desc);
  store::Recordset counterEntry(connection, "Select * from subtransactions where tranno = " + std::to_string(tranNo) +
                                                " and " + moneySide(kind) + " is not null order by serial");
  removeAll(counterEntry);
  counterEntry.addNew({{"tranno", tranNo},
                       {"acccode", store::integerOf(values.ACodeTxt)},
                       {"accname", values.Acc},
                       {"desc", values.Desc},
                       {moneySide(kind), text::amountFrom(settlement.TAmt)}});
  frame::demandAccounts(connection, tranNo);
  removeAll(invoices);
  invoices.updateBatch();
}

}  // namespace velmo::vouchers
