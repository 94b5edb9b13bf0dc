#include "documents/print/line_columns.h"

namespace velmo::documents {

using namespace printing;

Column figureColumn(const std::string& heading, const std::string& dataField, Twips width, const std::string& format,
                    const std::string& totalName) {
  return {.heading = heading,
          .dataField = dataField,
          .width = width,
          .align = Align::Right,
          .format = format,
          .totalName = totalName};
}

Column numberColumn(Twips width) {
  return {.heading = "No.", .dataField = "serial", .width = width, .align = Align::Centre};
}
Column codeColumn(const std::string& heading, Twips width) {
  return {.heading = heading, .dataField = "itemcode", .width = width};
}
Column descriptionColumn() {
  return {.heading = "Description", .dataField = "itemname", .headingName = "lbl5"};
}
Column unitColumn(Twips width) {
  return {.heading = "Unit", .dataField = "unit", .width = width};
}

Column quantityColumn(const std::string& field, Twips width, const std::string& format) {
  return figureColumn("Quantity", field, width, format);
}
Column rateColumn(Twips width, const std::string& format) {
  return figureColumn("Rate", "rate", width, format);
}

Column grossColumn(const std::string& heading, Twips width, const std::string& format) {
  return figureColumn(heading, "grossamt", width, format, "GrossSum");
}
Column discountColumn(Twips width, const std::string& format) {
  return figureColumn("Discount", "discamt", width, format, "DiscountSum");
}
Column netColumn(const std::string& heading, Twips width, const std::string& format) {
  return figureColumn(heading, "itemvalue", width, format, "NetSum");
}

}  // namespace velmo::documents
