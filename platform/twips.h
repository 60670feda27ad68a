#pragma once

namespace vireon::platform {

// The length in which panels, windows and pages are laid out.
inline constexpr double kTwipsPerInch = 1440;

}  // namespace vireon::platform
