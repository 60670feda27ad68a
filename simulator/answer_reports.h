#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>

#include "simulator/faults.h"

namespace vireon::simulator {

inline constexpr std::size_t kReportPayload = 64;

struct AnswerReport {
  std::array<std::uint8_t, kReportPayload> bytes{};
  std::size_t length = kReportPayload;
  std::size_t copies = 1;
};

// Cuts answers into reports, with what the faults make of them.
class AnswerCutter {
 public:
  // The reports of one answer with its marks. Bytes behind the end mark are left over from the report
  // before, as in the device's buffer; behind an answer without end mark they are 0.
  std::deque<AnswerReport> cut(const std::string& text, const Faults& faults);

 private:
  std::array<std::uint8_t, kReportPayload> buffer_{};
};

}  // namespace vireon::simulator
