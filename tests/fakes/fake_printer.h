#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/printer.h"

namespace vireon::tests {

// A printer whose letters are all of one width. It remembers what was drawn on each page of the latest
// document; the document's bytes are its title of "PDF" with a number.
class FakePrinter final : public platform::Printer {
 public:
  static constexpr double kLetterWidth = 100;  // twips
  static constexpr double kLineHeight = 240;

  struct Text {
    double x = 0;
    double y = 0;
    double width = 0;
    std::string text;
  };
  struct Drawn {
    platform::Bitmap bitmap;
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
  };
  struct Page {
    std::vector<Text> texts;
    std::vector<Drawn> pictures;
  };
  struct Job {
    std::string title;
    std::string document;
  };

  bool installed = true;
  bool takesDocuments = true;
  bool makesDocuments = true;
  platform::PrintArea area{10000, 10 * kLineHeight};

  // What happened.
  std::size_t documents = 0;
  std::vector<Page> pages;  // of the latest document
  std::vector<Job> jobs;

  std::unique_ptr<platform::PrintDocument> begin() override {
    ++documents;
    pages.assign(1, {});
    return std::make_unique<Document>(*this);
  }

  platform::PrintResult print(const std::string& title, std::string_view document) override {
    if (!installed) return platform::PrintResult::kNoPrinter;
    if (!takesDocuments) return platform::PrintResult::kRefused;
    jobs.push_back({title, std::string(document)});
    return platform::PrintResult::kDone;
  }

 private:
  class Document : public platform::PrintDocument {
   public:
    explicit Document(FakePrinter& printer) : printer_(printer) {}

    platform::PrintArea area() const override { return printer_.area; }
    double lineHeight() const override { return kLineHeight; }
    double textWidth(std::string_view text) const override {
      return kLetterWidth * static_cast<double>(text.size());
    }
    void text(double x, double y, double width, std::string_view text) override {
      printer_.pages.back().texts.push_back({x, y, width, std::string(text)});
    }
    void picture(const platform::Bitmap& bitmap, double x, double y, double width, double height) override {
      printer_.pages.back().pictures.push_back({bitmap, x, y, width, height});
    }
    void newPage() override { printer_.pages.emplace_back(); }
    std::string finish() override {
      return printer_.makesDocuments ? "PDF" + std::to_string(printer_.documents) : std::string();
    }

   private:
    FakePrinter& printer_;
  };
};

}  // namespace vireon::tests
