#pragma once

#include <string>
#include <string_view>

#include "schema/document_kinds.h"
#include "session/workplace.h"

namespace velmo::frame {

// Opens the document of the year that has the number, on the form's screen, when the user may see such documents. Tells
// the user when he may not, or when no document has it; `words` stand before the number then: "D.C. No. ". Throws
// StoreError.
void openDocumentOf(session::Workplace& workplace, const schema::DocumentForm& form, const std::string& number,
                    std::string_view words);

}  // namespace velmo::frame
