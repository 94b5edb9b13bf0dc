#pragma once

#include "session/prompts.h"

class QWidget;

namespace velmo::forms {

// Message boxes over the active window. Enter gives the first answer (Ok or Yes); Escape gives Cancel where there is
// one, otherwise No, otherwise Ok.
class MessagePrompts : public session::Prompts {
 public:
  session::Answer ask(const session::Prompt& prompt) override;
};

}  // namespace velmo::forms
