#include "simulator/serve/control_lines.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace vireon::simulator {

bool LineReader::fill() {
  std::array<char, 4096> part{};
  const ssize_t count = ::read(descriptor_, part.data(), part.size());
  if (count < 0) return errno == EINTR || errno == EAGAIN;
  text_.append(part.data(), static_cast<std::size_t>(count));
  return count > 0;
}

std::optional<std::string> LineReader::next() {
  const std::size_t end = text_.find('\n');
  if (end == std::string::npos) return std::nullopt;
  std::string line = text_.substr(0, end);
  text_.erase(0, end + 1);
  return line;
}

void LineWriter::say(std::string line) {
  line += '\n';
  lines_.push_back(std::move(line));
}

// A pipe that takes anything takes 4096 bytes, so that no line is written in part.
bool LineWriter::flush() {
  while (!lines_.empty()) {
    pollfd state{descriptor_, POLLOUT, 0};
    if (::poll(&state, 1, 0) <= 0) return true;
    if (::write(descriptor_, lines_.front().data(), lines_.front().size()) < 0) {
      if (errno == EINTR || errno == EAGAIN) return true;
      lines_.clear();
      return false;
    }
    lines_.pop_front();
  }
  return true;
}

std::string printable(std::string_view command) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char c : command) {
    const auto byte = static_cast<unsigned char>(c);
    if (c >= ' ' && c <= '~') {
      text += c;
    } else {
      text.append("\\x").append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 15U]);
    }
  }
  return text;
}

}  // namespace vireon::simulator
