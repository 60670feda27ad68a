#include "simulator/serve/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "simulator/usage_error.h"

namespace vireon::simulator {
namespace {

constexpr std::array<std::string_view, 7> kWithValue{"--model", "--com",      "--folder", "--baud",
                                                     "--fault", "--udc-file", "--gadget"};
constexpr std::array<int, 4> kPorts{1, 2, 3, 4};
constexpr std::array<int, 4> kBauds{1200, 2400, 4800, 9600};

std::string named(std::string_view option, std::string_view value) {
  return std::string(option) + " " + std::string(value);
}

template <std::size_t count>
int oneOf(const std::array<int, count>& choices, std::string_view option, std::string_view value) {
  int number = 0;
  const auto* const end = value.data() + value.size();
  const auto [stopped, error] = std::from_chars(value.data(), end, number);
  if (error == std::errc{} && stopped == end &&
      std::find(choices.begin(), choices.end(), number) != choices.end()) {
    return number;
  }
  std::string message = named(option, value) + " is none of";
  for (const int choice : choices) message.append(" ").append(std::to_string(choice));
  throw UsageError(message);
}

Model modelNamed(std::string_view value) {
  if (const auto model = modelOf(value)) return *model;
  throw UsageError(named("--model", value) + " is none of K7310 K7210 K7201 K7900");
}

// Collects the words one by one; what they have to do with each other is looked at in the end.
class Reader {
 public:
  void take(std::string_view option, std::string_view value) {
    if (option == "--model") options_.model = modelNamed(value);
    if (option == "--com") options_.com = oneOf(kPorts, option, value);
    if (option == "--baud") options_.baud = oneOf(kBauds, option, value);
    if (option == "--folder") options_.folder = value;
    if (option == "--gadget") options_.gadget = value;
    if (option == "--udc-file") options_.udcFile = value;
    if (option == "--fault") faultLists_.push_back(value);
    forPort_ = forPort_ || option == "--com" || option == "--baud";
  }

  void takeFlag(std::string_view option) {
    if (option == "--help") {
      options_.help = true;
    } else if (option == "--control") {
      options_.control = true;
    } else {
      throw UsageError("there is no option " + std::string(option));
    }
  }

  Options finish() {
    if (options_.help) return options_;
    const bool port = !options_.folder.empty();
    if (port == !options_.gadget.empty()) throw UsageError("give either --folder or --gadget");
    if (!port && forPort_) throw UsageError("--com and --baud are for a serial port");
    if (port && !options_.udcFile.empty()) throw UsageError("--udc-file is for a USB gadget");
    for (const std::string_view list : faultLists_) addFaults(options_.faults, list, options_.link());
    if (options_.faults.unplugAtReport && options_.udcFile.empty()) {
      throw UsageError("the fault \"unplug\" needs --udc-file");
    }
    return options_;
  }

 private:
  Options options_;
  std::vector<std::string_view> faultLists_;
  bool forPort_ = false;
};

}  // namespace

Options parseOptions(std::span<const std::string_view> words) {
  Reader reader;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::size_t equals = std::min(words[i].find('='), words[i].size());
    const std::string_view option = words[i].substr(0, equals);
    if (std::find(kWithValue.begin(), kWithValue.end(), option) == kWithValue.end()) {
      reader.takeFlag(words[i]);
      continue;
    }
    const bool joined = equals < words[i].size();
    if (!joined && i + 1 == words.size()) throw UsageError(std::string(option) + " needs a value");
    const std::string_view value = joined ? words[i].substr(equals + 1) : words[++i];
    if (value.empty()) throw UsageError(std::string(option) + " needs a value");
    reader.take(option, value);
  }
  return reader.finish();
}

std::string optionHelp() {
  return "vireon-simulator: the simulated instrument for other programs.\n"
         "\n"
         "  vireon-simulator --folder DIR [--com N] [--baud N] [OPTION...]\n"
         "      A serial instrument. Other programs open DIR/COMn.\n"
         "  vireon-simulator --gadget NODE [--udc-file FILE] [OPTION...]\n"
         "      A USB instrument at the node of a HID gadget, such as /dev/hidg0.\n"
         "\n"
         "  --folder DIR      make the port in this folder, which must exist\n"
         "  --com N           number of the port: 1 to 4 (1)\n"
         "  --baud N          1200, 2400, 4800 or 9600 (9600)\n"
         "  --gadget NODE     serve reports at this node\n"
         "  --udc-file FILE   the gadget's UDC file, by which it is unplugged and plugged in\n"
         "  --model NAME      K7310, K7210, K7201 or K7900 (K7310)\n"
         "  --fault LIST      NAME[=VALUE],... of the faults below; may be repeated\n"
         "  --control         take lines on the standard input, and end when it ends:\n"
         "                      fault LIST   replace all faults\n"
         "                      unplug, plug, quit\n"
         "                    each answered by ok or error REASON; command TEXT and unplugged tell\n"
         "                    what happens\n"
         "  --help            show this\n"
         "\n"
         "Faults (in parentheses: the value when none is given)\n" +
         faultHelp();
}

}  // namespace vireon::simulator
