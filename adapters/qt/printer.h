#pragma once

#include <functional>

#include "adapters/qt/background_worker.h"
#include "adapters/qt/modal_gate.h"
#include "platform/printer.h"

namespace vireon::adapters {

// The system's printers. While a print service holds the program up, the windows go on painting.
class QtPrinter : public platform::Printer {
 public:
  // `gate` outlives the printer.
  explicit QtPrinter(ModalGate& gate) : worker_(gate) {}

  std::unique_ptr<platform::PrintDocument> begin() override;
  platform::PrintResult print(const std::string& title, std::string_view document) override;

 private:
  // Runs what may wait for the print service, on the one thread that the print support knows.
  void ask(const std::function<void()>& question);

  bool loaded_ = false;  // the print support, of the worker
  BackgroundWorker worker_;
};

}  // namespace vireon::adapters
