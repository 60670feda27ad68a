#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "adapters/spreadsheet/gsf_compound_files.h"
#include "files/import_rows.h"
#include "files/workbook.h"
#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {

// A folder in which other programs make and read workbooks.
class InteropBench : public testing::Test {
 protected:
  // Debian's own, which has Debian's modules.
  inline static const std::string kPython = "/usr/bin/python3";

  // Runs a shell command with the folder as its current one; False where it failed.
  bool run(const std::string& command) const {
    const std::string line = "cd '" + folder_.path().string() + "' && { " + command + "; } >run.log 2>&1";
    return std::system(line.c_str()) == 0;  // NOLINT(concurrency-mt-unsafe)
  }

  bool hasModule(const std::string& name) const { return run(kPython + " -c 'import " + name + "'"); }
  bool hasProgram(const std::string& name) const { return run("command -v " + name); }

  static std::string script(const std::string& name) {
    return kPython + " '" + VIREON_SCRIPTS + "/" + name + "'";
  }

  // With a profile of its own, so that it meets no other instance.
  static std::string libreOffice(const std::string& arguments) {
    return "HOME=\"$PWD\" timeout 120 soffice -env:UserInstallation=file://\"$PWD\"/profile --headless " +
           arguments;
  }

  std::string read(const std::string& name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
  }
  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }

  std::string log() const { return read("run.log"); }

  platform::UnpackResult unpack(const std::string& name) const {
    return adapters::GsfCompoundFiles().unpack(read(name), files::kLargestWorkbook);
  }
  files::ImportResult import(const std::string& name) const {
    return files::importRows(unpack(name).workbook);
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace vireon::tests
