#pragma once

#include "adapters/qt/background_worker.h"
#include "platform/raw_hid.h"

namespace vireon::adapters {

// HID nodes whose calls leave the windows painting, however long the device holds a call up.
class PaintingHid : public platform::RawHid {
 public:
  // `hid` does the work, on another thread, one call at a time. It and `gate` outlive this object, and this
  // object its handles.
  PaintingHid(platform::RawHid& hid, ModalGate& gate) : hid_(hid), worker_(gate) {}

  std::vector<platform::HidNode> list() override;
  platform::HidOpenResult open(const platform::HidNode& node) override;

 private:
  platform::RawHid& hid_;
  BackgroundWorker worker_;
};

}  // namespace vireon::adapters
