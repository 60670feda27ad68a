#include "adapters/cups/cups_queue.h"

#include <cups/cups.h>

#include <memory>

namespace vireon::adapters {
namespace {

struct FreeDestination {
  void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};

class Options {
 public:
  Options() = default;
  Options(const Options&) = delete;
  Options& operator=(const Options&) = delete;
  ~Options() { cupsFreeOptions(count_, options_); }

  void add(const char* name, const char* value) { count_ = cupsAddOption(name, value, count_, &options_); }
  int count() const { return count_; }
  cups_option_t* get() const { return options_; }

 private:
  int count_ = 0;
  cups_option_t* options_ = nullptr;
};

bool write(const char* name, int job, const std::string& title, std::string_view document) {
  return cupsStartDocument(CUPS_HTTP_DEFAULT, name, job, title.c_str(), CUPS_FORMAT_PDF, 1) ==
             HTTP_STATUS_CONTINUE &&
         cupsWriteRequestData(CUPS_HTTP_DEFAULT, document.data(), document.size()) == HTTP_STATUS_CONTINUE &&
         cupsFinishDocument(CUPS_HTTP_DEFAULT, name) <= IPP_STATUS_OK_EVENTS_COMPLETE;
}

}  // namespace

platform::PrintResult printOnQueue(const std::string& queue, const std::string& title,
                                   std::string_view document) {
  const std::size_t slash = queue.find('/');
  const std::string name = queue.substr(0, slash);
  const std::string instance = slash == std::string::npos ? "" : queue.substr(slash + 1);
  const std::unique_ptr<cups_dest_t, FreeDestination> destination(
      cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.c_str(), instance.empty() ? nullptr : instance.c_str()));
  Options options;
  for (int i = 0; destination != nullptr && i < destination->num_options; ++i) {
    options.add(destination->options[i].name, destination->options[i].value);
  }
  // The pages have the printer's own size and margins.
  options.add("print-scaling", "none");
  const int job =
      cupsCreateJob(CUPS_HTTP_DEFAULT, name.c_str(), title.c_str(), options.count(), options.get());
  if (job == 0) {
    return platform::PrintResult::kRefused;
  }
  if (!write(name.c_str(), job, title, document)) {
    cupsCancelJob2(CUPS_HTTP_DEFAULT, name.c_str(), job, 1);
    return platform::PrintResult::kRefused;
  }
  return platform::PrintResult::kDone;
}

}  // namespace vireon::adapters
