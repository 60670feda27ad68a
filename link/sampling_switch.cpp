#include "link/sampling_switch.h"

namespace vireon::link {

void switchSampling(form::MainForm& form, bool running) {
  form.cmdStart.setCaption(running ? "Stop" : "Start");
  form.cmdStart.setBackColor(running ? form::kLightGreen : form::kButtonFace);
  form.tmrInt.setEnabled(running);
}

}  // namespace vireon::link
