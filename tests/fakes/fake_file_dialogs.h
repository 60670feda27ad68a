#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/file_dialog.h"

namespace vireon::tests {

// Answers every dialog with the same name; an empty one is a cancelled dialog.
class FakeFileDialogs final : public platform::FileDialogs {
 public:
  std::string answer;
  std::function<void()> whileOpen;

  std::vector<platform::FileQuestion> opened;
  std::vector<platform::FileQuestion> saved;

  std::string openName(const platform::FileQuestion& question) override {
    opened.push_back(question);
    if (whileOpen) whileOpen();
    return answer;
  }
  std::string saveName(const platform::FileQuestion& question) override {
    saved.push_back(question);
    if (whileOpen) whileOpen();
    return answer;
  }
};

}  // namespace vireon::tests
