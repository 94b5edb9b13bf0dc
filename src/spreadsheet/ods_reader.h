#pragma once

#include "spreadsheet/archive.h"
#include "spreadsheet/sheet_builder.h"

namespace velmo::spreadsheet {

// A workbook of the kind .ods. Every function throws ReadFailure.
class OdsBook {
 public:
  explicit OdsBook(const Archive& archive);

  std::vector<std::string> sheetNames() const;
  Sheet read(std::size_t sheet, const Progress& progress) const;

 private:
  const Archive& archive_;
};

}  // namespace velmo::spreadsheet
