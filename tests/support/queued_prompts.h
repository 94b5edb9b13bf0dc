#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "session/prompts.h"

namespace velmo::test {

// Answers prompts from a queue, in order. An unexpected prompt, a wrong text or one that never came fails the test.
class QueuedPrompts : public session::Prompts {
 public:
  void expect(std::string title, std::string text, session::Answer answer = session::Answer::Ok) {
    expected_.push_back({std::move(title), std::move(text), answer});
  }

  session::Answer ask(const session::Prompt& prompt) override {
    if (expected_.empty()) {
      ADD_FAILURE() << "unexpected prompt: [" << prompt.title << "] " << prompt.text;
      return prompt.buttons == session::Buttons::Ok ? session::Answer::Ok : session::Answer::No;
    }
    Expected next = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(next.title, prompt.title);
    EXPECT_EQ(next.text, prompt.text);
    return next.answer;
  }

  ~QueuedPrompts() override {
    for (const Expected& missing : expected_)
      ADD_FAILURE() << "prompt never came: [" << missing.title << "] " << missing.text;
  }

 private:
  struct Expected {
    std::string title, text;
    session::Answer answer;
  };
  std::deque<Expected> expected_;
};

}  // namespace velmo::test
