#pragma once

#include <string>

#include "documents/print/paper_texts.h"

// The columns from which the layouts of documents with item lines choose, each at the width that the layout gives it.
namespace velmo::documents {

printing::Column numberColumn(printing::Twips width);
printing::Column codeColumn(const std::string& heading, printing::Twips width);
printing::Column descriptionColumn();  // as wide as the others leave it
printing::Column unitColumn(printing::Twips width);

// Any figures, at the right; with a name they are summed.
printing::Column figureColumn(const std::string& heading, const std::string& dataField, printing::Twips width,
                              const std::string& format = AmountFormat, const std::string& totalName = {});

// Figures. `format` is a format of numbers, see text/format.h.
// `field` is the one of the lines that holds what came in or went out.
printing::Column quantityColumn(const std::string& field, printing::Twips width,
                                const std::string& format = AmountFormat);
printing::Column rateColumn(printing::Twips width, const std::string& format = AmountFormat);

// Figures that are summed.
printing::Column grossColumn(const std::string& heading, printing::Twips width,
                             const std::string& format = AmountFormat);
printing::Column discountColumn(printing::Twips width, const std::string& format = AmountFormat);
printing::Column netColumn(const std::string& heading, printing::Twips width, const std::string& format = AmountFormat);

}  // namespace velmo::documents
