#include "meter/parameter_check.h"

#include <algorithm>
#include <string>

#include "form/text_encoding.h"
#include "protocol/reply_text.h"

namespace vireon::meter {
namespace {

bool isControl(char character) {
  const char32_t code = form::characterOf(static_cast<unsigned char>(character));
  return code < 32 || (code >= 127 && code < 160);
}

// What is wrong with the text of a box; empty when nothing is.
std::string complaint(const form::TextBox& box) {
  const std::string& text = box.text();
  if (protocol::trimmed(text).empty()) {
    return "must not be empty.";
  }
  if (text.find_first_of(";,") != std::string::npos) {
    return "must not contain \";\" or \",\".";
  }
  if (std::any_of(text.begin(), text.end(), isControl)) {
    return "must not contain a control character.";
  }
  return box.complete() ? "" : "contains a letter that the instrument does not know.";
}

std::string nameOf(const form::Label& label) {
  const std::string caption = form::utf8From1252(label.caption());
  return caption.substr(0, caption.find_last_not_of(": ") + 1);
}

}  // namespace

bool accepts(const form::TextBox& box, const form::Label& label, platform::MessageBoxes& messages) {
  const std::string wrong = complaint(box);
  if (!wrong.empty()) {
    messages.show({"Parameter", "\"" + nameOf(label) + "\" " + wrong, platform::MessageIcon::kExclamation,
                   platform::MessageButtons::kOk});
  }
  return wrong.empty();
}

}  // namespace vireon::meter
