#include "simulator/model.h"

#include <array>
#include <cstddef>

namespace vireon::simulator {
namespace {

struct Description {
  std::string_view identity;
  std::string_view system;
};

constexpr std::array<Description, 4> kDescriptions{{{"K7310", "Vireon K7310 Scope and Meter"},
                                                    {"K7210", "Vireon K7210 Scope"},
                                                    {"K7201", "Vireon K7201 Scope"},
                                                    {"K7900", "Vireon K7900 Engine Meter"}}};

}  // namespace

std::uint16_t usbProductId(Model model) {
  return static_cast<std::uint16_t>(0xE001 + static_cast<unsigned>(model));
}

std::string_view identity(Model model) {
  return kDescriptions[static_cast<std::size_t>(model)].identity;
}

std::optional<Model> modelOf(std::string_view identity) {
  for (std::size_t i = 0; i < kDescriptions.size(); ++i) {
    if (kDescriptions[i].identity == identity) return static_cast<Model>(i);
  }
  return std::nullopt;
}

std::string_view systemText(Model model) {
  return kDescriptions[static_cast<std::size_t>(model)].system;
}

bool hasLogger(Model model) {
  return model == Model::kK7310;
}

bool hasDwell(Model model) {
  return model == Model::kK7900;
}

}  // namespace vireon::simulator
