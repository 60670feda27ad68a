#pragma once

#include "platform/message_pump.h"

namespace vireon::adapters {

// The event loop of the thread that has the windows.
class QtMessagePump : public platform::MessagePump {
 public:
  void pump() override;
  void wait() override;
  void waitAtMost(std::chrono::milliseconds limit) override;
};

}  // namespace vireon::adapters
