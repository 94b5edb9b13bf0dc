#pragma once

#include "masters/import/import_mapping.h"
#include "masters/import/import_plan.h"

namespace velmo::masters {

// One row of the file as its fields; what is wrong with it is noted on the way.
class ImportRow {
 public:
  ImportRow(const ImportDescriptor& kind, const spreadsheet::Sheet& sheet, const ImportMapping& mapping)
      : kind_(kind), sheet_(sheet), mapping_(mapping) {}

  void goTo(std::size_t row);
  bool isBlank() const;  // none of the columns that are brought in holds anything

  // The text of a field, clean. Missing and too long texts are noted.
  std::string text(const std::string& field);
  // 0 and a note when it is no number.
  double amount(const std::string& field);
  bool yes(const std::string& field);
  // The row that the field names among those of the lookup, under the parent if there is one; nothing, and a note, when
  // there is none or more than one. Without text it is nothing.
  std::optional<std::size_t> named(const std::string& field, const NameLookup& lookup,
                                   const std::string* parent = nullptr);
  // The text of a field that is looked up later; nothing is noted.
  std::string given(const std::string& field) const;

  void note(const std::string& sentence);
  // The words of the field's refusal, with what was given.
  void refuse(const std::string& field);
  const std::string& problem() const { return problem_; }
  // The value of a column that a field of the same name fills; "" for a column without a field.
  store::Value value(const std::string& column);

 private:
  const ImportField& fieldOf(const std::string& name) const;
  const spreadsheet::Cell& cellOf(const std::string& field) const;
  bool isBroken(const std::string& field);  // and noted as such

  const ImportDescriptor& kind_;
  const spreadsheet::Sheet& sheet_;
  const ImportMapping& mapping_;
  std::size_t row_ = 0;
  std::string problem_;
};

}  // namespace velmo::masters
