#pragma once

#include "session/login_context.h"
#include "session/prompts.h"

namespace velmo::session {

// The one way by which a user's rights are read. User 1 and ids without a column may do everything.
class RightsGate {
 public:
  RightsGate(LoginContext& context, Prompts& prompts) : context_(context), prompts_(prompts) {}

  bool allows(int rightId) const;
  // As allows(), and tells the user "You do not have access to ..." when refused.
  bool demand(int rightId) const;

 private:
  LoginContext& context_;
  Prompts& prompts_;
};

}  // namespace velmo::session
