#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QTimer>
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <future>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/posix/file_descriptor.h"
#include "adapters/qt/printer.h"
#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {
namespace {

// A variable of the environment for a scope.
class Variable {
 public:
  Variable(std::string name, const std::string& value) : name_(std::move(name)) {
    if (const char* const before = std::getenv(name_.c_str())) before_ = before;
    ::setenv(name_.c_str(), value.c_str(), 1);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() {
    if (before_) {
      ::setenv(name_.c_str(), before_->c_str(), 1);
    } else {
      ::unsetenv(name_.c_str());
    }
  }

 private:
  std::string name_;
  std::optional<std::string> before_;
};

// A print service that takes every connection and says nothing of its own accord, until it ends.
class SilentService {
 public:
  static constexpr std::chrono::seconds kLimit{30};

  SilentService() : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::copy(path_.begin(), path_.end(), std::begin(address.sun_path));
    up_ = path_.size() < sizeof address.sun_path &&
          ::bind(socket_.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
          ::listen(socket_.number(), SOMAXCONN) == 0;
  }
  SilentService(const SilentService&) = delete;
  SilentService& operator=(const SilentService&) = delete;

  ~SilentService() { end(); }

  bool up() const { return up_; }

  // Answers what was asked since the last time, whatever it was.
  void answer(std::string_view text) {
    for (int number = 0; number >= 0;) {
      number = ::accept4(socket_.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
      if (number >= 0) connections_.emplace_back(number);
    }
    std::array<char, 4096> question{};
    for (const adapters::FileDescriptor& connection : connections_) {
      if (::recv(connection.number(), question.data(), question.size(), 0) <= 0) continue;
      ::send(connection.number(), text.data(), text.size(), MSG_NOSIGNAL);
      ++answers_;
    }
  }
  int answers() const { return answers_; }

  void end() {
    if (ended_.exchange(true)) return;
    ::unlink(path_.c_str());
    socket_.close();
    over_.set_value();
  }

 private:
  TemporaryFolder folder_;
  const std::string path_ = folder_.file("socket");
  adapters::FileDescriptor socket_;
  std::vector<adapters::FileDescriptor> connections_;
  int answers_ = 0;
  bool up_ = false;
  const Variable server_{"CUPS_SERVER", path_};
  std::atomic<bool> ended_ = false;
  std::promise<void> over_;
  // Ends the service for a program that does nothing but wait for it.
  const std::future<void> guard_ = std::async(std::launch::async, [this] {
    if (over_.get_future().wait_for(kLimit) == std::future_status::timeout) end();
  });
};

constexpr std::string_view kWhoAreYou =
    "HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0\r\n\r\n";

// A dialog of the print support would open on a thread that may have none, and wait for its user. Comes
// first: the print support prepares its dialog on the thread that loads it.
TEST(AServiceThatWantsAPassword, IsTakenForOneWithoutPrinters) {
  SilentService service;
  ASSERT_TRUE(service.up());
  adapters::ModalGate gate;
  adapters::QtPrinter printer{gate};
  QTimer clock;
  clock.callOnTimeout([&] { service.answer(kWhoAreYou); });
  clock.start(1);
  EXPECT_NE(printer.begin(), nullptr);
  const int answers = service.answers();
  EXPECT_GT(answers, 0);
  EXPECT_EQ(printer.print("title", "document"), platform::PrintResult::kNoPrinter);
  EXPECT_GT(service.answers(), answers);
}

class HeldService : public testing::Test {
 protected:
  static constexpr int kTurns = 10;

  HeldService() {
    clock_.callOnTimeout([this] {
      if (++turns == kTurns) service.end();
    });
    clock_.start(1);
  }

  SilentService service;
  adapters::ModalGate gate;
  adapters::QtPrinter printer{gate};
  int turns = 0;  // of the event loop

 private:
  QTimer clock_;
};

TEST_F(HeldService, LetsTheWindowsPaintWhileThePaperIsAskedFor) {
  ASSERT_TRUE(service.up());
  const auto document = printer.begin();
  EXPECT_GE(turns, kTurns);
  ASSERT_NE(document, nullptr);
  EXPECT_GT(document->area().width, 0);
}

TEST_F(HeldService, LetsTheWindowsPaintWhileAPrinterIsLookedFor) {
  ASSERT_TRUE(service.up());
  EXPECT_EQ(printer.print("title", "document"), platform::PrintResult::kNoPrinter);
  EXPECT_GE(turns, kTurns);
}

}  // namespace
}  // namespace vireon::tests
