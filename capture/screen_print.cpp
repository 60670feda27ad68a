#include "capture/screen_print.h"

namespace vireon::capture {

void ScreenPrint::connectEvents() {
  form_.cmdSprint.onClick = [this] { cmdSprint_Click(); };
}

void ScreenPrint::cmdSprint_Click() {
  cancelled_ = false;
  form_.cmdSprint.setEnabled(false);
  const auto end = clock_.now() + kPause;
  for (auto now = clock_.now(); now < end && !cancelled_; now = clock_.now()) {
    pump_.waitAtMost(end - now);
  }
  form_.cmdSprint.setEnabled(true);
  form_.cmdSprint.refresh();
  if (!cancelled_ && onPicture) {
    onPicture(capActWnd(screen_));
  }
}

}  // namespace vireon::capture
