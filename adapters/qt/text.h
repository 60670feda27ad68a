#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace vireon::adapters {

// A control's text, code page 1252, as the toolkit's; the five codes without a character become U+0080 etc.
QString shown(std::string_view text);

// A UTF-8 text, of a grid's cell, the status bar or a message, as the toolkit's.
QString shownUtf8(std::string_view text);

// What the user typed, UTF-8.
std::string typed(const QString& text);

}  // namespace vireon::adapters
