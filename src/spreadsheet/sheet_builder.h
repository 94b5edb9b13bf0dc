#pragma once

#include "spreadsheet/read_failure.h"
#include "spreadsheet/sheet.h"
#include "spreadsheet/sheet_writer.h"

namespace velmo::spreadsheet {

// Collects the cells of a sheet and refuses what no list needs: cells outside a sheet's bounds, and files made to fill
// the memory. Every member throws ReadFailure.
class SheetBuilder {
 public:
  // The progress function, which outlives the builder, may stop the work: that ends it with a ReadFailure of no words.
  SheetBuilder(std::string name, const Progress& progress);

  // Rows and columns count from 0. Empty cells need not be put.
  void put(std::int64_t row, std::int64_t column, Cell cell);
  // The same cell in every place of a block.
  void fill(std::int64_t row, std::int64_t rows, std::int64_t column, std::int64_t columns, const Cell& cell);
  Sheet take() { return std::move(sheet_); }

 private:
  void report(std::int64_t row);

  Sheet sheet_;
  const Progress& progress_;
  std::int64_t cells_ = 0;  // kept, the empty ones before others among them
  std::int64_t bytes_ = 0;  // of texts
  std::int64_t reported_ = 0;
};

}  // namespace velmo::spreadsheet
