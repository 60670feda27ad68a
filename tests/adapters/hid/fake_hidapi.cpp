#include "tests/adapters/hid/fake_hidapi.h"

#include <fcntl.h>
#include <hidapi.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <utility>

using vireon::tests::FakeEntry;
using vireon::tests::FakeEvent;
using vireon::tests::FakeHidapi;
using vireon::tests::FakeWrite;

struct hid_device_ {
  FakeHidapi* library = nullptr;
};

namespace vireon::tests {
namespace {

// The hid_* functions are free functions and have no other way to the fake.
FakeHidapi*& living() {
  static FakeHidapi* fake = nullptr;
  return fake;
}

}  // namespace

FakeHidapi::FakeHidapi() {
  living() = this;
}
FakeHidapi::~FakeHidapi() {
  living() = nullptr;
}
FakeHidapi& FakeHidapi::current() {
  return *living();
}

adapters::NodeProbe FakeHidapi::probe() {
  return [this](const std::string& path) {
    probedPaths.push_back(path);
    adapters::NodeCheck check;
    check.error = openCalls > 0 ? probeErrorAfterOpen.value_or(probeError) : probeError;
    if (check.error != platform::HidOpenError::kNone) return check;
    check.reportDescriptor = reportDescriptor;
    check.heldOpen = adapters::FileDescriptor(::open("/dev/null", O_RDWR | O_CLOEXEC));
    probeDescriptor = check.heldOpen.number();
    return check;
  };
}

adapters::MonotonicClock FakeHidapi::clock() {
  return [this] { return std::chrono::steady_clock::time_point(now); };
}

void FakeHidapi::arrives(std::vector<std::uint8_t> report, std::chrono::milliseconds at) {
  events.push_back({.at = at, .kind = FakeEvent::Kind::kReport, .report = std::move(report)});
}

void FakeHidapi::happens(FakeEvent::Kind kind, std::chrono::milliseconds at) {
  events.push_back({.at = at, .kind = kind});
}

namespace {

int failWith(int errnoValue) {
  errno = errnoValue;
  return -1;
}

// A report longer than the buffer is cut and its rest lost, as the kernel does.
int copyReport(const std::vector<std::uint8_t>& report, unsigned char* data, std::size_t length) {
  const std::size_t count = std::min(report.size(), length);
  std::copy_n(report.begin(), count, data);
  return static_cast<int>(count);
}

int finish(const FakeEvent& event, unsigned char* data, std::size_t length) {
  switch (event.kind) {
    case FakeEvent::Kind::kReport:
      return copyReport(event.report, data, length);
    case FakeEvent::Kind::kSignal:
      return failWith(EINTR);
    case FakeEvent::Kind::kEarlyWake:
      return 0;
    case FakeEvent::Kind::kError:
      break;
  }
  return failWith(EIO);
}

int readFrom(FakeHidapi& fake, unsigned char* data, std::size_t length, int timeout) {
  ++fake.readCalls;
  if (timeout < 0) fake.waitedForEver = true;
  if (fake.streams) return copyReport(std::vector<std::uint8_t>(64, 0xAA), data, length);
  const std::chrono::milliseconds end = fake.now + std::chrono::milliseconds(std::max(timeout, 0));
  const bool eventInTime = !fake.events.empty() && fake.events.front().at <= end;
  if (fake.unpluggedAt && *fake.unpluggedAt <= end &&
      (!eventInTime || *fake.unpluggedAt <= fake.events.front().at)) {
    fake.now = std::max(fake.now, *fake.unpluggedAt);
    return -1;  // errno stays as it was, as in the library
  }
  if (!eventInTime) {
    fake.now = end;
    return 0;
  }
  const FakeEvent event = std::move(fake.events.front());
  fake.events.pop_front();
  fake.now = std::max(fake.now, event.at);
  return finish(event, data, length);
}

int writeTo(FakeHidapi& fake, std::vector<std::uint8_t> report) {
  ++fake.writeCalls;
  if (fake.signalStorm) {
    fake.now += std::chrono::milliseconds(1);
    return failWith(EINTR);
  }
  if (fake.writeAnswers.empty()) {
    fake.written.push_back(std::move(report));
    return static_cast<int>(fake.written.back().size());
  }
  const FakeWrite answer = fake.writeAnswers.front();
  fake.writeAnswers.pop_front();
  return answer.result < 0 ? failWith(answer.errnoValue) : answer.result;
}

// The library's lists are made of memory that its own function frees.
hid_device_info* listOf(const std::vector<FakeEntry>& entries) {
  hid_device_info* first = nullptr;
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
    auto info = std::make_unique<hid_device_info>();
    if (entry->path) {
      auto path = std::make_unique<char[]>(entry->path->size() + 1);
      std::ranges::copy(*entry->path, path.get());
      info->path = path.release();
    }
    info->vendor_id = entry->vendorId;
    info->product_id = entry->productId;
    info->next = first;
    first = info.release();
  }
  return first;
}

}  // namespace
}  // namespace vireon::tests

int hid_init() {
  ++FakeHidapi::current().initCalls;
  return FakeHidapi::current().initResult;
}

int hid_exit() {
  ++FakeHidapi::current().exitCalls;
  return 0;
}

hid_device_info* hid_enumerate(unsigned short, unsigned short) {
  return vireon::tests::listOf(FakeHidapi::current().entries);
}

void hid_free_enumeration(hid_device_info* devs) {
  while (devs != nullptr) {
    const std::unique_ptr<hid_device_info> info(devs);
    const std::unique_ptr<char[]> path(info->path);
    devs = info->next;
  }
}

hid_device* hid_open_path(const char*) {
  FakeHidapi& fake = FakeHidapi::current();
  ++fake.openCalls;
  fake.heldDuringOpen = ::fcntl(fake.probeDescriptor, F_GETFD) != -1;
  if (!fake.libraryOpens) return nullptr;
  ++fake.openDevices;
  return std::make_unique<hid_device>(hid_device{&fake}).release();
}

void hid_close(hid_device* dev) {
  const std::unique_ptr<hid_device> device(dev);
  --device->library->openDevices;
  if (device->library->exitCalls > 0) device->library->closedAfterExit = true;
}

int hid_read_timeout(hid_device* dev, unsigned char* data, size_t length, int milliseconds) {
  return vireon::tests::readFrom(*dev->library, data, length, milliseconds);
}

int hid_write(hid_device* dev, const unsigned char* data, size_t length) {
  return vireon::tests::writeTo(*dev->library, std::vector<std::uint8_t>(data, data + length));
}
