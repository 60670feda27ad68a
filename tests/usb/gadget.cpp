#include "tests/usb/gadget.h"

#include <array>
#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "tests/usb/waiting.h"

namespace vireon::tests {
namespace {

namespace fs = std::filesystem;

std::string reportDescriptor(std::uint8_t length) {
  const std::array<std::uint8_t, 27> items{0x06, 0x00,   0xFF,  // usage page: vendor
                                           0x09, 0x01,          // usage 1
                                           0xA1, 0x01,          // collection: application
                                           0x15, 0x00,          //   logical minimum 0
                                           0x26, 0xFF,   0x00,  //   logical maximum 255
                                           0x75, 0x08,          //   report size 8
                                           0x95, length,        //   report count
                                           0x09, 0x01,          //   usage 1
                                           0x81, 0x02,          //   input: data, variable
                                           0x09, 0x02,          //   usage 2
                                           0x91, 0x02,          //   output: data, variable
                                           0xC0};               // end collection
  return {items.begin(), items.end()};
}

void put(const fs::path& file, std::string_view text) {
  std::ofstream out(file, std::ios::binary);
  out << text << std::flush;
  if (!out) throw std::runtime_error("cannot write " + file.string());
}

std::string hexadecimal(std::uint16_t value) {
  std::array<char, 4> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
  return "0x" + std::string(digits.data(), end);
}

bool isNode(const fs::path& path) {
  std::error_code gone;
  return fs::is_character_file(path, gone);
}

}  // namespace

Gadget::Gadget(UsbIds ids, int controller, std::uint8_t reportLength)
    : folder_("/sys/kernel/config/usb_gadget/vireon" + std::to_string(controller)), controller_(controller) {
  fs::create_directory(folder_);
  put(folder_ / "idVendor", hexadecimal(ids.vendor));
  put(folder_ / "idProduct", hexadecimal(ids.product));
  const fs::path function = folder_ / "functions/hid.0";
  fs::create_directory(function);
  put(function / "report_length", std::to_string(reportLength));
  put(function / "report_desc", reportDescriptor(reportLength));
  fs::create_directory(folder_ / "configs/c.1");
  fs::create_directory_symlink(function, folder_ / "configs/c.1/hid.0");
}

Gadget::~Gadget() {
  std::error_code ignored;
  try {
    bind("\n");
  } catch (const std::runtime_error&) {
  }
  waitForNoHostNode();
  fs::remove(folder_ / "configs/c.1/hid.0", ignored);
  fs::remove(folder_ / "configs/c.1", ignored);
  fs::remove(folder_ / "functions/hid.0", ignored);
  fs::remove(folder_, ignored);
}

Gadget& Gadget::plug() {
  bind("dummy_udc." + std::to_string(controller_));
  if (!waitForHostNode()) throw std::runtime_error("the host made no node");
  return *this;
}

void Gadget::unplug() {
  bind("\n");
  if (!waitForNoHostNode()) throw std::runtime_error("the host kept the node");
}

void Gadget::bind(const std::string& controller) const {
  put(udcFile(), controller);
}

std::string Gadget::deviceNode() const {
  std::string numbers;
  std::ifstream(folder_ / "functions/hid.0/dev") >> numbers;
  return "/dev/hidg" + numbers.substr(numbers.find(':') + 1);
}

std::optional<std::string> Gadget::hostNode() const {
  const std::string mine = "/dummy_hcd." + std::to_string(controller_) + "/";
  std::error_code gone;
  for (const fs::directory_entry& entry : fs::directory_iterator("/sys/class/hidraw", gone)) {
    const fs::path target = fs::read_symlink(entry.path(), gone);
    const fs::path node = "/dev" / entry.path().filename();
    if (target.string().find(mine) != std::string::npos && isNode(node)) return node.string();
  }
  return std::nullopt;
}

bool Gadget::waitForHostNode() const {
  return waitUntil([this] { return hostNode().has_value(); });
}

bool Gadget::waitForNoHostNode() const {
  return waitUntil([this] { return !hostNode(); });
}

std::vector<std::string> openHostNodes() {
  std::vector<std::string> nodes;
  for (const fs::directory_entry& entry : fs::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    const std::string target = fs::read_symlink(entry.path(), gone).string();
    if (target.starts_with("/dev/hidraw")) nodes.push_back(target);
  }
  return nodes;
}

}  // namespace vireon::tests
