#include "simulator/serve/udc_file.h"

#include <fcntl.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "adapters/posix/file_descriptor.h"

namespace vireon::simulator {

UdcFile::UdcFile(std::filesystem::path path) : path_(std::move(path)) {
  std::ifstream file(path_);
  std::getline(file, name_);
  if (name_.empty()) throw std::runtime_error(path_.string() + " names no USB device controller");
}

void UdcFile::write(const std::string& name) const {
  const std::string line = name + "\n";
  const adapters::FileDescriptor file(::open(path_.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
  if (!file.isOpen() || ::write(file.number(), line.data(), line.size()) < 0) {
    throw std::runtime_error("cannot write " + path_.string() + ": " + std::strerror(errno));
  }
}

}  // namespace vireon::simulator
