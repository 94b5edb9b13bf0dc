#pragma once

#include <string>

#include "documents/print/invoice_sheet.h"

// The columns from which the layouts of an invoice choose, each at the width that the layout gives it.
namespace velmo::documents {

printing::Column numberColumn(printing::Twips width);
printing::Column codeColumn(const InvoiceSheet& sheet, printing::Twips width);
printing::Column descriptionColumn();  // as wide as the others leave it
printing::Column unitColumn(printing::Twips width);

// Figures. `format` is a format of numbers, see text/format.h.
printing::Column quantityColumn(const InvoiceSheet& sheet, printing::Twips width,
                                const std::string& format = AmountFormat);
printing::Column rateColumn(printing::Twips width, const std::string& format = AmountFormat);

// Figures that are summed.
printing::Column grossColumn(const std::string& heading, printing::Twips width,
                             const std::string& format = AmountFormat);
printing::Column discountColumn(printing::Twips width, const std::string& format = AmountFormat);
printing::Column netColumn(const std::string& heading, printing::Twips width, const std::string& format = AmountFormat);

}  // namespace velmo::documents
