#pragma once

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <string>

#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {

// The process writes numbers as in "1.234,5" meanwhile, where the system can make such a locale.
class CommaLocale {
 public:
  CommaLocale() {
    std::ofstream(folder_ / "source") << "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\n"
                                         "grouping 3;3\nEND LC_NUMERIC\n";
    // It complains of all that the source leaves out, and fails; what there is it makes.
    const std::string compile = "localedef -c -i " + (folder_ / "source").string() + ' ' +
                                (folder_ / "comma").string() + " >/dev/null 2>&1";
    if (std::system(compile.c_str()) == -1) return;
    ::setenv("LOCPATH", folder_.path().c_str(), 1);
    made_ = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    ::unsetenv("LOCPATH");
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale() { std::setlocale(LC_NUMERIC, "C"); }

  bool made() const { return made_; }

 private:
  TemporaryFolder folder_;
  bool made_ = false;
};

}  // namespace vireon::tests
