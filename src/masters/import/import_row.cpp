#include "masters/import/import_row.h"

#include <QString>

#include "masters/import/import_values.h"

namespace velmo::masters {

void ImportRow::goTo(std::size_t row) {
  row_ = row;
  problem_.clear();
}

bool ImportRow::isBlank() const {
  return std::ranges::all_of(mapping_.sources, [this](const FieldSource& source) {
    return !source.column || isEmpty(sheet_.at(row_, *source.column));
  });
}

const ImportField& ImportRow::fieldOf(const std::string& name) const {
  return kind_.fields.at(kind_.field(name).value());
}

const spreadsheet::Cell& ImportRow::cellOf(const std::string& field) const {
  static const spreadsheet::Cell none;
  const auto& column = mapping_.sources[kind_.field(field).value()].column;
  return column ? sheet_.at(row_, *column) : none;
}

bool ImportRow::isBroken(const std::string& field) {
  const auto* broken = std::get_if<spreadsheet::CellProblem>(&cellOf(field));
  if (broken) note(fieldOf(field).caption + ": " + broken->sentence);
  return broken != nullptr;
}

std::string ImportRow::given(const std::string& field) const {
  const std::string text = cleanText(textOf(cellOf(field)));
  return text.empty() ? cleanText(mapping_.sources[kind_.field(field).value()].otherwise) : text;
}

void ImportRow::note(const std::string& sentence) {
  if (!problem_.empty()) problem_ += ' ';
  problem_ += sentence;
}

void ImportRow::refuse(const std::string& field) {
  const std::string text = given(field);
  note((text.empty() ? std::string() : "\"" + text + "\": ") + fieldOf(field).refusal);
}

std::string ImportRow::text(const std::string& name) {
  constexpr double mostDigits = 1e15;  // beyond them a spreadsheet's number is rounded
  if (isBroken(name)) return {};
  const ImportField& field = fieldOf(name);
  const auto* number = std::get_if<double>(&cellOf(name));
  if (number && std::abs(*number) >= mostDigits)
    note(field.caption + ": The number has more digits than a spreadsheet keeps. Write it as text.");
  std::string text = given(name);
  if (text.empty() && field.need == ImportNeed::Required) refuse(name);
  if (QString::fromStdString(text).size() > longestImportText)
    note(field.caption + ": The text is longer than " + std::to_string(longestImportText) + " characters.");
  return text;
}

double ImportRow::amount(const std::string& name) {
  if (isBroken(name)) return 0;
  const spreadsheet::Cell& cell = cellOf(name);
  if (const auto* number = std::get_if<double>(&cell); number && *number >= 0) return *number;
  const auto number = amountFrom(given(name), isEmpty(cell) ? DecimalSign::Point : mapping_.decimalSign);
  if (!number) refuse(name);
  return number.value_or(0);
}

bool ImportRow::yes(const std::string& name) {
  if (isBroken(name)) return false;
  const std::string text = given(name);
  const auto answer = fieldOf(name).value == ImportValue::CostMethod ? costMethodFrom(text) : yesNoFrom(text);
  if (!answer) refuse(name);
  return answer.value_or(false);
}

std::optional<std::size_t> ImportRow::named(const std::string& name, const NameLookup& lookup,
                                            const std::string* parent) {
  const std::string wanted = text(name);
  if (wanted.empty()) return std::nullopt;
  const NameLookup::Answer answer = parent ? lookup.findUnder(*parent, wanted) : lookup.find(wanted);
  if (answer.outcome == NameLookup::Outcome::One) return answer.row;
  refuse(name);
  if (answer.outcome == NameLookup::Outcome::Several) note("There are several of this name; give the code.");
  return std::nullopt;
}

store::Value ImportRow::value(const std::string& column) {
  const auto at = kind_.field(column);
  if (!at) return std::string();
  switch (kind_.fields[*at].value) {
    case ImportValue::Amount:
      return amount(column);
    case ImportValue::YesNo:
    case ImportValue::CostMethod:
      return yes(column);
    default:
      return text(column);
  }
}

}  // namespace velmo::masters
