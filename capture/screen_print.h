#pragma once

#include <chrono>
#include <functional>

#include "capture/capture.h"
#include "form/main_form.h"
#include "platform/message_pump.h"
#include "platform/screen_grab.h"
#include "platform/steady_clock.h"

namespace vireon::capture {

// The screen-print button of the main window.
class ScreenPrint {
 public:
  // Until the button's own redraw and every menu are finished.
  static constexpr std::chrono::milliseconds kPause{1000};

  ScreenPrint(form::MainForm& form, platform::MessagePump& pump, const platform::SteadyClock& clock,
              platform::ScreenGrab& screen)
      : form_(form), pump_(pump), clock_(clock), screen_(screen) {}

  // Makes cmdSprint call its handler.
  void connectEvents();

  // Lets the window live for kPause, with the button disabled, shows that enabled again and takes the
  // foreground window's picture and gives it to onPicture. Nothing when it was cancelled meanwhile.
  void cmdSprint_Click();

  // Ends a pause that is under way, without a picture.
  void cancel() { cancelled_ = true; }

  // Takes the picture, which may be empty.
  std::function<void(Picture)> onPicture;

 private:
  form::MainForm& form_;
  platform::MessagePump& pump_;
  const platform::SteadyClock& clock_;
  platform::ScreenGrab& screen_;
  bool cancelled_ = false;
};

}  // namespace vireon::capture
