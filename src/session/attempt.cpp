#include "session/attempt.h"

#include "store/values/error.h"

namespace velmo::session {

bool attempt(Prompts& prompts, std::string_view title, const std::function<void()>& action,
             const std::function<void()>& failed) {
  try {
    action();
    return true;
  } catch (const store::StoreError& failure) {
    failed();
    prompts.tell(title, failure.what());
    return false;
  }
}

}  // namespace velmo::session
