#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/message_box.h"
#include "platform/png_encoder.h"
#include "platform/printer.h"
#include "platform/screen_grab.h"
#include "platform/wall_clock.h"
#include "tests/faults/allocation_pause.h"
#include "tests/faults/fault_plan.h"

namespace vireon::tests {

// Fails by being closed without a button, where that is an answer of its own.
class FaultyMessageBoxes final : public platform::MessageBoxes {
 public:
  FaultyMessageBoxes(platform::MessageBoxes& boxes, FaultPlan& plan) : boxes_(boxes), plan_(plan) {}

  platform::MessageAnswer show(const platform::Message& message) override {
    const AllocationPause pause;
    const platform::MessageAnswer answer = boxes_.show(message);
    return message.buttons == platform::MessageButtons::kYesNo && plan_.strike("message box", "show", 1) != 0
               ? platform::MessageAnswer::kNo
               : answer;
  }

 private:
  platform::MessageBoxes& boxes_;
  FaultPlan& plan_;
};

// Fails by having lost its date.
class FaultyWallClock final : public platform::WallClock {
 public:
  FaultyWallClock(const platform::WallClock& clock, FaultPlan& plan) : clock_(clock), plan_(plan) {}

  platform::CalendarTime now() const override {
    const AllocationPause pause;
    return plan_.strike("wall clock", "now", 1) == 0 ? clock_.now() : platform::CalendarTime{};
  }

 private:
  const platform::WallClock& clock_;
  FaultPlan& plan_;
};

class FaultyScreenGrab final : public platform::ScreenGrab {
 public:
  FaultyScreenGrab(platform::ScreenGrab& screen, FaultPlan& plan) : screen_(screen), plan_(plan) {}

  platform::WindowHandle foregroundWindow() override {
    const AllocationPause pause;
    return plan_.strike(kPort, "foregroundWindow", 1) == 0 ? screen_.foregroundWindow() : platform::kNoWindow;
  }

  std::optional<platform::ScreenRectangle> windowRectangle(platform::WindowHandle window) override {
    const AllocationPause pause;
    switch (plan_.strike(kPort, "windowRectangle", 2)) {
      case 1:
        return std::nullopt;
      case 2:
        return platform::ScreenRectangle{};
      default:
        return screen_.windowRectangle(window);
    }
  }

  platform::Bitmap grab(platform::WindowHandle window, bool clientArea, int left, int top, int width,
                        int height) override {
    const AllocationPause pause;
    return plan_.strike(kPort, "grab", 1) == 0 ? screen_.grab(window, clientArea, left, top, width, height)
                                               : platform::Bitmap{};
  }

 private:
  static constexpr std::string_view kPort = "screen grab";
  platform::ScreenGrab& screen_;
  FaultPlan& plan_;
};

class FaultyPrinter final : public platform::Printer {
 public:
  FaultyPrinter(platform::Printer& printer, FaultPlan& plan) : printer_(printer), plan_(plan) {}

  std::unique_ptr<platform::PrintDocument> begin() override {
    const AllocationPause pause;
    return std::make_unique<Document>(printer_.begin(), plan_);
  }

  platform::PrintResult print(const std::string& title, std::string_view document) override {
    const AllocationPause pause;
    switch (plan_.strike(kPort, "print", 2)) {
      case 1:
        return platform::PrintResult::kRefused;
      case 2:
        return platform::PrintResult::kNoPrinter;
      default:
        return printer_.print(title, document);
    }
  }

 private:
  static constexpr std::string_view kPort = "printer";

  class Document final : public platform::PrintDocument {
   public:
    Document(std::unique_ptr<platform::PrintDocument> document, FaultPlan& plan)
        : document_(std::move(document)), plan_(plan) {}

    platform::PrintArea area() const override { return document_->area(); }
    double lineHeight() const override { return document_->lineHeight(); }
    double textWidth(std::string_view text) const override { return document_->textWidth(text); }
    void text(double x, double y, double width, std::string_view text) override {
      const AllocationPause pause;
      document_->text(x, y, width, text);
    }
    void picture(const platform::Bitmap& bitmap, double x, double y, double width, double height) override {
      const AllocationPause pause;
      document_->picture(bitmap, x, y, width, height);
    }
    void newPage() override { document_->newPage(); }
    std::string finish() override {
      const AllocationPause pause;
      std::string bytes = document_->finish();
      return plan_.strike(kPort, "finish", 1) == 0 ? bytes : std::string();
    }

   private:
    std::unique_ptr<platform::PrintDocument> document_;
    FaultPlan& plan_;
  };

  platform::Printer& printer_;
  FaultPlan& plan_;
};

class FaultyPngEncoder final : public platform::PngEncoder {
 public:
  FaultyPngEncoder(platform::PngEncoder& png, FaultPlan& plan) : png_(png), plan_(plan) {}

  std::string encode(const platform::Bitmap& bitmap) override {
    const AllocationPause pause;
    return plan_.strike("png encoder", "encode", 1) == 0 ? png_.encode(bitmap) : std::string();
  }

 private:
  platform::PngEncoder& png_;
  FaultPlan& plan_;
};

}  // namespace vireon::tests
