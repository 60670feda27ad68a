#include "protocol/trend_point.h"

#include "form/fault.h"
#include "protocol/reply_text.h"

namespace vireon::protocol {

double numberOf(const TrendPoint& point) {
  if (const auto* text = std::get_if<std::string>(&point)) {
    if (!text->starts_with("&H")) {
      throw form::Fault(form::FaultKind::kConversion);
    }
    return hexValue(std::string_view(*text).substr(2));
  }
  const auto* number = std::get_if<double>(&point);
  return number != nullptr ? *number : 0.0;
}

}  // namespace vireon::protocol
