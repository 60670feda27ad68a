#pragma once

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

  // Runs the job and returns after it; what it throws is thrown on.
  void run(const std::function<void()>& job);

 private:
  void serve();
  bool doneWithin(int milliseconds);

  ModalGate& gate_;
  std::mutex mutex_;
  std::condition_variable changed_;
  const std::function<void()>* job_ = nullptr;  // null when the worker is idle
  std::exception_ptr thrown_;                   // by the last job
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace vireon::adapters
