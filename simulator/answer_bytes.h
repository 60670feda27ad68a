#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/faults.h"
#include "simulator/instrument.h"

namespace vireon::simulator {

// What the instrument answers to a command, which it carries out unless a fault has it refuse.
std::string answerText(Instrument& instrument, std::string_view command, const Faults& faults);

// The bytes of an answer as they leave the instrument, marks included, with what the faults make of them.
std::vector<std::uint8_t> answerBytes(std::string text, const Faults& faults);

}  // namespace vireon::simulator
