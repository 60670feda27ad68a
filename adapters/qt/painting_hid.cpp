#include "adapters/qt/painting_hid.h"

#include <utility>

namespace vireon::adapters {
namespace {

using platform::HidTransfer;

class PaintingHandle : public platform::HidHandle {
 public:
  PaintingHandle(std::unique_ptr<platform::HidHandle> handle, BackgroundWorker& worker)
      : handle_(std::move(handle)), worker_(worker) {}
  PaintingHandle(const PaintingHandle&) = delete;
  PaintingHandle& operator=(const PaintingHandle&) = delete;
  ~PaintingHandle() override {
    worker_.run([this] { handle_.reset(); });
  }

  platform::HidCapabilities capabilities() const override { return handle_->capabilities(); }

  HidTransfer write(std::span<const std::uint8_t> report) override {
    auto outcome = HidTransfer::kFailed;
    worker_.run([&] { outcome = handle_->write(report); });
    return outcome;
  }

  HidTransfer read(std::span<std::uint8_t> report, std::chrono::milliseconds timeout) override {
    auto outcome = HidTransfer::kFailed;
    worker_.run([&] { outcome = handle_->read(report, timeout); });
    return outcome;
  }

  // Returns at once, so it needs no other thread.
  void discardInput() override { handle_->discardInput(); }

 private:
  std::unique_ptr<platform::HidHandle> handle_;
  BackgroundWorker& worker_;
};

}  // namespace

std::vector<platform::HidNode> PaintingHid::list() {
  std::vector<platform::HidNode> nodes;
  worker_.run([&] { nodes = hid_.list(); });
  return nodes;
}

platform::HidOpenResult PaintingHid::open(const platform::HidNode& node) {
  platform::HidOpenResult result;
  worker_.run([&] { result = hid_.open(node); });
  if (result.handle != nullptr) {
    result.handle = std::make_unique<PaintingHandle>(std::move(result.handle), worker_);
  }
  return result;
}

}  // namespace vireon::adapters
