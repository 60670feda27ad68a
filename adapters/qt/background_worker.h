#pragma once

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

#include "adapters/qt/modal_gate.h"

namespace vireon::adapters {

// One thread for calls that the system may hold up. Who asks waits for the end of the call, but where it
// takes long the windows go on painting meanwhile; nothing else of the program happens until then.
class BackgroundWorker {
 public:
  // `gate` outlives the worker. To be used from the thread that has the windows.
  explicit BackgroundWorker(ModalGate& gate);
  BackgroundWorker(const BackgroundWorker&) = delete;
  BackgroundWorker& operator=(const BackgroundWorker&) = delete;
  ~BackgroundWorker();

  // Runs the work and returns after it, however the painting ends; what either throws is thrown on. Where it
  // is asked for while other work runs, that ends first.
  void run(const std::function<void()>& work);

 private:
  struct Job {
    const std::function<void()>& work;
    std::exception_ptr thrown;
    bool done = false;
  };

  void serve();
  bool doneWithin(const Job& job, std::chrono::milliseconds limit);
  void await(const Job& job);

  ModalGate& gate_;
  std::mutex mutex_;
  std::condition_variable changed_;
  Job* job_ = nullptr;  // of who asked, null when the worker is idle
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace vireon::adapters
