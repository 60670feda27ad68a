#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/message_box.h"

namespace vireon::tests {

// Records every message; answers from `answers` in turn and, when that is empty, as a box that is closed
// without a button does: kOk, or kNo where that was a choice.
class FakeMessageBoxes final : public platform::MessageBoxes {
 public:
  platform::MessageAnswer show(const platform::Message& message) override {
    shown.push_back(message);
    if (whileOpen) whileOpen(message);
    if (answers.empty()) {
      return message.buttons == platform::MessageButtons::kYesNo ? platform::MessageAnswer::kNo
                                                                 : platform::MessageAnswer::kOk;
    }
    const platform::MessageAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::size_t count() const { return shown.size(); }

  // Title of the latest message; empty when none was shown.
  std::string lastTitle() const { return shown.empty() ? std::string() : shown.back().title; }

  // Text of the latest message; empty when none was shown.
  std::string lastText() const { return shown.empty() ? std::string() : shown.back().text; }

  std::vector<platform::Message> shown;
  std::deque<platform::MessageAnswer> answers;
  // Runs while the box is open, e.g. to look at the window's state or to tick a timer that must not.
  std::function<void(const platform::Message&)> whileOpen;
};

}  // namespace vireon::tests
