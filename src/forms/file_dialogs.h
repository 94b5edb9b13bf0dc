#pragma once

#include "session/prompts.h"

namespace velmo::forms {

// The desktop's own dialogs for opening and saving files.
class FileDialogs : public session::FileChooser {
 public:
  std::string openFile(const std::string& title, const std::string& filter, const std::string& folder) override;
  std::string saveFile(const std::string& title, const std::string& filter, const std::string& proposedName) override;
};

}  // namespace velmo::forms
