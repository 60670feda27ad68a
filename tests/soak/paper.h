#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "adapters/qt/pdf_document.h"
#include "tests/soak/act_log.h"

namespace vireon::soak {

// A printer whose paper is looked at and thrown away; the documents are real.
class Paper : public platform::Printer {
 public:
  explicit Paper(ActLog& log) : log_(log) {}

  std::unique_ptr<platform::PrintDocument> begin() override {
    return std::make_unique<adapters::PdfDocument>(QPageLayout(
        QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter));
  }

  platform::PrintResult print(const std::string& /*title*/, std::string_view document) override {
    if (result == platform::PrintResult::kDone) {
      ++printed;
      if (!document.starts_with("%PDF-")) {
        log_.finding("what was printed is no document");
      }
    }
    return result;
  }

  platform::PrintResult result = platform::PrintResult::kDone;
  std::uint64_t printed = 0;

 private:
  ActLog& log_;
};

}  // namespace vireon::soak
