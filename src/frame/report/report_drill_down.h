#pragma once

#include <cstdint>
#include <functional>

#include "schema/document_kinds.h"
#include "session/workplace.h"

namespace velmo::frame {

// Opens the document that a row of a report stands for, on the screen of its type, when the user may see such
// documents; the user is told when he may not. Opening balances are shown without a number. A type that has no screen
// does nothing. `leave` is called before the screen opens, and only when it does: a modal dialog closes there.
void openDocument(session::Workplace& workplace, int tranType, std::int64_t tranNo,
                  schema::LedFrom reports = schema::LedFrom::Ledgers, const std::function<void()>& leave = {});

}  // namespace velmo::frame
