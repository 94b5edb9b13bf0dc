#pragma once

#include <string_view>

namespace velmo::session {

// Opens screens by their names, so that a screen can lead to another without including it.
class ScreenOpener {
 public:
  virtual ~ScreenOpener() = default;
  // A child window: made on first use, otherwise brought to the front and reopened. When LoginContext::OpenTranFlag is
  // set, the document screen shows LoginContext::OpenTranNo. False when the screen is not part of this program.
  virtual bool openScreen(std::string_view name) = 0;
  // A modal dialog; returns after it was closed.
  virtual bool openDialog(std::string_view name) = 0;
  virtual bool hasScreen(std::string_view name) const = 0;
};

}  // namespace velmo::session
