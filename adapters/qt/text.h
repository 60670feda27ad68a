#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace vireon::adapters {

// A control's text, code page 1252, as the toolkit's; the five codes without a character become U+0080 etc.
QString shown(std::string_view text);

// The reverse; a character outside code page 1252 becomes "?".
std::string typed(const QString& text);

}  // namespace vireon::adapters
