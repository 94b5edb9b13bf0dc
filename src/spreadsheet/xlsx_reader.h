#pragma once

#include "spreadsheet/archive.h"
#include "spreadsheet/sheet_builder.h"

namespace velmo::spreadsheet {

// A workbook of the kind .xlsx. Every function throws ReadFailure.
class XlsxBook {
 public:
  explicit XlsxBook(const Archive& archive);

  std::vector<std::string> sheetNames() const;  // of those that are shown
  Sheet read(std::size_t sheet, const Progress& progress) const;

 private:
  struct Listed {
    std::string name;
    std::string relation;
    bool hidden = false;
  };
  // What one part leads to: the kinds are the last words of the types' addresses, "worksheet", "styles".
  struct Target {
    QString kind;
    std::string part;
  };
  std::map<std::string, Target> relationsOf(const std::string& part) const;
  std::string partOfKind(QStringView kind) const;  // "" when there is none
  void readWorkbook(const std::string& part);

  const Archive& archive_;
  std::vector<Listed> sheets_;
  std::map<std::string, Target> relations_;
  bool since1904_ = false;
};

}  // namespace velmo::spreadsheet
