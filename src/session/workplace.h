#pragma once

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
};

}  // namespace velmo::session
