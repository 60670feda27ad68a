#include "tests/soak/resources.h"

#include <malloc.h>

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QPixmapCache>
#include <QWidget>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

// The toolkit's own hooks for tools that watch its objects; null in a program that nobody watches.
extern quintptr Q_CORE_EXPORT qtHookData[];
// The sanitizer's count; absent where the program is built without.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace vireon::soak {
namespace {

constexpr std::size_t kAddObject = 3;  // of qtHookData
constexpr std::size_t kRemoveObject = 4;
constexpr double kKibi = 1024;
constexpr const char* kAnyFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

std::atomic<std::int64_t> liveObjects{0};

double entriesOf(const char* folder) {
  return static_cast<double>(
      std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}

double heapInUse() {
  if (isSanitized()) {
    return static_cast<double>(__sanitizer_get_current_allocated_bytes()) / kKibi;
  }
  const struct mallinfo2 info = ::mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd) / kKibi;
}

// 0 under the sanitizer, which keeps freed memory for a while.
double residentKibi() {
  if (isSanitized()) {
    return 0;
  }
  std::ifstream file("/proc/self/status");
  for (std::string word; file >> word;) {
    if (word == "VmRSS:") {
      double kibi = 0;
      file >> kibi;
      return kibi;
    }
  }
  return 0;
}

// The toolkit's pixmap cache (Qt 6.4) never forgets the names of the pixmaps it dropped, and each palette and
// each size of a button makes new ones. So a plain build may grow by so many KiB with each act; under the
// sanitizers that cache is off.
constexpr double kNamesOfPixmaps = 0.6;

struct Measure {
  const char* name;
  double Resources::*value;
  double margin;  // that it may grow by
};
// The heap's and the resident memory's margins leave room for caches that fill slowly, such as glyphs.
constexpr std::array<Measure, 8> kMeasures{{{"acts", &Resources::acts, 1e12},
                                            {"heap KiB", &Resources::heap, 1024},
                                            {"resident KiB", &Resources::resident, 12288},
                                            {"descriptors", &Resources::files, 0},
                                            {"threads", &Resources::threads, 0},
                                            {"objects", &Resources::objects, 0},
                                            {"widgets", &Resources::widgets, 0},
                                            {"windows", &Resources::windows, 0}}};

bool isMemory(const Measure& measure) {
  return measure.value == &Resources::heap || measure.value == &Resources::resident;
}

double names(const Measure& measure) {
  return isMemory(measure) && !isSanitized() ? kNamesOfPixmaps : 0;
}

}  // namespace

bool isSanitized() {
  return __sanitizer_get_current_allocated_bytes != nullptr;
}

// The fonts' cache goes when the fonts change.
void emptyCaches(bool fonts) {
  QApplication::clipboard()->clear();
  QPixmapCache::clear();
  if (!fonts) {
    return;
  }
  QFontDatabase::addApplicationFont(QString::fromLatin1(kAnyFont));
  QFontDatabase::removeAllApplicationFonts();
}

void countObjects() {
  qtHookData[kAddObject] = reinterpret_cast<quintptr>(+[](QObject*) { ++liveObjects; });
  qtHookData[kRemoveObject] = reinterpret_cast<quintptr>(+[](QObject*) { --liveObjects; });
}

Resources Resources::now(std::uint64_t acts) {
  Resources sample;
  sample.acts = static_cast<double>(acts);
  sample.heap = heapInUse();
  sample.resident = residentKibi();
  sample.files = entriesOf("/proc/self/fd") - 1;  // without the one that reads the folder
  sample.threads = entriesOf("/proc/self/task");
  sample.objects = static_cast<double>(liveObjects.load());
  sample.widgets = static_cast<double>(QApplication::allWidgets().size());
  sample.windows = static_cast<double>(QApplication::topLevelWidgets().size());
  return sample;
}

std::string Resources::text() const {
  std::array<char, 200> line{};
  std::snprintf(
      line.data(), line.size(),
      "heap %.0f KiB, resident %.0f KiB, %g descriptors, %g threads, %g objects, %g widgets, %g windows",
      heap, resident, files, threads, objects, widgets, windows);
  return line.data();
}

Resources Growth::median(std::size_t from, std::size_t to) const {
  Resources result;
  for (const Measure& measure : kMeasures) {
    std::vector<double> values;
    for (std::size_t at = from; at < to; ++at) {
      values.push_back(samples_[at].*measure.value);
    }
    if (!values.empty()) {
      const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
      std::nth_element(values.begin(), middle, values.end());
      result.*measure.value = *middle;
    }
  }
  return result;
}

void Growth::judge(ActLog& log) const {
  if (samples_.size() < kFewest) {
    return;
  }
  const Resources before = early();
  const Resources between = middle();
  const Resources after = late();
  for (const Measure& measure : kMeasures) {
    const double first = between.*measure.value - before.*measure.value;
    const double second = after.*measure.value - between.*measure.value;
    const double grown = isMemory(measure) ? 2 * std::min(first, second) : first + second;
    const double margin = measure.value == &Resources::objects ? objects_
                          : measure.value == &Resources::widgets
                              ? widgets_
                              : measure.margin + names(measure) * (after.acts - before.acts);
    if (grown > margin) {
      std::array<char, 160> text{};
      std::snprintf(text.data(), text.size(), "%s grew %s: from %.0f to %.0f", measure.name, where_.c_str(),
                    before.*measure.value, after.*measure.value);
      log.finding(text.data());
    }
  }
}

}  // namespace vireon::soak
