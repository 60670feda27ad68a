#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/search_view.h"

namespace vireon::tests {

// Remembers what a search showed.
class FakeSearchView final : public platform::SearchView {
 public:
  void begin() override { ++depth; }
  void trying(int com, std::string_view baudRate, int step) override {
    tried.push_back(std::to_string(step) + " COM" + std::to_string(com) + ":" + std::string(baudRate));
    if (whileTrying) {
      whileTrying();
    }
  }
  void advise(const std::string& line, const std::string& text) override {
    advised.push_back(line);
    advisedTexts.push_back(text);
  }
  void end() override { --depth; }

  int depth = 0;
  std::vector<std::string> tried;  // "1 COM1:9600"
  std::vector<std::string> advised;
  std::vector<std::string> advisedTexts;
  std::function<void()> whileTrying;
};

}  // namespace vireon::tests
