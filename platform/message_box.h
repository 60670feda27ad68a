#pragma once

#include <string>

namespace vireon::platform {

enum class MessageIcon { kNone, kCritical, kExclamation, kInformation };
enum class MessageButtons { kOk, kYesNo };
enum class MessageAnswer { kOk, kYes, kNo };

// One message; texts are UTF-8 and shown as they stand.
struct Message {
  std::string title;
  std::string text;
  MessageIcon icon = MessageIcon::kNone;
  MessageButtons buttons = MessageButtons::kOk;
};

// Modal message boxes.
class MessageBoxes {
 public:
  MessageBoxes() = default;
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;
  virtual ~MessageBoxes() = default;

  // Shows the message and returns when the user has answered. While it is open no timer of the program
  // ticks and no other window of it takes input. A box that is closed without a button answers kOk, or
  // kNo where that was a choice.
  virtual MessageAnswer show(const Message& message) = 0;
};

}  // namespace vireon::platform
