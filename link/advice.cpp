#include "link/advice.h"

namespace vireon::link {

std::optional<Advice> adviceFor(platform::HidOpenError error, const std::string& node) {
  if (error != platform::HidOpenError::kNoPermission) {
    return std::nullopt;
  }
  return Advice{"No permission for " + node + ": a udev rule gives it",
                "The instrument is plugged in, but this account may not read and write " + node +
                    ".\nThese two commands give that right for good; then plug the instrument in again:\n\n"
                    "echo 'SUBSYSTEM==\"hidraw\", ATTRS{idVendor}==\"10c4\", "
                    "ATTRS{idProduct}==\"e00[1-4]\", TAG+=\"uaccess\"' | "
                    "sudo tee /etc/udev/rules.d/70-vireon.rules\n"
                    "sudo udevadm control --reload"};
}

std::optional<Advice> adviceFor(const platform::SerialOpenResult& result) {
  if (result.error == platform::SerialOpenError::kInUse) {
    return Advice{result.device + " is in use by another program",
                  "Another program has opened " + result.device +
                      ".\nEnd it or disconnect it there, then connect again."};
  }
  if (result.error != platform::SerialOpenError::kNoPermission) {
    return std::nullopt;
  }
  if (result.memberAfterNextLogin) {
    return Advice{"No permission for " + result.device + ": log in again",
                  "This account is a member of the group " + result.group + ", which may use " +
                      result.device + ", but that holds only from the next login on.\nLog out and in again."};
  }
  return Advice{"No permission for " + result.device + ": join group " + result.group,
                "This account may not read and write " + result.device + ", which belongs to the group " +
                    result.group + ".\nThis command makes it a member; then log out and in again:\n\n" +
                    "sudo usermod -aG " + result.group + " \"$USER\""};
}

void showAdvice(form::MainForm& form, const Advice& advice) {
  form.StatusBar1.setPanel(1, advice.line);
  form.StatusBar1.setToolTip(1, advice.text);
}

void clearAdvice(form::MainForm& form) {
  if (!form.StatusBar1.toolTip(1).empty()) {
    form.StatusBar1.setPanel(1, "");
    form.StatusBar1.setToolTip(1, "");
  }
}

}  // namespace vireon::link
