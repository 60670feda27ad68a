#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "tests/desktop/rig/child_process.h"
#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {

// A print service of its own, without a printer at first; this process uses it while it lives.
class PrintService {
 public:
  static bool canStart();

  PrintService();

  // Comes up, without a printer and without what was printed. Throws std::runtime_error when it does not.
  void start();

  // A printer that prints one document into a PDF file: A4 paper, printable from 36 to 559 points across and
  // from 72 to 770 points above the lower edge. It becomes the default one.
  void addPrinter();

  // The printer takes no document from now on.
  void refuse();

  // The service ends.
  void stop() { service_.reset(); }

  // The file, once the document is printed; empty when it does not come.
  std::string printed();

 private:
  void configure();
  void waitUntilUp();
  std::filesystem::path file() const { return folder_ / "printed.pdf"; }

  TemporaryFolder folder_;
  std::unique_ptr<ChildProcess> service_;
};

}  // namespace vireon::tests
