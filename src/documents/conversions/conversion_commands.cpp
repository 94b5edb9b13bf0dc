#include "documents/conversions/conversion_commands.h"

#include <algorithm>

#include "documents/conversions/convert_document.h"

namespace velmo::documents {

namespace {

// The screen on which the new document opens.
const schema::DocumentForm& formOf(int tranType) {
  return *std::ranges::find(schema::documentForms, tranType, &schema::DocumentForm::tranType);
}

// A paper with two marks has the one of goods before the one of the invoice.
std::string_view labelOf(const Conversion& conversion) {
  if (conversion.from == schema::tran_type::SaleInvoice || conversion.trace.column == "Text10") return "ConvLbl2";
  return conversion.trace.column == "Text9" ? "ConvLbl1" : "ConvLbl3";
}

}  // namespace

std::vector<frame::ConversionCommand> conversionCommands(int tranType) {
  std::vector<frame::ConversionCommand> commands;
  for (const Conversion& conversion : conversions())
    if (conversion.from == tranType)
      commands.push_back(
          {.name = conversion.command,
           .caption = conversion.caption,
           .target = formOf(conversion.to),
           .refusal = conversion.refusal,
           .convert = [&conversion](session::LoginContext& context, std::int64_t tranNo, const text::DateTime& now) {
             return convertDocument(context, conversion, tranNo, now);
           }});
  return commands;
}

std::vector<frame::ConversionMark> conversionMarks(int tranType) {
  std::vector<frame::ConversionMark> marks;
  for (const Conversion& conversion : conversions())
    if (conversion.from == tranType && conversion.trace.dayColumn.empty())
      marks.push_back({.column = conversion.trace.column,
                       .label = labelOf(conversion),
                       .words = conversion.trace.words,
                       .target = formOf(conversion.to)});
  std::ranges::sort(marks, {}, &frame::ConversionMark::label);
  return marks;
}

}  // namespace velmo::documents
