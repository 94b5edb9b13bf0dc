#pragma once

#include <string>
#include <string_view>

namespace velmo::session {

enum class Buttons { Ok, YesNo, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

struct Prompt {
  std::string title;
  std::string text;
  Buttons buttons = Buttons::Ok;
};

// Every question and message of the program. A test answers from a queue and fails on one too many or too few.
class Prompts {
 public:
  virtual ~Prompts() = default;
  virtual Answer ask(const Prompt& prompt) = 0;
  void tell(std::string_view title, std::string_view text) {
    ask({.title = std::string(title), .text = std::string(text)});
  }
};

// Names of files to open or save; an empty answer is a cancelled dialog.
class FileChooser {
 public:
  virtual ~FileChooser() = default;
  virtual std::string openFile(const std::string& title, const std::string& filter, const std::string& folder) = 0;
  virtual std::string saveFile(const std::string& title, const std::string& filter,
                               const std::string& proposedName) = 0;
};

}  // namespace velmo::session
