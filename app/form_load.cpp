#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "app/ini_text.h"
#include "app/program.h"
#include "link/window_state.h"
#include "meter/panel_layouts.h"
#include "protocol/reply_text.h"
#include "protocol/scoped_flag.h"
#include "protocol/vocabulary.h"
#include "scope/scale_tables.h"

namespace vireon::app {
namespace {

constexpr int kProductIds = 4;              // of the family's models
constexpr int kBeforeFirstProduct = -8192;  // E000 hexadecimal as signed 16 bits
constexpr const char* kCheckCommunicationCable =
    "Device not detected...Please check Communication cable & connector.";
constexpr const char* kCheckUsbCable = "Device not detected...Please check USB cable & connector.";

struct Model {
  std::string_view identity;
  const char* tabCount;
};
constexpr std::array<Model, 4> kModels{{{"K7310", "2"}, {"K7210", "1"}, {"K7201", "1"}, {"K7900", "1"}}};

// Shows the search for a scope.
class SearchScope {
 public:
  explicit SearchScope(platform::SearchView& view) : view_(view) { view_.begin(); }
  SearchScope(const SearchScope&) = delete;
  SearchScope& operator=(const SearchScope&) = delete;
  ~SearchScope() { view_.end(); }

 private:
  platform::SearchView& view_;
};

}  // namespace

bool Program::Form_Load() {
  bool loaded = false;
  form.attend([&] {
    form.attend([&] { loaded = load(); });
    if (!loaded) {
      connection.release();
    }
  });
  return loaded;
}

bool Program::load() {
  unwritten_.reset();
  if (!settings_.fileExists(settingsPath_) && !firstRun()) {
    return false;
  }
  const protocol::ScopedFlag busy(state.uiBusy);
  readSettings();
  prepareWindow();
  connection.failuresAreTold = true;
  loaded_ = true;
  return true;
}

bool Program::firstRun() {
  const SearchScope search(searchView_);
  connection.failuresAreTold = false;
  cancelled_ = false;
  if (!findOnUsb()) {
    link.comPort = "1";
    connection.serial().com_search();
    if (cancelled_) {
      return false;
    }
    if (form.StatusBar1.panel(2).empty()) {
      return deviceNotFound(kCheckCommunicationCable);
    }
  }
  return identify();
}

bool Program::findOnUsb() {
  for (int i = 1; i <= kProductIds; ++i) {
    link.usbProductId = static_cast<std::int16_t>(kBeforeFirstProduct + i);
    link::ApiUsb& usb = connection.apiUsb();
    if (usb.findDevice()) {
      link.comPort = "0";
      return true;
    }
    if (const auto advice = link::adviceFor(usb.openError(), usb.triedNode()); advice && !usbAdvice_) {
      usbAdvice_ = advice;
      searchView_.advise(advice->line, advice->text);
    }
  }
  return false;
}

// Asks the instrument found for its model; True when that is one of the family and was written down.
bool Program::identify() {
  connection.trans_usb(protocol::kQueryIdentity);
  pump_.pump();
  if (cancelled_) {
    return false;
  }
  if (link.onUsb() && link.usbResult != 1) {
    return deviceNotFound(kCheckUsbCable);
  }
  const auto model = std::ranges::find(kModels, protocol::trimmed(state.modelId), &Model::identity);
  if (model == kModels.end()) {
    const bool told = !link.onUsb() && link.rxTimeout;  // the serial link has said so itself
    return !told && deviceNotFound(kCheckCommunicationCable);
  }
  unwritten_ = Found{form.caption(), state.modelId, std::to_string(link.usbProductId), model->tabCount};
  writeSettings();
  return true;
}

// Tells so and returns False.
bool Program::deviceNotFound(const char* text) {
  if (usbAdvice_) {
    link::showAdvice(form, *usbAdvice_);
  }
  messages_.show({"Device Not Found", text, platform::MessageIcon::kCritical, platform::MessageButtons::kOk});
  return false;
}

// One write for all that is not in the file yet: a part of it would keep the next start from searching, and
// from finding anything.
void Program::writeSettings() {
  if (!unwritten_) {
    settings_.writeAll({{"ComPort", "ComPort", link.comPort}, {"BaudRate", "BaudRate", link.baudRate}},
                       settingsPath_);
  } else if (settings_.writeAll({{"Caption", "Caption", unwritten_->caption},
                                 {"System ID", "System ID", unwritten_->modelId},
                                 {"ProductId", "ProductId", unwritten_->productId},
                                 {"Tabs", "Tabs", unwritten_->tabs},
                                 {"ComPort", "ComPort", link.comPort},
                                 {"BaudRate", "BaudRate", link.baudRate}},
                                settingsPath_)) {
    unwritten_.reset();
  }
}

void Program::readSettings() {
  if (unwritten_) {
    form.SSTab1.setTabs(unwritten_->tabs == "2" ? 2 : 1);
    return;
  }
  const std::string text = settings_.text(settingsPath_);
  const auto read = [&](std::string_view key) { return iniValue(text, key, key); };
  form.setCaption(read("Caption"));
  link.usbProductId = static_cast<std::int16_t>(protocol::leadingNumber(read("ProductId")));
  state.modelId = read("System ID");
  form.SSTab1.setTabs(read("Tabs") == "2" ? 2 : 1);
  link.comPort = read("ComPort");
  link.baudRate = read("BaudRate");
}

void Program::prepareWindow() {
  if (form.SSTab1.tabs() != 2) {
    form.cmdClock.setVisible(false);
  }
  if (link.onUsb()) {
    form.StatusBar1.setPanel(2, "USB(HID)");
  } else {
    form.StatusBar1.setPanel(2, "COM" + link.comPort + ":" + link.baudRate);
    link.comWait = link::answerTimeOut(link.baudRate);
  }
  form.posT.setCaption("~T");
  form.posDV[0].setCaption("CHA");
  form.posDV[1].setCaption("CHB");
  scope::initLbl(form, state);
  form.SSTab1.setTab(0);
  meter::setTabPan(form);
  for (form::PictureBox* panel : {&form.panTrd, &form.picSet, &form.picSwin[0], &form.picSwin[1]}) {
    panel->setVisible(false);
  }
  link::showConnected(form, false);
}

}  // namespace vireon::app
