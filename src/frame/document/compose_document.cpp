#include "frame/document/compose_document.h"

#include "session/stock_movement.h"

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
  row.set("JobIDFrom", values.JobList.id);
  row.set("JobIDTo", type.jobChoice == JobChoice::FromAndTo ? values.JobListTo.id : values.JobList.id);
  row.set("Desc", values.Desc);
  row.set("TranType", std::int64_t{type.form.tranType});
  row.set("Text1", values.PartyNameTxt);
  row.set("Text2", values.PartyAddress);
  row.set("Text3", values.PartyTel);
  for (const DocumentField& field : type.fields) row.set(field.column, fieldText(field, values));
  row.set("LocationFrom", values.LocationList.id);
  row.set("LocationTo",
          type.locationChoice == LocationChoice::FromAndTo ? values.LocationListTo.id : values.LocationList.id);
  row.set("FYID", std::int64_t{context.FYID});
  row.set("Cancel", values.Cancel);
  row.set("InvLedger", session::leavesStock(type.form.tranType, context));
  row.stamp(context.UserID, now);
  if (type.header) type.header(values, context, row);
  return row;
}

}  // namespace

DocumentWrite composeHeader(const DocumentType& type, const DocumentValues& values,
                            const session::LoginContext& context, const text::DateTime& now, HeaderWrite mode) {
  DocumentWrite document{.mode = mode,
                         .header = headerOf(type, values, context, now),
                         .belongsTo = type.belongsTo,
                         .locationId = values.LocationList.id,
                         .jobId = values.JobList.id};
  for (const ConversionMark& mark : type.marks) document.keptColumns.push_back(mark.column);
  return document;
}

tl::expected<DocumentWrite, std::string> composeDocument(const DocumentType& type, const DocumentValues& values,
                                                         const session::LoginContext& context,
                                                         const text::DateTime& now, std::string_view lineNarrations,
                                                         HeaderWrite mode) {
  DocumentWrite document = composeHeader(type, values, context, now, mode);
  if (type.posting) {
    auto lines = ledgerLines(*type.posting, values, lineNarrations);
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
