#include "adapters/cups/cups_queue.h"

#include "adapters/cups/cups_library.h"

namespace vireon::adapters {
namespace {

class Options {
 public:
  explicit Options(const CupsLibrary& cups) : cups_(cups) {}
  Options(const Options&) = delete;
  Options& operator=(const Options&) = delete;
  ~Options() { cups_.freeOptions(count_, options_); }

  void add(const char* name, const char* value) { count_ = cups_.addOption(name, value, count_, &options_); }

  // Those that the user keeps for this queue; `instance` may be empty.
  void addKept(const std::string& name, const std::string& instance) {
    cups_dest_t* const queue =
        cups_.getNamedDest(CUPS_HTTP_DEFAULT, name.c_str(), instance.empty() ? nullptr : instance.c_str());
    for (int i = 0; queue != nullptr && i < queue->num_options; ++i) {
      add(queue->options[i].name, queue->options[i].value);
    }
    cups_.freeDests(1, queue);
  }

  int count() const { return count_; }
  cups_option_t* get() const { return options_; }

 private:
  const CupsLibrary& cups_;
  int count_ = 0;
  cups_option_t* options_ = nullptr;
};

bool write(const CupsLibrary& cups, const char* name, int job, const std::string& title,
           std::string_view document) {
  return cups.startDocument(CUPS_HTTP_DEFAULT, name, job, title.c_str(), CUPS_FORMAT_PDF, 1) ==
             HTTP_STATUS_CONTINUE &&
         cups.writeRequestData(CUPS_HTTP_DEFAULT, document.data(), document.size()) == HTTP_STATUS_CONTINUE &&
         cups.finishDocument(CUPS_HTTP_DEFAULT, name) <= IPP_STATUS_OK_EVENTS_COMPLETE;
}

}  // namespace

platform::PrintResult printOnQueue(const std::string& queue, const std::string& title,
                                   std::string_view document) {
  const auto cups = CupsLibrary::load();
  if (!cups) {
    return platform::PrintResult::kRefused;
  }
  const std::size_t slash = queue.find('/');
  const std::string name = queue.substr(0, slash);
  Options options(*cups);
  options.addKept(name, slash == std::string::npos ? "" : queue.substr(slash + 1));
  // The pages have the printer's own size and margins.
  options.add("print-scaling", "none");
  const int job =
      cups->createJob(CUPS_HTTP_DEFAULT, name.c_str(), title.c_str(), options.count(), options.get());
  if (job == 0) {
    return platform::PrintResult::kRefused;
  }
  if (!write(*cups, name.c_str(), job, title, document)) {
    cups->cancelJob2(CUPS_HTTP_DEFAULT, name.c_str(), job, 1);
    return platform::PrintResult::kRefused;
  }
  return platform::PrintResult::kDone;
}

}  // namespace vireon::adapters
