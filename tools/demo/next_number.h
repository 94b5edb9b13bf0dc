#pragma once

#include <string>

#include "session/login_context.h"

namespace velmo::demo {

// The number that a screen would propose.
inline std::int64_t nextNumber(session::LoginContext& context, int tranType) {
  const store::Recordset last(
      context.KORDconn, "select Max(DocNo) as LastNo from transactions where trantype=" + std::to_string(tranType) +
                            " and fyid=" + std::to_string(context.FYID));
  return last.integer("LastNo") + 1;
}

}  // namespace velmo::demo
