#pragma once

#include "session/attempt.h"
#include "session/clock.h"
#include "session/login_context.h"
#include "session/prompts.h"
#include "session/rights_gate.h"
#include "session/screen_opener.h"

namespace velmo::session {

// Everything a screen is handed when it is made. The shell owns all of it and outlives the screens.
struct Workplace {
  LoginContext& context;
  Clock& clock;
  Prompts& prompts;
  FileChooser& files;
  ScreenOpener& screens;

  RightsGate rights() const { return RightsGate(context, prompts); }
  // Runs what a person asked for; false when the store failed, which was told under the title.
  bool attempt(std::string_view title, const std::function<void()>& action) const {
    return session::attempt(prompts, title, action);
  }
};

}  // namespace velmo::session
