#pragma once

#include "documents/count/count_sheet.h"
#include "printing/report.h"
#include "session/login_context.h"

namespace velmo::documents {

enum class BookOnPaper { Shown, LeftOut };  // whoever counts may not be told what is expected

// The listed items by category with room for what is counted; place, day and moment of the book quantity stand above.
printing::Report countPrint(const session::LoginContext& context, const CountSheet& sheet, const CountPlace& place,
                            const std::string& location, BookOnPaper book, const text::DateTime& today);

}  // namespace velmo::documents
