#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace vireon::simulator {

// Lines read from one descriptor, which it does not own.
class LineReader {
 public:
  explicit LineReader(int descriptor) : descriptor_(descriptor) {}

  int descriptor() const { return descriptor_; }

  // Takes what is there, waiting if nothing is. False at the end.
  bool fill();

  // The next whole line without its end, or nothing.
  std::optional<std::string> next();

 private:
  int descriptor_;
  std::string text_;
};

// Lines written to one descriptor, which it does not own, as far as its reader keeps up; none is held back
// longer than that.
class LineWriter {
 public:
  explicit LineWriter(int descriptor) : descriptor_(descriptor) {}

  int descriptor() const { return descriptor_; }

  // A line of at most 4000 bytes, without its end.
  void say(std::string line);

  // Writes what can be written without waiting. False when nobody reads any more.
  bool flush();
  bool waiting() const { return !lines_.empty(); }

 private:
  int descriptor_;
  std::deque<std::string> lines_;
};

// A command as one line of printable characters: others are written as \xHH.
std::string printable(std::string_view command);

}  // namespace vireon::simulator
