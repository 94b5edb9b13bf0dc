#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "session/workplace.h"

// What stands in for the world around a screen: in tests, on the tour and in benchmarks.
namespace velmo::test {

// Stands until it is set.
class SetClock : public session::Clock {
 public:
  text::DateTime now() const override { return moment; }
  text::DateTime moment = text::DateTime::fromCalendar(2026, 11, 22, 14, 7, 9);
};

// Agrees to whatever is asked, and keeps what was said.
class AgreeingPrompts : public session::Prompts {
 public:
  session::Answer ask(const session::Prompt& prompt) override {
    told.push_back(prompt);
    return answer(prompt);
  }
  std::vector<session::Prompt> told;
  std::function<session::Answer(const session::Prompt&)> answer = agree;

  static session::Answer agree(const session::Prompt& prompt) {
    return prompt.buttons == session::Buttons::Ok ? session::Answer::Ok : session::Answer::Yes;
  }
};

// Answers every file dialog with the same name, or with the proposed one in a folder, after something else happened.
class NamedFile : public session::FileChooser {
 public:
  std::string openFile(const std::string& title, const std::string&, const std::string&) override {
    return chosen(title);
  }
  std::string saveFile(const std::string& title, const std::string&, const std::string& proposed) override {
    proposedName = proposed;
    const std::string own = chosen(title);
    return folder.empty() ? own : (folder / proposed).string();
  }
  std::string name = {};  // none: the dialog was cancelled
  std::filesystem::path folder = {};
  std::string titleSeen = {};
  std::string proposedName = {};
  std::function<void()> meanwhile = [] {};

 private:
  std::string chosen(const std::string& title) {
    titleSeen = title;
    meanwhile();
    return name;
  }
};

// Notes the screens that others are asked to open.
class NotedScreens : public session::ScreenOpener {
 public:
  bool openScreen(std::string_view name) override { return open(name); }
  bool openDialog(std::string_view name) override { return open(name); }
  bool hasScreen(std::string_view name) const override { return !known || known->contains(name); }
  std::optional<std::set<std::string, std::less<>>> known = {};  // without it, every screen is there
  std::string opened = {};                                       // the last one

 private:
  bool open(std::string_view name) {
    if (hasScreen(name)) opened = name;
    return hasScreen(name);
  }
};

}  // namespace velmo::test
