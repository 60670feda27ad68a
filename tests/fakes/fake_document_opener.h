#pragma once

#include <string>
#include <vector>

#include "platform/document_opener.h"

namespace vireon::tests {

// Remembers what it was asked to open.
class FakeDocumentOpener final : public platform::DocumentOpener {
 public:
  bool answer = true;
  std::vector<std::string> opened;

  bool open(const std::string& path) override {
    opened.push_back(path);
    return answer;
  }
};

}  // namespace vireon::tests
