#include "adapters/cups/cups_thread.h"

#include "adapters/cups/cups_library.h"

namespace vireon::adapters {
namespace {

constexpr const char* kNoService = "/";  // a folder instead of a socket, so that it refuses at once

// The library's settings below are those of the calling thread.
class WithoutService {
 public:
  explicit WithoutService(const CupsLibrary& cups) : cups_(cups) { cups_.setServer(kNoService); }
  WithoutService(const WithoutService&) = delete;
  WithoutService& operator=(const WithoutService&) = delete;
  ~WithoutService() {
    cups_.setPasswordCallback(
        [](const char*, http_t*, const char*, const char*, void*) -> const char* { return nullptr; },
        nullptr);
    cups_.setServer(nullptr);
  }

 private:
  const CupsLibrary& cups_;
};

}  // namespace

void loadPrintSupport(const std::function<void()>& load) {
  const auto cups = CupsLibrary::load();
  if (!cups) {
    load();
    return;
  }
  const WithoutService without(*cups);
  load();
}

}  // namespace vireon::adapters
