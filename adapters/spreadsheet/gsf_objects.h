#pragma once

#include <array>
#include <memory>

#include "adapters/spreadsheet/gsf_library.h"

namespace vireon::adapters {

struct ObjectRelease {
  const GsfLibrary* gsf;
  void operator()(gpointer object) const { gsf->unref(object); }
};

// Owns one reference to a GObject, or none.
template <typename Object>
using ObjectPtr = std::unique_ptr<Object, ObjectRelease>;

template <typename Object>
ObjectPtr<Object> own(const GsfLibrary& gsf, Object* object) {
  return ObjectPtr<Object>(object, ObjectRelease{&gsf});
}

// While it lives, what the library has to say of a damaged file does not reach the standard error output.
class QuietLibrary {
 public:
  QuietLibrary() {
    constexpr auto kEvery =
        static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_FATAL | G_LOG_FLAG_RECURSION);
    for (std::size_t index = 0; index < kDomains.size(); ++index) {
      handlers_[index] = g_log_set_handler(kDomains[index], kEvery, ignore, nullptr);
    }
  }
  QuietLibrary(const QuietLibrary&) = delete;
  QuietLibrary& operator=(const QuietLibrary&) = delete;
  ~QuietLibrary() {
    for (std::size_t index = 0; index < kDomains.size(); ++index) {
      g_log_remove_handler(kDomains[index], handlers_[index]);
    }
  }

 private:
  static constexpr std::array<const char*, 5> kDomains{nullptr, "libgsf", "libgsf:msole", "GLib",
                                                       "GLib-GObject"};

  static void ignore(const gchar* /*domain*/, GLogLevelFlags /*level*/, const gchar* /*message*/,
                     gpointer /*data*/) {}

  std::array<guint, kDomains.size()> handlers_{};
};

}  // namespace vireon::adapters
