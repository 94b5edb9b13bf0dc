#include "session/rights_gate.h"

namespace velmo::session {
namespace {

constexpr int administrator = 1;
constexpr int lastOperator = 10;  // UserRights has columns for users 2 to 10

struct Right {
  bool denied = false;
  std::string words;
};

Right rightOf(LoginContext& context, int rightId) {
  if (context.UserID <= administrator || context.UserID > lastOperator) return {};
  store::Recordset right(context.KORDconn, "SELECT * from userrights where rightid=" + std::to_string(rightId),
                         store::LockType::ReadOnly);
  if (right.isEmpty()) return {};
  return {.denied = right.yes("operator" + std::to_string(context.UserID - 1)), .words = right.text("RightType")};
}

}  // namespace

bool RightsGate::allows(int rightId) const {
  return !rightOf(context_, rightId).denied;
}

bool RightsGate::demand(int rightId) const {
  const Right right = rightOf(context_, rightId);
  if (right.denied) prompts_.tell("Not Allowed", "You do not have access to " + right.words);
  return !right.denied;
}

}  // namespace velmo::session
