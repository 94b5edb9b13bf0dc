#include "attack/cashier.h"

#include <unistd.h>

#include <cstdlib>

#include "documents/invoices/sale_invoice_type.h"
#include "frame/document/compose_document.h"
#include "frame/posting/document_number.h"
#include "schema/company_file.h"

namespace velmo::attack {
namespace {

constexpr int daysOfWork = 40;
const text::DateTime saleTime = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);

frame::DocumentValues invoice(std::int64_t docNo, int daysBefore, bool cancelled) {
  frame::DocumentValues values;
  values.DocNo = std::to_string(docNo);
  values.TrDate = saleTime.date().addDays(-daysBefore);
  values.Cancel = cancelled;
  values.PartyCodeTxt = "12001001";
  values.PartyNameTxt = "A customer";
  values.IncomeCode = "40001001";
  values.IncomeAcc = "Sales";
  values.LocationList = {.text = "Main", .id = 1, .matches = true};
  return values;
}

}  // namespace

Cashier::Cashier(int pipe, unsigned seed, Documents known)
    : pipe_(pipe), random_(seed), known_(std::move(known)), context_(schema::companyCatalog()) {
  context_.KORDconn.open(schema::plainConnectionString);
  context_.FYID = 1;
  context_.UserID = 1;
  context_.stocklocationid = 1;
  context_.currencyname = "Rupees";
  tran_.open(context_.KORDconn, "SELECT * from transactions where trantype=32 and fyid = 1 order by docno",
             store::LockType::Optimistic, store::Fetch::AsNeeded);
}

void Cashier::step() {
  const int choice = between(0, 9);
  if (choice < 6 || known_.empty()) return saveNew();
  if (choice < 9) return changeKnown();
  deleteKnown();
}

std::int64_t Cashier::goToKnown() {
  auto chosen = known_.begin();
  std::advance(chosen, between(0, static_cast<int>(known_.size()) - 1));
  tran_.requery();
  tran_.moveFirst();
  if (!tran_.find("docno=" + std::to_string(chosen->first))) std::abort();
  return chosen->first;
}

void Cashier::changeKnown() {
  save(goToKnown(), frame::HeaderWrite::Update);
}

void Cashier::deleteKnown() {
  const std::int64_t docNo = goToKnown();
  carryOut(docNo, {}, [this] { tran_.remove(); });
  known_.erase(docNo);
  tran_.requery();
}

void Cashier::saveNew() {
  tran_.requery();
  save(frame::nextDocNo(tran_), frame::HeaderWrite::Add);
}

void Cashier::tell(Report::Phase phase, std::int64_t docNo, const Expected& outcome) const {
  const Report report{phase, docNo, outcome};
  if (::write(pipe_, &report, sizeof report) != sizeof report) ::_exit(3);
}

void Cashier::carryOut(std::int64_t docNo, const Expected& outcome, const std::function<void()>& write) {
  tell(Report::Phase::Begun, docNo, outcome);
  try {
    write();
  } catch (const frame::DocNoTaken&) {
    tell(Report::Phase::Refused, docNo, outcome);
    throw;
  } catch (const store::StoreError& failure) {
    if (failure.kind() == store::ErrorKind::Busy) tell(Report::Phase::Refused, docNo, outcome);
    throw;
  }
  tell(Report::Phase::Done, docNo, outcome);
}

void Cashier::save(std::int64_t docNo, frame::HeaderWrite mode) {
  const Expected outcome{true, between(1, 12), 0, between(0, 9) == 0};
  const std::int64_t tranNo = mode == frame::HeaderWrite::Add ? 0 : tran_.integer("tranno");
  store::Recordset sheet;
  frame::openSheet(context_.KORDconn, sheet, tranNo);
  frame::DocumentValues values = invoice(docNo, between(0, daysOfWork), outcome.cancelled);
  Expected told = outcome;
  fillLines(sheet, outcome.lines);
  values.totals = frame::RecalculateTotals(
      frame::sumLines(sheet),
      {.Discount = "0.00", .Carriage = std::to_string(between(-3, 20)), .Received = between(0, 1) ? "1.00" : "0.00"},
      frame::ReceivedRule::AsTyped, context_.currencyname);
  told.netTotal = frame::figureOf(values.totals, frame::Figure::NetTotal);
  const std::string narrations =
      frame::lineNarrations(sheet, documents::saleInvoiceKind().lines.quantityField, context_.ccode);
  auto document = frame::composeDocument(documents::saleInvoiceType(), values, context_, saleTime, narrations, mode);
  if (!document) std::abort();
  carryOut(docNo, told, [&] { frame::writeDocument(context_.KORDconn, *document, tran_, sheet); });
  known_[docNo] = told;
}

void Cashier::fillLines(store::Recordset& sheet, std::int64_t lines) {
  for (std::int64_t row = 0; row < frame::sheetRows; ++row) {
    const bool used = row < lines;
    const double quantity = between(1, 9), rate = between(1000, 9999) / 100.0;
    if (!used && store::isNull(sheet.valueAt(row, sheet.fieldIndex("itemcode")))) break;
    sheet.moveTo(row);
    if (!used) {
      sheet.update({{"itemcode", store::Null{}}});
      continue;
    }
    sheet.update({{"itemcode", std::string("Service")},
                  {"itemname", std::string("Delivery of 'goods'")},
                  {"stockout", quantity},
                  {"rate", rate},
                  {"grossamt", quantity * rate},
                  {"discamt", 0.0},
                  {"itemvalue", quantity * rate}});
  }
}

}  // namespace velmo::attack
