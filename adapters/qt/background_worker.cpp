#include "adapters/qt/background_worker.h"

#include <chrono>

#include "adapters/qt/painting_turn.h"

namespace vireon::adapters {
namespace {

constexpr std::chrono::milliseconds kPatience{10};  // without painting

}  // namespace

BackgroundWorker::BackgroundWorker(ModalGate& gate) : gate_(gate), thread_([this] { serve(); }) {}

BackgroundWorker::~BackgroundWorker() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void BackgroundWorker::run(const std::function<void()>& work) {
  Job job{work, nullptr};
  {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return job_ == nullptr; });
    job_ = &job;
  }
  changed_.notify_all();
  try {
    while (!doneWithin(job, kPatience)) {
      paintingTurn(gate_);
    }
  } catch (...) {
    await(job);
    throw;
  }
  if (job.thrown != nullptr) {
    std::rethrow_exception(job.thrown);
  }
}

bool BackgroundWorker::doneWithin(const Job& job, std::chrono::milliseconds limit) {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, limit, [&job] { return job.done; });
}

void BackgroundWorker::await(const Job& job) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&job] { return job.done; });
}

void BackgroundWorker::serve() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return job_ != nullptr || ending_; });
    if (ending_) {
      return;
    }
    Job& job = *job_;
    lock.unlock();
    try {
      job.work();
    } catch (...) {
      job.thrown = std::current_exception();
    }
    lock.lock();
    job_ = nullptr;
    job.done = true;
    changed_.notify_all();
  }
}

}  // namespace vireon::adapters
