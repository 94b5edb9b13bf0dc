#pragma once

#include <string>
#include <string_view>
#include <tl/expected.hpp>

#include "frame/document/document_type.h"
#include "frame/posting/document_writer.h"

namespace velmo::frame {

// From what a screen holds to what a save writes: header, ledger lines and open item. Nothing is written.
// `lineNarrations` are those of all lines, joined. A sentence when the document cannot be posted.
tl::expected<DocumentWrite, std::string> composeDocument(const DocumentType& type, const DocumentValues& values,
                                                         const session::LoginContext& context,
                                                         const text::DateTime& now, std::string_view lineNarrations,
                                                         HeaderWrite mode);

// The header alone, with what every document writes into it and the own columns of the type.
DocumentWrite composeHeader(const DocumentType& type, const DocumentValues& values,
                            const session::LoginContext& context, const text::DateTime& now, HeaderWrite mode);

}  // namespace velmo::frame
