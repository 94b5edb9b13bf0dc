#pragma once

#include <vector>

#include "frame/posting/document_values.h"
#include "frame/posting/header_row.h"
#include "frame/posting/posting_table.h"
#include "frame/posting/validation.h"
#include "session/login_context.h"

// What a production puts into the books, and what it is tested for: pure, from the texts on the screen.
namespace velmo::documents {

void productionHeader(const frame::DocumentValues& values, const session::LoginContext& context, frame::HeaderRow& row);

// The goods made are debited with all that they cost: materials, labour, overhead and what others charge.
std::vector<frame::LedgerLine> productionLedger(const frame::DocumentValues& values);

std::vector<frame::ValidationStep> productionSteps();

}  // namespace velmo::documents
