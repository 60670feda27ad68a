#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "simulator/fault_names.h"
#include "simulator/faults.h"
#include "simulator/model.h"

namespace vireon::simulator {

// What the command line asks for.
struct Options {
  bool help = false;
  bool control = false;
  Model model = Model::kK7310;
  std::string folder;  // empty with a gadget
  int com = 1;         // 1 to 4
  int baud = 9600;     // 1200, 2400, 4800 or 9600
  std::string gadget;  // empty with a serial port
  std::string udcFile;
  Faults faults;

  Link link() const { return gadget.empty() ? Link::kSerial : Link::kUsb; }
};

// Reads the words behind the program's name. Throws UsageError for words without a meaning.
Options parseOptions(std::span<const std::string_view> words);

// Several lines for --help.
std::string optionHelp();

}  // namespace vireon::simulator
