#include "frame/document/compose_document.h"

namespace velmo::frame {

namespace {

std::string fieldText(const DocumentField& field, const DocumentValues& values) {
  const std::string& text = values.field(field.name);
  return text.empty() && field.kind != FieldKind::Text ? std::string(field.initial) : text;
}

HeaderRow headerOf(const DocumentType& type, const DocumentValues& values, const session::LoginContext& context,
                   const text::DateTime& now) {
  HeaderRow row;
  for (const std::string_view number : {"DocNo", "DocNo2"}) row.set(number, store::integerOf(values.DocNo));
  row.set("TranDate", values.TrDate.date());
  row.set("Nature", values.Terms);
  row.set("EmpID", values.EmpList.id);
  for (const std::string_view job : {"JobIDFrom", "JobIDTo"}) row.set(job, values.JobList.id);
  row.set("Desc", values.Desc);
  row.set("TranType", std::int64_t{type.TranType});
  row.set("Text1", values.PartyNameTxt);
  row.set("Text2", values.PartyAddress);
  row.set("Text3", values.PartyTel);
  for (const DocumentField& field : type.fields) row.set(field.column, fieldText(field, values));
  for (const std::string_view location : {"LocationFrom", "LocationTo"}) row.set(location, values.LocationList.id);
  row.set("FYID", std::int64_t{context.FYID});
  row.set("Cancel", values.Cancel);
  row.stamp(context.UserID, now);
  if (type.header) type.header(values, context, row);
  return row;
}

}  // namespace

DocumentWrite composeHeader(const DocumentType& type, const DocumentValues& values,
                            const session::LoginContext& context, const text::DateTime& now, HeaderWrite mode) {
  return {.mode = mode,
          .header = headerOf(type, values, context, now),
          .keptColumns = type.keptColumns,
          .locationId = values.LocationList.id,
          .jobId = values.JobList.id};
}

tl::expected<DocumentWrite, std::string> composeDocument(const DocumentType& type, const DocumentValues& values,
                                                         const session::LoginContext& context,
                                                         const text::DateTime& now, const store::Recordset& sheet,
                                                         HeaderWrite mode) {
  DocumentWrite document = composeHeader(type, values, context, now, mode);
  if (type.posting) {
    const std::string narrations = lineNarrations(sheet, type.lines.quantityField, context.ccode);
    auto lines = ledgerLines(*type.posting, values, narrations);
    if (!lines) return tl::unexpected(lines.error());
    document.ledger = std::move(*lines);
  }
  if (type.aging) {
    document.agingSide = type.aging->side;
    if (!values.Cancel) document.aging = type.aging->row(values);
  }
  return document;
}

}  // namespace velmo::frame
