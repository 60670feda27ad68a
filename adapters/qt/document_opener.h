#pragma once

#include "platform/document_opener.h"

namespace vireon::adapters {

// Documents go to the desktop's own applications.
class QtDocumentOpener : public platform::DocumentOpener {
 public:
  bool open(const std::string& path) override;
};

}  // namespace vireon::adapters
