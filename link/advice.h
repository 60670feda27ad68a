#pragma once

#include <optional>
#include <string>

#include "form/main_form.h"
#include "platform/raw_hid.h"
#include "platform/serial_port.h"

namespace vireon::link {

// What the user can do about a device that may not be opened: one line, and at length.
struct Advice {
  std::string line;
  std::string text;
};

// For a HID node that refuses this account; none for every other outcome.
std::optional<Advice> adviceFor(platform::HidOpenError error, const std::string& node);

// For a serial device that refuses this account or that another program holds; none for every other outcome.
std::optional<Advice> adviceFor(const platform::SerialOpenResult& result);

// Shows the advice in status-bar panel 1, the text behind it.
void showAdvice(form::MainForm& form, const Advice& advice);

// Clears panel 1 if an advice stands there.
void clearAdvice(form::MainForm& form);

}  // namespace vireon::link
