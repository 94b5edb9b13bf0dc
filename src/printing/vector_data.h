#pragma once

#include <map>
#include <string>
#include <vector>

#include "printing/report_data.h"

namespace velmo::printing {

// Rows that a program builds itself instead of reading them from a recordset.
struct DataRow {
  std::map<std::string, store::Value, std::less<>> fields = {};
  std::map<std::string, std::vector<DataRow>, std::less<>> chapters = {};
};

class VectorData : public ReportData {
 public:
  VectorData() = default;
  explicit VectorData(std::vector<DataRow> rows) : rows_(std::move(rows)) {}
  std::unique_ptr<ReportRows> rows() const override;

 private:
  std::vector<DataRow> rows_ = {};
};

}  // namespace velmo::printing
