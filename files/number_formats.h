#pragma once

#include <cstdint>
#include <string_view>

#include "files/cell_value.h"

namespace vireon::files {

// What a format shows numbers as, by the code that the workbook gives it, e.g. "yyyy-mm-dd" or "0.00".
NumberKind numberKindOf(std::string_view code);

// The same of a format that needs no code, by its number.
NumberKind builtInNumberKind(std::uint16_t format);

}  // namespace vireon::files
