#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "protocol/instrument_state.h"
#include "protocol/vocabulary.h"

namespace vireon::fuzz {

// What the serial collector has to make of the bytes that it reads, told once more.
class FrameModel {
 public:
  // One reading of the port. What follows the end of a frame, or the byte that found no room, is lost.
  void read(std::span<const std::uint8_t> bytes) {
    for (const std::uint8_t byte : bytes) {
      if (byte == protocol::kStx) {
        held_.clear();
      }
      if (held_.size() == protocol::InstrumentState::kBufferSize) {
        return;
      }
      held_ += static_cast<char>(byte);
      if (byte == protocol::kEtx) {
        endOfFrame();
        return;
      }
    }
  }

  // A command goes out.
  void sent() { accepted_ = refused_ = false; }

  const std::string& held() const { return held_; }
  const std::vector<std::string>& texts() const { return texts_; }
  bool accepted() const { return accepted_; }
  bool refused() const { return refused_; }

 private:
  void endOfFrame() {
    if (held_.size() != 3) {
      texts_.push_back(held_.size() < 2 ? "" : held_.substr(1, held_.size() - 2));
      accepted_ = true;
      return;
    }
    const auto code = static_cast<std::uint8_t>(held_[1]);
    accepted_ = accepted_ || code == protocol::kAck;
    refused_ = refused_ || code == protocol::kEnq;
  }

  std::string held_;                // since the last start byte
  std::vector<std::string> texts_;  // of all frames that were no control answer
  bool accepted_ = false;           // since the last command
  bool refused_ = false;
};

}  // namespace vireon::fuzz
