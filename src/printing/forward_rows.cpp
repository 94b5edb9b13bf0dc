#include "printing/forward_rows.h"

namespace velmo::printing {

store::Value ForwardRows::value(std::string_view field) const {
  return reader_.value(places_.of(field, [this](std::string_view name) { return reader_.field(name); }));
}

std::unique_ptr<ReportRows> ForwardRows::children(std::string_view member) const {
  if (!below_)
    throw store::StoreError(store::ErrorKind::Misuse, "The rows have no chapter '" + std::string(member) + "'.");
  return below_(*this, member);
}

}  // namespace velmo::printing
