#include "simulator/serve/control_lines.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "adapters/posix/file_descriptor.h"

namespace vireon::simulator::tests {
namespace {

struct Pipe {
  Pipe() {
    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
    out = adapters::FileDescriptor(ends[0]);
    in = adapters::FileDescriptor(ends[1]);
  }

  void put(std::string_view text) const {
    EXPECT_EQ(::write(in.number(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }

  std::string drain() const {
    std::string text;
    std::array<char, 4096> part{};
    for (ssize_t count = 1; count > 0;) {
      count = ::read(out.number(), part.data(), part.size());
      if (count > 0) text.append(part.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

  adapters::FileDescriptor out;
  adapters::FileDescriptor in;
};

TEST(LineReader, HandsOutWholeLinesAlone) {
  Pipe pipe;
  LineReader reader(pipe.out.number());
  pipe.put("plug\nunp");
  EXPECT_TRUE(reader.fill());
  EXPECT_EQ(reader.next(), "plug");
  EXPECT_EQ(reader.next(), std::nullopt);
  pipe.put("lug\n\n");
  EXPECT_TRUE(reader.fill());
  EXPECT_EQ(reader.next(), "unplug");
  EXPECT_EQ(reader.next(), "");
  EXPECT_EQ(reader.next(), std::nullopt);
}

TEST(LineReader, TellsTheEndAndNotThatNothingIsThere) {
  Pipe pipe;
  LineReader reader(pipe.out.number());
  EXPECT_TRUE(reader.fill());
  pipe.in.close();
  EXPECT_FALSE(reader.fill());
}

TEST(LineWriter, KeepsLinesForAReaderThatIsSlow) {
  Pipe pipe;
  LineWriter writer(pipe.in.number());
  std::string expected;
  for (int i = 0; i < 1000; ++i) {
    const std::string line = std::to_string(i) + std::string(500, '.');
    writer.say(line);
    expected += line + "\n";
    ASSERT_TRUE(writer.flush());
  }
  EXPECT_TRUE(writer.waiting());
  std::string text;
  while (writer.waiting()) {
    text += pipe.drain();
    ASSERT_TRUE(writer.flush());
  }
  text += pipe.drain();
  EXPECT_EQ(text, expected);
}

TEST(LineWriter, TellsThatNobodyReadsAnyMore) {
  Pipe pipe;
  LineWriter writer(pipe.in.number());
  pipe.out.close();
  writer.say("ready");
  EXPECT_FALSE(writer.flush());
  EXPECT_FALSE(writer.waiting());
}

TEST(Printable, WritesOtherBytesInHexadecimal) {
  EXPECT_EQ(printable("VDA?? ~"), "VDA?? ~");
  EXPECT_EQ(printable(std::string_view("\n\0\x7F\xFE", 4)), "\\x0A\\x00\\x7F\\xFE");
}

}  // namespace
}  // namespace vireon::simulator::tests
