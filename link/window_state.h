#pragma once

#include "form/main_form.h"

namespace vireon::link {

// Shows the start button as running or not, and lets the poll timer run or stops it.
void switchSampling(form::MainForm& form, bool running);

// Marks the connect button and enables or disables the controls that work only while connected; the window
// starts disconnected.
void showConnected(form::MainForm& form, bool connected);

// Paints the two lamps at once.
void showLamps(form::MainForm& form, form::Color transmit, form::Color receive);

// What every failure of a link leaves: no sampling, disconnected, both lamps idle.
void fallBack(form::MainForm& form);

// Falls back at the end of a scope, however that ends.
class FallBack {
 public:
  explicit FallBack(form::MainForm& form) : form_(form) {}
  FallBack(const FallBack&) = delete;
  FallBack& operator=(const FallBack&) = delete;
  ~FallBack() { fallBack(form_); }

 private:
  form::MainForm& form_;
};

}  // namespace vireon::link
