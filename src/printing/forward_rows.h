#pragma once

#include <functional>

#include "printing/field_places.h"
#include "printing/report_data.h"
#include "store/recordset/forward_reader.h"

namespace velmo::printing {

// The rows of a statement one after the other, each forgotten for the next: what a print-out of any length is read
// from.
class ForwardRows : public ReportRows {
 public:
  // The rows of a chapter below the parent's current one.
  using Below = std::function<std::unique_ptr<ReportRows>(const ForwardRows& parent, std::string_view member)>;

  ForwardRows(store::Connection& connection, std::string_view statement, Below below = {})
      : reader_(connection, statement), below_(std::move(below)) {}

  bool next() override { return reader_.next(); }
  store::Value value(std::string_view field) const override;
  std::unique_ptr<ReportRows> children(std::string_view member) const override;

 private:
  store::ForwardReader reader_;
  Below below_;
  mutable FieldPlaces places_;
};

}  // namespace velmo::printing
