#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vireon::simulator {

// The family: K7310 is scope, meter and logger; K7210 and K7201 are scopes with a plain meter; K7900 is
// that too, with dwell angle and a function text besides.
enum class Model { kK7310, kK7210, kK7201, kK7900 };

inline constexpr std::uint16_t kUsbVendorId = 0x10C4;

// USB product identifier, E001 to E004 hexadecimal.
std::uint16_t usbProductId(Model model);

// Identity, 5 characters, for example "K7310".
std::string_view identity(Model model);

// Characters of an identity in the answer to the identity query, blanks after a shorter one.
inline constexpr std::size_t kIdentityWidth = 6;

// The model of an identity, or nothing.
std::optional<Model> modelOf(std::string_view identity);

// Title the instrument gives itself, 1 to 30 printable characters without a comma.
std::string_view systemText(Model model);

// True for the model that records: it alone takes logger modes 1 to 5.
bool hasLogger(Model model);

// True for the model that measures dwell angle and knows its function by name.
bool hasDwell(Model model);

}  // namespace vireon::simulator
