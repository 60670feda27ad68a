#pragma once

#include <filesystem>

namespace vireon::simulator {

// A symbolic link to a terminal, as long as this lives.
class PortLink {
 public:
  // Takes the place of a link that leads nowhere. Throws std::runtime_error when anything else is there,
  // and when the link cannot be made.
  PortLink(std::filesystem::path path, std::filesystem::path target);
  PortLink(const PortLink&) = delete;
  PortLink& operator=(const PortLink&) = delete;
  // Removes the link unless someone put another one there.
  ~PortLink();

 private:
  std::filesystem::path path_;
  std::filesystem::path target_;
};

}  // namespace vireon::simulator
