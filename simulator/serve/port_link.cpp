#include "simulator/serve/port_link.h"

#include <stdexcept>
#include <system_error>
#include <utility>

namespace vireon::simulator {

PortLink::PortLink(std::filesystem::path path, std::filesystem::path target)
    : path_(std::move(path)), target_(std::move(target)) {
  std::error_code error;
  if (std::filesystem::is_symlink(path_, error) && !std::filesystem::exists(path_, error)) {
    std::filesystem::remove(path_, error);
  }
  std::filesystem::create_symlink(target_, path_, error);
  if (error) throw std::runtime_error("cannot make the link " + path_.string() + ": " + error.message());
}

PortLink::~PortLink() {
  std::error_code error;
  if (std::filesystem::read_symlink(path_, error) == target_) std::filesystem::remove(path_, error);
}

}  // namespace vireon::simulator
