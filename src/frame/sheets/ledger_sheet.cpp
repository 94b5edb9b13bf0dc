#include "frame/sheets/ledger_sheet.h"

#include <algorithm>
#include <cmath>

#include "frame/picking/account.h"
#include "frame/posting/item_lines.h"
#include "frame/sheets/cell_text.h"
#include "text/decimal_sum.h"
#include "text/number.h"

namespace velmo::frame {
namespace {

constexpr std::size_t amountLimit = 15;  // characters; itself refused

constexpr int at(LedgerColumn column) {
  return static_cast<int>(column);
}

bool isAmount(int column) {
  return column >= at(LedgerColumn::Amount);
}

SheetColumn amountColumn(std::string caption) {
  return {.caption = std::move(caption), .width = 14, .kind = CellKind::Figure};
}

}  // namespace

LedgerSheet::LedgerSheet(LedgerSides sides, session::Workplace& workplace)
    : workplace_(workplace),
      columns_{{.caption = "Account Code", .width = 12},
               {.caption = "Account Name", .width = 28, .use = CellUse::Result},
               {.caption = "Description"}},
      names_{"AccCode", "AccName", "Desc"} {
  if (sides == LedgerSides::Both) {
    columns_.insert(columns_.end(), {amountColumn("Debit"), amountColumn("Credit")});
    names_.insert(names_.end(), {"Debit", "Credit"});
  } else {
    columns_.push_back(amountColumn("Amount"));
    names_.push_back(sides == LedgerSides::Debit ? "Debit" : "Credit");
  }
}

void LedgerSheet::bind(store::Recordset lines) {
  fields_.clear();
  for (const std::string_view name : names_) {
    fields_.push_back(lines.fieldIndex(name));
    if (fields_.back() < 0) {
      throw store::StoreError(store::ErrorKind::Misuse, "The ledger lines have no column " + std::string(name) + ".");
    }
  }
  lines_ = std::move(lines);
  bound_ = true;
  if (!isOneSided()) return;
  const int amount = fields_.back();
  for (std::int64_t row = lines_.nextFilled(0, amount); row < rowCount(); row = lines_.nextFilled(row + 1, amount))
    write(static_cast<int>(row), at(LedgerColumn::Amount), moneyOf(lines_.valueAt(row, amount)));
}

void LedgerSheet::detach() {
  lines_ = store::Recordset();
  bound_ = false;
}

int LedgerSheet::rowCount() const {
  return bound_ ? static_cast<int>(lines_.recordCount()) : 0;
}

store::Value LedgerSheet::valueAt(int row, int column) const {
  return lines_.valueAt(row, fields_[static_cast<std::size_t>(column)]);
}

std::string LedgerSheet::plainText(int row, int column) const {
  return store::textOf(valueAt(row, column));
}

std::string LedgerSheet::shownText(int row, int column) const {
  return isAmount(column) ? shownFigure(valueAt(row, column)) : plainText(row, column);
}

std::string LedgerSheet::editText(int row, int column) const {
  return isAmount(column) ? editFigure(valueAt(row, column)) : plainText(row, column);
}

int LedgerSheet::otherSide(int column) const {
  if (!isAmount(column) || static_cast<int>(columns_.size()) <= at(LedgerColumn::Credit)) return -1;
  return column == at(LedgerColumn::Amount) ? at(LedgerColumn::Credit) : at(LedgerColumn::Amount);
}

bool LedgerSheet::refuse(std::string_view what) {
  workplace_.prompts.tell("Select Account", "Select account before entering " + std::string(what) + ".");
  return false;
}

bool LedgerSheet::mayEdit(int row, int column) {
  if (column == at(LedgerColumn::AccCode)) return true;
  if (column == at(LedgerColumn::AccName)) return false;
  if (isEmpty(row, at(LedgerColumn::AccCode)))
    return refuse(column == at(LedgerColumn::Desc) ? "description" : "amount");
  const int other = otherSide(column);
  return other < 0 || isEmpty(row, other);
}

bool LedgerSheet::enter(int row, int column, std::string_view typed) {
  const std::string text = withoutNul(typed);
  try {
    if (column == at(LedgerColumn::AccCode)) return enterAccount(row, text);
    if (column == at(LedgerColumn::AccName) || isEmpty(row, at(LedgerColumn::AccCode))) return false;
    if (isAmount(column)) return enterAmount(row, column, text);
    write(row, column, textOrNull(text));
  } catch (const store::StoreError& error) {
    workplace_.prompts.tell("Cannot Save", error.what());
    return false;
  }
  return true;
}

// A line without an account is dropped by the save: its amount would be in the totals but not in the books.
bool LedgerSheet::enterAccount(int row, std::string_view typed) {
  const auto hasAmount = [&] {
    for (int column = at(LedgerColumn::Amount); column < static_cast<int>(columns_.size()); ++column)
      if (!isEmpty(row, column)) return true;
    return false;
  };
  if (typed.empty()) {
    if (hasAmount()) return false;
    write(row, at(LedgerColumn::AccCode), store::Null{});
    write(row, at(LedgerColumn::AccName), store::Null{});
    return true;
  }
  const std::optional<Account> account = findAccount(workplace_.context.AccountsRS, typed);
  if (!account) return false;
  write(row, at(LedgerColumn::AccCode), account->code);
  write(row, at(LedgerColumn::AccName), textOrNull(account->name));
  return true;
}

bool LedgerSheet::enterAmount(int row, int column, std::string_view typed) {
  const int other = otherSide(column);
  if (other >= 0 && !isEmpty(row, other)) return false;
  if (typed.empty()) {
    write(row, column, store::Null{});
    return true;
  }
  const std::optional<double> amount = text::numberFrom(typed);
  if (!amount || typed.size() >= amountLimit) return false;
  const LedgerSums sums = this->sums();
  const double before = store::numberOf(valueAt(row, column));
  // "1e308" is a number of five characters.
  if (!std::isfinite(std::fabs(sums.debit) + std::fabs(sums.credit) + std::fabs(before) + std::fabs(*amount)))
    return false;
  write(row, column, isOneSided() ? moneyOf(*amount) : *amount);
  return true;
}

void LedgerSheet::write(int row, int column, const store::Value& value) {
  if (valueAt(row, column) != value) lines_.setAt(row, fields_[static_cast<std::size_t>(column)], value);
}

void LedgerSheet::removeRow(int row) {
  lines_.moveTo(row);
  lines_.remove();
  lines_.addNew();
  lines_.update();
  lines_.moveTo(std::min<std::int64_t>(row, lines_.recordCount() - 1));
}

LedgerSums LedgerSheet::sums() const {
  text::DecimalSum debits, credits;
  const int count = rowCount();
  for (int column = at(LedgerColumn::Amount); column < static_cast<int>(columns_.size()); ++column) {
    const int field = fields_[static_cast<std::size_t>(column)];
    text::DecimalSum& sum = names_[static_cast<std::size_t>(column)] == "Debit" ? debits : credits;
    for (std::int64_t row = lines_.nextFilled(0, field); row < count; row = lines_.nextFilled(row + 1, field))
      sum += store::numberOf(lines_.valueAt(row, field));
  }
  return {.debit = debits.value(), .credit = credits.value()};
}

void openLedgerSheet(store::Connection& connection, store::Recordset& lines, std::int64_t tranNo,
                     std::string_view condition) {
  if (lines.isOpen()) lines.close();
  std::string statement = "Select * from subtransactions where tranno = " + std::to_string(tranNo);
  if (tranNo != 0) {
    if (!condition.empty()) statement += " and " + std::string(condition);
    statement += " order by serial";
  }
  lines.open(connection, statement, store::LockType::BatchOptimistic);
  fillSheet(lines);
}

void writeLedgerSheet(store::Recordset& lines, std::int64_t tranNo, std::string_view desc) {
  lines.removeBlank("acccode");
  for (; !lines.eof(); lines.moveNext()) {
    lines.update({{"tranno", tranNo}});
    if (store::isNull(lines.value("desc"))) lines.update({{"desc", textOrNull(std::string(desc))}});
  }
  lines.updateBatch();
}

}  // namespace velmo::frame
