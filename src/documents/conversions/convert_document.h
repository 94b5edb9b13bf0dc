#pragma once

#include <cstdint>

#include "documents/conversions/conversion.h"
#include "session/login_context.h"
#include "text/date_time.h"

namespace velmo::documents {

// Makes a new document from a saved one, as it stands in the store, and notes on that what it became: header, lines,
// ledger lines, open item and the note are one durable change, under the next free number of the year. Gives the key of
// the new document. Throws StoreError when the saved one is not there any more, is cancelled or has an account that is
// not there, and when the store fails; then nothing was written.
std::int64_t convertDocument(session::LoginContext& context, const Conversion& conversion, std::int64_t tranNo,
                             const text::DateTime& now);

}  // namespace velmo::documents
