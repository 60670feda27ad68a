#pragma once

#include <memory>
#include <vector>

#include "platform/viewer_window.h"

namespace vireon::tests {

// What a test sees of the latest viewer window. A pixel is 15 twips.
class FakeViewerWindows final : public platform::ViewerWindows {
 public:
  static constexpr int kTwipsPerPixel = 15;

  platform::WindowSize screen{30000, 20000};

  std::size_t made = 0;
  std::size_t alive = 0;
  std::size_t shows = 0;
  platform::Bitmap picture;
  platform::WindowSize pictureSize;
  std::vector<platform::WindowSize> sizes;   // each one asked for
  platform::ViewerWindow* latest = nullptr;  // null when it is gone

  std::unique_ptr<platform::ViewerWindow> make() override {
    auto window = std::make_unique<Window>(*this);
    latest = window.get();
    return window;
  }

  // The user's actions.
  void choose(platform::ViewerCommand command) {
    const auto handler = latest->onCommand;
    handler(command);
  }
  void close() {
    const auto handler = latest->onUnload;
    handler();
  }

 private:
  class Window : public platform::ViewerWindow {
   public:
    explicit Window(FakeViewerWindows& windows) : windows_(windows) {
      ++windows_.made;
      ++windows_.alive;
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    ~Window() override {
      --windows_.alive;
      windows_.latest = nullptr;
    }

    void setPicture(const platform::Bitmap& bitmap) override {
      windows_.picture = bitmap;
      if (!bitmap.empty()) {
        windows_.pictureSize = {bitmap.width * kTwipsPerPixel, bitmap.height * kTwipsPerPixel};
      }
    }
    platform::WindowSize pictureSize() const override { return windows_.pictureSize; }
    platform::WindowSize screenSize() const override { return windows_.screen; }
    void resize(platform::WindowSize outer) override { windows_.sizes.push_back(outer); }
    void show() override { ++windows_.shows; }

   private:
    FakeViewerWindows& windows_;
  };
};

}  // namespace vireon::tests
