#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <utility>

#include "support/stand_ins.h"

namespace velmo::test {

// Answers prompts from a queue, in order. An unexpected prompt, a wrong text or one that never came fails the test.
class QueuedPrompts : public AgreeingPrompts {
 public:
  QueuedPrompts() {
    answer = [this](const session::Prompt& prompt) { return next(prompt); };
  }
  ~QueuedPrompts() override {
    for (const Expected& missing : expected_)
      ADD_FAILURE() << "prompt never came: [" << missing.title << "] " << missing.text.value_or("");
  }

  void expect(std::string title, std::string text, session::Answer answered = session::Answer::Ok) {
    expected_.push_back({std::move(title), std::move(text), answered});
  }
  // Words of the store's own.
  void expectTitle(std::string title) { expected_.push_back({std::move(title), std::nullopt, session::Answer::Ok}); }
  // From now on whatever comes is agreed to.
  void listen() {
    told.clear();
    answer = agree;
  }

 private:
  struct Expected {
    std::string title;
    std::optional<std::string> text;
    session::Answer answer;
  };

  session::Answer next(const session::Prompt& prompt) {
    if (expected_.empty()) {
      ADD_FAILURE() << "unexpected prompt: [" << prompt.title << "] " << prompt.text;
      return prompt.buttons == session::Buttons::Ok ? session::Answer::Ok : session::Answer::No;
    }
    const Expected wanted = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(wanted.title, prompt.title);
    if (wanted.text)
      EXPECT_EQ(*wanted.text, prompt.text);
    else
      EXPECT_TRUE(prompt.text.ends_with(".")) << "a full sentence: " << prompt.text;
    return wanted.answer;
  }

  std::deque<Expected> expected_;
};

}  // namespace velmo::test
