#pragma once

#include <string>
#include <string_view>

#include "platform/printer.h"

namespace vireon::adapters {

// Hands a PDF document to the print service's queue of that name ("name" or "name/instance"), with the
// options that the user keeps for it. Blocks until the service has taken all of it or refused.
platform::PrintResult printOnQueue(const std::string& queue, const std::string& title,
                                   std::string_view document);

}  // namespace vireon::adapters
