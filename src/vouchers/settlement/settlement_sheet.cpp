#include "vouchers/settlement/settlement_sheet.h"

#include <algorithm>

#include "frame/sheets/cell_text.h"
#include "text/decimal_sum.h"
#include "text/format.h"
#include "text/number.h"
#include "vouchers/settlement/pending_items.h"

namespace velmo::vouchers {

namespace {

using namespace settlement;

constexpr double highestAmount = 99999999;
constexpr double highestRate = 100;

std::optional<double> numberIn(std::string_view text) {
  return text::numberFrom(text);
}

bool isAmount(std::string_view typed) {
  const auto number = numberIn(typed);
  return number && *number <= highestAmount;
}

std::vector<frame::SheetColumn> columnsOf(const SettlementKind& kind) {
  using enum frame::CellKind;
  using enum frame::CellUse;
  const auto figure = [&](Column column, int width, frame::CellUse use = Typed) {
    return frame::SheetColumn{SettlementSheet::caption(kind, column), width, Figure, use};
  };
  return {{SettlementSheet::caption(kind, Invoice), 0},
          {SettlementSheet::caption(kind, Date), 10, Text, Locked},
          figure(Payment, 11, Locked),
          figure(WHTaxRt, 7),
          figure(WHTax, 9),
          figure(AdvAdj, 9),
          figure(Discount, 9),
          figure(TotPayment, 11)};
}

}  // namespace

SettlementSheet::SettlementSheet(const SettlementKind& kind, session::Workplace& workplace)
    : kind_(kind), workplace_(workplace), columns_(columnsOf(kind)) {}

std::string SettlementSheet::caption(const SettlementKind& kind, Column column) {
  switch (column) {
    case Invoice:
      return "Invoice No.";
    case Date:
      return "Invoice Date";
    case Payment:
      return std::string(kind.paymentCaption);
    case WHTaxRt:
      return "W.H.T. Rate %";
    case WHTax:
      return "W.H.T. Amount";
    case AdvAdj:
      return "Advance Adjusted";
    case Discount:
      return std::string(kind.discountCaption);
    case TotPayment:
      return std::string(kind.totalCaption);
  }
  return {};
}

void SettlementSheet::bind(store::Recordset invoices) {
  const std::array<std::string_view, settlement::columnCount> names = {
      keyColumn(kind_), "TranDate", "Payment", "WHTaxRt", "WHTax", "AdvAdj", "Discount", "TotPayment"};
  std::ranges::transform(names, fields_.begin(), [&](std::string_view name) { return invoices.fieldIndex(name); });
  partyField_ = invoices.fieldIndex("partycode");
  docNoField_ = invoices.fieldIndex("DocNo");
  invoices_ = std::move(invoices);
  bound_ = true;
  for (int row = 0; row < rowCount(); ++row)
    if (hasInvoice(row)) roundStored(row);
}

void SettlementSheet::detach() {
  invoices_ = store::Recordset();
  bound_ = false;
}

int SettlementSheet::rowCount() const {
  return bound_ ? static_cast<int>(invoices_.recordCount()) : 0;
}

store::Value SettlementSheet::valueAt(int row, int column) const {
  return invoices_.valueAt(row, field(column));
}

std::string SettlementSheet::plainText(int row, int column) const {
  return store::textOf(valueAt(row, column));
}

double SettlementSheet::numberAt(int row, int column) const {
  return store::numberOf(valueAt(row, column));
}

bool SettlementSheet::hasInvoice(int row) const {
  return !plainText(row, Invoice).empty();
}

std::string SettlementSheet::shownText(int row, int column) const {
  const store::Value value = valueAt(row, column);
  if (store::isNull(value) || column == Invoice) return store::textOf(value);
  if (column == Date) return text::formatDate(std::get<text::DateTime>(value), "dd-MM-yyyy");
  return frame::shownFigure(value);
}

std::string SettlementSheet::editText(int row, int column) const {
  if (column == Invoice || column == Date) return plainText(row, column);
  return frame::editFigure(valueAt(row, column));
}

bool SettlementSheet::mayEdit(int row, int column) {
  if (column == Invoice) return true;
  if (column == Date) return false;
  if (column == Payment) {
    workplace_.prompts.tell("Cannot Modify", kind_.paymentLocked);
    return false;
  }
  if (hasInvoice(row)) return true;
  const std::string_view refusal = column == WHTaxRt    ? "Select invoice no. before entering with-holding tax rate."
                                   : column == WHTax    ? "Select invoice no. before entering with-holding tax amount."
                                   : column == AdvAdj   ? kind_.advanceRefusal
                                   : column == Discount ? kind_.discountRefusal
                                                        : kind_.totalRefusal;
  workplace_.prompts.tell("Select Invoice", refusal);
  return false;
}

bool SettlementSheet::accepts(int row, int column, std::string_view typed) const {
  switch (column) {
    case WHTaxRt:
      return typed.empty() || (numberIn(typed) && *numberIn(typed) <= highestRate);
    case WHTax:
      // On receipts it is the discount beside the tax that is held against the highest amount.
      return isReceipt(kind_) ? numberIn(typed) && numberAt(row, Discount) <= highestAmount : isAmount(typed);
    case AdvAdj:
    case Discount:
    case TotPayment:
      return isAmount(typed);
    default:
      return false;
  }
}

bool SettlementSheet::enter(int row, int column, std::string_view typed) {
  const std::string text = frame::withoutNul(typed);
  try {
    if (column == Invoice) return enterInvoice(row, text);
    if (!hasInvoice(row) || !accepts(row, column, text)) return false;
    const store::Value figure = frame::figureOrNull(text);
    write(row, column, column == WHTaxRt ? figure : frame::moneyOf(figure));
    if (column == WHTaxRt || column == TotPayment) deriveTax(row);
    RecalculateSettlementRow(row);
  } catch (const store::StoreError& error) {
    workplace_.prompts.tell("Cannot Save", error.what());
    return false;
  }
  return true;
}

bool SettlementSheet::enterInvoice(int row, std::string_view typed) {
  if (typed.empty() || !pending_.isOpen() || pending_.isEmpty()) return false;
  std::string criterion;
  if (isReceipt(kind_)) {
    const std::optional<double> docNo = numberIn(typed);
    if (!docNo) return false;
    criterion = "docno = " + text::numberText(*docNo);
  } else {
    criterion = "vendorinvno like " + store::quoted(typed);  // wildcards find the first bill that is like it
  }
  pending_.moveFirst();
  if (!pending_.find(criterion)) return false;
  chooseItem(row, pendingItem(kind_, pending_));
  return true;
}

void SettlementSheet::chooseItem(int row, const PendingItem& item) {
  if (isReceipt(kind_)) {
    write(row, Invoice, item.docNo);
  } else {
    write(row, Invoice, item.key.empty() ? store::Value(store::Null{}) : store::Value(item.key));
    invoices_.setAt(row, docNoField_, item.docNo);
  }
  write(row, Date, item.tranDate);
  for (const Column none : {WHTax, AdvAdj, Discount}) write(row, none, 0.0);
  write(row, TotPayment, frame::moneyOf(item.balance));
  invoices_.setAt(row, partyField_, item.partyCode);
  RecalculateSettlementRow(row);
}

// To whole units, halves to the even neighbour, as the tax is withheld.
void SettlementSheet::deriveTax(int row) {
  const std::optional<double> rate = numberIn(plainText(row, WHTaxRt));
  if (rate) write(row, WHTax, text::roundHalfEven(numberAt(row, TotPayment) * *rate / 100));
}

void SettlementSheet::RecalculateSettlementRow(int row) {
  write(row, Payment,
        frame::moneyOf(text::sumOf(
            {numberAt(row, TotPayment), -numberAt(row, WHTax), -numberAt(row, AdvAdj), -numberAt(row, Discount)})));
}

// Another program may have written finer amounts into the file.
void SettlementSheet::roundStored(int row) {
  bool finer = false;
  for (const Column column : {Payment, WHTax, AdvAdj, Discount, TotPayment}) {
    const store::Value stored = valueAt(row, column);
    const store::Value money = frame::moneyOf(stored);
    finer = finer || money != stored;
    write(row, column, money);
  }
  if (finer) RecalculateSettlementRow(row);
}

void SettlementSheet::write(int row, int column, const store::Value& value) {
  if (valueAt(row, column) != value) invoices_.setAt(row, field(column), value);
}

void SettlementSheet::removeRow(int row) {
  invoices_.moveTo(row);
  invoices_.remove();
  invoices_.addNew();
  invoices_.update();
}

SettlementSums SettlementSheet::sums() const {
  const auto sumOf = [this](Column column) {
    text::DecimalSum sum;
    for (int row = 0; row < rowCount(); ++row) sum += numberAt(row, column);
    return sum.value();
  };
  return {.payment = sumOf(Payment),
          .whTax = sumOf(WHTax),
          .advAdj = sumOf(AdvAdj),
          .discount = sumOf(Discount),
          .totPayment = sumOf(TotPayment)};
}

std::string SettlementSheet::invoiceList() const {
  std::string list;
  for (int row = 0; row < rowCount(); ++row)
    if (hasInvoice(row)) list += plainText(row, Invoice) + ", ";
  return list;
}

std::optional<int> SettlementSheet::foreignRow(std::int64_t partyCode) const {
  for (int row = rowCount() - 1; row >= 0; --row)
    if (hasInvoice(row) && store::integerOf(invoices_.valueAt(row, partyField_)) != partyCode) return row;
  return std::nullopt;
}

}  // namespace velmo::vouchers
