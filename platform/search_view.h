#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace vireon::platform {

// What the user sees of a search for the instrument, and the way to end it early. Texts are UTF-8.
class SearchView {
 public:
  static constexpr int kPorts = 4;
  static constexpr int kRates = 4;  // 9600 and its halves down to 1200
  static constexpr int kSteps = kPorts * kRates;

  SearchView() = default;
  SearchView(const SearchView&) = delete;
  SearchView& operator=(const SearchView&) = delete;
  virtual ~SearchView() = default;

  // Appears. Calls may be nested; only the outermost begin and end count.
  virtual void begin() = 0;

  // Shows that port number `com` is being tried at `baudRate`, the `step`-th pair from 1 to kSteps.
  virtual void trying(int com, std::string_view baudRate, int step) = 0;

  // Shows what would help, in one line and at length; stays until the search view goes.
  virtual void advise(const std::string& line, const std::string& text) = 0;

  // Disappears.
  virtual void end() = 0;

  // The user ends the search; comes from the message pump.
  std::function<void()> onCancel;
};

}  // namespace vireon::platform
