// The serial link over a pseudo-terminal: how soon an answer is taken in, how many exchanges a paced line
// gets, and what waiting costs. Figures, no judgement.
#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <termios.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "adapters/qt/serial_port.h"
#include "app/executables/session.h"
#include "bench/bench_rig.h"
#include "bench/measured.h"
#include "protocol/vocabulary.h"

namespace {

using Clock = std::chrono::steady_clock;
using vireon::bench::measured;

constexpr int kBaud = 9600;
constexpr int kBitsPerByte = 10;

double milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

Clock::duration lineTime(std::size_t bytes) {
  return std::chrono::nanoseconds(bytes * kBitsPerByte * 1'000'000'000ULL / kBaud);
}

double processorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_THREAD, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// The far end of the line, on a thread of its own: answers each command as a line of 9600 baud lets it.
class Instrument {
 public:
  Instrument() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    std::array<char, 128> name{};
    termios settings{};
    if (::grantpt(master_) != 0 || ::unlockpt(master_) != 0 ||
        ::ptsname_r(master_, name.data(), name.size()) != 0 || ::tcgetattr(master_, &settings) != 0) {
      std::perror("pseudo-terminal");
      std::exit(1);
    }
    ::cfmakeraw(&settings);
    ::tcsetattr(master_, TCSANOW, &settings);
    path = name.data();
    // Kept open, so that the line is never hung up between two openings.
    keeper_ = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    thread_ = std::thread([this] { serve(); });
  }
  Instrument(const Instrument&) = delete;
  Instrument& operator=(const Instrument&) = delete;
  ~Instrument() {
    ending_ = true;
    thread_.join();
    ::close(keeper_);
    ::close(master_);
  }

  std::string path;
  std::string answer = "\2vda:04\3";
  std::atomic<bool> silent = false;
  std::atomic<Clock::rep> lastByte = 0;  // when the answer was complete

 private:
  void serve() {
    while (!ending_) {
      pollfd state{master_, POLLIN, 0};
      if (::poll(&state, 1, 20) <= 0) {
        continue;
      }
      const auto begin = Clock::now();
      std::string command;
      while (command.empty() || command.back() != '\3') {
        std::array<char, 256> part{};
        const ssize_t count = ::read(master_, part.data(), part.size());
        if (count <= 0) {
          return;
        }
        command.append(part.data(), static_cast<std::size_t>(count));
      }
      if (!silent) {
        send(begin + lineTime(command.size()));
      }
    }
  }

  void send(Clock::time_point from) {
    for (std::size_t i = 0; i < answer.size(); ++i) {
      std::this_thread::sleep_until(from + lineTime(i + 1));
      if (i + 1 == answer.size()) {
        lastByte = Clock::now().time_since_epoch().count();
      }
      if (::write(master_, &answer[i], 1) != 1) {
        return;
      }
    }
  }

  int master_;
  int keeper_ = -1;
  std::atomic<bool> ending_ = false;
  std::thread thread_;
};

class NoHid : public vireon::platform::RawHid {
 public:
  std::vector<vireon::platform::HidNode> list() override { return {}; }
  vireon::platform::HidOpenResult open(const vireon::platform::HidNode& /*node*/) override { return {}; }
};

// The whole window, connected.
struct Rig {
  Instrument instrument;
  NoHid hid;
  vireon::adapters::ModalGate gate;
  vireon::adapters::QtSerialPort serialPort{gate,
                                            [this](int) { return QString::fromStdString(instrument.path); }};
  vireon::app::MemoryFileStore files;
  vireon::app::Session session{{hid, serialPort, files}, "", gate};

  Rig() {
    files.replace("/vireon.ini", "[Tabs]\nTabs=2\n[ComPort]\nComPort=1\n[BaudRate]\nBaudRate=9600\n");
    session.show();
    session.program().connection.serial().com_open();
    QApplication::processEvents();
  }

  bool exchange(std::string_view command = vireon::protocol::kQueryFunction) {
    std::string text(command);
    session.program().connection.serial().trans_rs2(text);
    return session.program().link.rxDone;
  }
};

// False when an exchange fails.
bool tellOfExchanges(Rig& rig, const char* name, int count) {
  const std::string command(vireon::protocol::kQueryFunction);
  std::vector<double> late;
  const auto begin = Clock::now();
  for (int i = 0; i < count; ++i) {
    if (!rig.exchange(command)) {
      std::fprintf(stderr, "serial %s: an exchange failed\n", name);
      return false;
    }
    const Clock::time_point last{Clock::duration(rig.instrument.lastByte)};
    late.push_back(milliseconds(Clock::now() - last));
  }
  const double took = milliseconds(Clock::now() - begin) / 1000;
  const double allowed = 1000 / milliseconds(lineTime(command.size() + 2 + rig.instrument.answer.size()));
  std::sort(late.begin(), late.end());
  const auto tell = [name](const char* what, double value, const char* unit) {
    measured(std::string("serial.") + name + what, value, unit);
  };
  tell(".exchanges", count / took, "a second");
  tell(".allowed", allowed, "a second");
  tell(".late", late[late.size() / 2], "ms");
  tell(".latest", late.back(), "ms");
  return true;
}

void tellOfWaiting(Rig& rig) {
  rig.instrument.silent = true;
  auto& program = rig.session.program();
  program.link.comWait = 2000;
  program.connection.serial().probing = true;  // the end of the wait is this bench's to tell
  const auto begin = Clock::now();
  const double before = processorSeconds();
  rig.exchange();
  measured("serial.wait.processor",
           100000 * (processorSeconds() - before) / milliseconds(Clock::now() - begin), "%");
}

}  // namespace

int main(int argc, char** argv) {
  const bool quick = argc > 1 && std::string_view(argv[1]) == "--quick";
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  Rig rig;
  rig.exchange();
  if (!tellOfExchanges(rig, "setting", quick ? 5 : 200)) return 1;
  rig.instrument.answer = "\2drs:" + std::string(284, 'A') + "\3";
  if (!tellOfExchanges(rig, "waveform", quick ? 1 : 20)) return 1;
  tellOfWaiting(rig);
  return 0;
}
