#pragma once

#include "session/login_context.h"
#include "store/recordset/recordset.h"
#include "text/date_time.h"

namespace velmo::documents {

enum class DocumentState { Valid, Cancelled };

// What a print-out is made of. `document` stands on the row of Transactions, `lines` are its rows of StockFlow.
struct PrintSource {
  session::LoginContext& context;
  const store::Recordset& document;
  const store::Recordset& lines;
  DocumentState state = DocumentState::Valid;  // as the screen has it
  text::DateTime today = {};
};

}  // namespace velmo::documents
