// How long the window goes without painting while a USB device holds an exchange up: a silent one (a read of
// 6 s) and one that takes no data (a write of 5 s). Figures, no judgement.
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "adapters/qt/painting_hid.h"
#include "bench/measured.h"

namespace {

using std::chrono::milliseconds;
using vireon::platform::HidTransfer;

class StubbornHandle : public vireon::platform::HidHandle {
 public:
  explicit StubbornHandle(int slowness) : slowness_(slowness) {}

  vireon::platform::HidCapabilities capabilities() const override { return {}; }
  HidTransfer write(std::span<const std::uint8_t> /*report*/) override {
    std::this_thread::sleep_for(milliseconds(5000) / slowness_);
    return HidTransfer::kFailed;
  }
  HidTransfer read(std::span<std::uint8_t> /*report*/, milliseconds timeout) override {
    std::this_thread::sleep_for(timeout / slowness_);
    return HidTransfer::kTimedOut;
  }
  void discardInput() override {}

 private:
  int slowness_;
};

class StubbornHid : public vireon::platform::RawHid {
 public:
  explicit StubbornHid(int slowness) : slowness_(slowness) {}

  std::vector<vireon::platform::HidNode> list() override { return {}; }
  vireon::platform::HidOpenResult open(const vireon::platform::HidNode& /*node*/) override {
    return {std::make_unique<StubbornHandle>(slowness_), vireon::platform::HidOpenError::kNone};
  }

 private:
  int slowness_;
};

// Wants to be painted anew every 5 ms, and knows the longest time between two paints.
class Watched : public QWidget {
 public:
  Watched() {
    connect(&wish_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
    wish_.start(5);
  }

  void begin() {
    since_.start();
    longest_ = 0;
    paints_ = 0;
  }
  qint64 longest() const { return std::max(longest_, since_.elapsed()); }
  int paints() const { return paints_; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    longest_ = std::max(longest_, since_.restart());
    ++paints_;
  }

 private:
  QTimer wish_;
  QElapsedTimer since_;
  qint64 longest_ = 0;
  int paints_ = 0;
};

void report(const std::string& device, const Watched& window) {
  vireon::bench::measured(device + ".paints", window.paints(), "in all");
  vireon::bench::measured(device + ".gap", static_cast<double>(window.longest()), "ms");
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const bool quick = argc > 1 && std::string_view(argv[1]) == "--quick";
  Watched window;
  window.resize(731, 386);
  window.show();
  QApplication::processEvents();

  vireon::adapters::ModalGate gate;
  StubbornHid stubborn(quick ? 10 : 1);
  vireon::adapters::PaintingHid hid(stubborn, gate);
  const auto handle = hid.open({}).handle;
  std::array<std::uint8_t, 65> bytes{};
  window.begin();
  handle->read(bytes, milliseconds(6000));
  report("silent", window);
  window.begin();
  handle->write(bytes);
  report("deaf", window);
  return 0;
}
