#include "adapters/qt/serial_port.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <QTimer>
#include <memory>
#include <optional>

#include "tests/adapters/qt/serial/open_files.h"
#include "tests/adapters/qt/serial/terminal.h"
#include "tests/fakes/unprivileged.h"

namespace vireon::tests {
namespace {

using adapters::NodePatience;
using adapters::QtSerialPort;
using platform::SerialOpenError;

// Counts what the event loop delivers to anyone.
class EventCounter : public QObject {
 public:
  EventCounter() { qApp->installEventFilter(this); }
  int events = 0;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    ++events;
    return QObject::eventFilter(object, event);
  }
};

class QtSerialPortTest : public testing::Test {
 protected:
  static constexpr int kLimit = 30000;  // milliseconds

  QtSerialPortTest() {
    port.onArrival = [this] {
      EXPECT_FALSE(calling) << "an event from inside a function";
      ++arrivals;
    };
    port.onLost = [this] {
      EXPECT_FALSE(calling) << "an event from inside a function";
      EXPECT_FALSE(port.isOpen());
      ++losses;
    };
  }

  static NodePatience noPatience() {
    NodePatience patience;
    patience.age = [](const std::string&) { return 60.0; };
    return patience;
  }

  template <class Call>
  auto called(const Call& call) {
    calling = true;
    auto result = call();
    calling = false;
    return result;
  }

  platform::SerialOpenResult open(int baud = 9600) {
    return called([&] { return port.open(1, {baud, 'N', 8, 1}); });
  }
  bool write(std::string_view text) {
    return called([&] {
      return port.write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    });
  }
  std::string read(std::size_t limit = 100000) {
    return called([&] {
      const auto bytes = port.read(limit);
      return std::string(bytes.begin(), bytes.end());
    });
  }
  template <class Fact>
  static bool until(const Fact& fact) {
    return QTest::qWaitFor(fact, kLimit);
  }
  // Lets everything happen that is going to happen without anything new.
  static void settle() {
    for (int turn = 0; turn < 100; ++turn) {
      QCoreApplication::processEvents();
    }
  }

  std::unique_ptr<Terminal> line = std::make_unique<Terminal>();
  QString device = QString::fromStdString(line->path());
  bool calling = false;
  int arrivals = 0;
  int losses = 0;
  adapters::ModalGate gate;
  QtSerialPort port{gate, [this](int com) { return com == 1 ? device : QString(); }, noPatience()};
};

TEST_F(QtSerialPortTest, OpensATerminalThatHasNoModemLinesAndNoParity) {
  const auto result = open();
  EXPECT_EQ(result.error, SerialOpenError::kNone);
  EXPECT_EQ(result.device, line->path());
  EXPECT_TRUE(port.isOpen());
  EXPECT_EQ(port.open(1, {9600, 'E', 7, 2}).error, SerialOpenError::kNone);
  settle();
  EXPECT_EQ(losses, 0);
}

TEST_F(QtSerialPortTest, SetsEachBaudRate) {
  for (const auto& [baud, speed] : std::initializer_list<std::pair<int, speed_t>>{
           {1200, B1200}, {2400, B2400}, {4800, B4800}, {9600, B9600}}) {
    ASSERT_EQ(open(baud).error, SerialOpenError::kNone);
    EXPECT_EQ(line->speed(), speed) << baud;
  }
}

TEST_F(QtSerialPortTest, APortThatIsNotThereIsNotFound) {
  EXPECT_EQ(port.open(2, {}).error, SerialOpenError::kNotFound);
  device = QStringLiteral("/dev/vireon-nothing");
  const auto result = open();
  EXPECT_EQ(result.error, SerialOpenError::kNotFound);
  EXPECT_EQ(result.device, "/dev/vireon-nothing");
  EXPECT_FALSE(port.isOpen());
}

TEST_F(QtSerialPortTest, APortThatSomebodyElseHasIsInUseAndNoMatterOfPermission) {
  QtSerialPort other(
      gate, [this](int) { return device; }, noPatience());
  ASSERT_EQ(other.open(1, {}).error, SerialOpenError::kNone);
  EXPECT_EQ(open().error, SerialOpenError::kInUse);
  EXPECT_FALSE(port.isOpen());
  other.close();
  EXPECT_EQ(open().error, SerialOpenError::kNone);
}

TEST_F(QtSerialPortTest, ANodeThatRefusesThisAccountNamesItsGroup) {
  ASSERT_EQ(::chmod(line->path().c_str(), 0), 0);
  const Unprivileged account;
  const auto result = open();
  EXPECT_EQ(result.error, SerialOpenError::kNoPermission);
  EXPECT_EQ(result.device, line->path());
  EXPECT_FALSE(result.group.empty());
  EXPECT_FALSE(port.isOpen());
}

TEST_F(QtSerialPortTest, AFreshNodeThatRefusesIsAskedAgain) {
  ASSERT_EQ(::chmod(line->path().c_str(), 0), 0);
  std::optional<Unprivileged> account(std::in_place);
  int pauses = 0;
  NodePatience patience;
  patience.age = [](const std::string&) { return 0.0; };
  patience.pause = [&] {
    if (++pauses == 3) {
      account.reset();
      ::chmod(line->path().c_str(), 0666);
    }
  };
  QtSerialPort patient(
      gate, [this](int) { return device; }, patience);
  EXPECT_EQ(patient.open(1, {}).error, SerialOpenError::kNone);
  EXPECT_EQ(pauses, 3);
}

TEST_F(QtSerialPortTest, WhatCameBeforeItWasOpenedIsDropped) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  ASSERT_TRUE(line->send("stale"));
  ASSERT_TRUE(until([this] { return port.available() == 5; }));
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  EXPECT_EQ(port.available(), 0U);
  ASSERT_TRUE(line->send("fresh"));
  ASSERT_TRUE(until([this] { return port.available() > 0; }));
  EXPECT_EQ(read(), "fresh");
}

TEST_F(QtSerialPortTest, WhatLiesInTheDriverWhenItIsOpenedIsDropped) {
  const int keeper = ::open(line->path().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_TRUE(line->send("stale"));
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  settle();
  ASSERT_TRUE(line->send("fresh"));
  ASSERT_TRUE(until([this] { return port.available() > 0; }));
  EXPECT_EQ(read(), "fresh");
  ::close(keeper);
}

TEST_F(QtSerialPortTest, AnArrivalIsToldAndItsBytesCanBeTakenInParts) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  ASSERT_TRUE(line->send(std::string("a\0\x02\xFF\r\n\x11\x13z", 9)));
  ASSERT_TRUE(until([this] { return arrivals > 0 && port.available() == 9; }));
  EXPECT_EQ(read(2), std::string("a\0", 2));
  EXPECT_EQ(port.available(), 7U);
  EXPECT_EQ(read(0), "");
  EXPECT_EQ(read(), "\x02\xFF\r\n\x11\x13z");
  EXPECT_EQ(read(), "");
}

TEST_F(QtSerialPortTest, AnArrivalWhileTheWindowsOnlyPaintIsToldAfterwards) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  {
    const adapters::ModalGate::Painting painting(gate);
    ASSERT_TRUE(line->send("some"));
    ASSERT_TRUE(until([this] { return port.available() == 4; }));
    settle();
    EXPECT_EQ(arrivals, 0);
  }
  EXPECT_TRUE(until([this] { return arrivals == 1; }));
  EXPECT_EQ(read(), "some");
}

TEST_F(QtSerialPortTest, AnArrivalDuringItsOwnEventIsToldAgain) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  port.onArrival = [this] {
    if (++arrivals == 1) {
      ASSERT_TRUE(line->send("more"));
      ASSERT_TRUE(until([this] { return port.available() == 8; }));
    }
  };
  ASSERT_TRUE(line->send("some"));
  EXPECT_TRUE(until([this] { return arrivals >= 2; }));
  EXPECT_EQ(read(), "somemore");
}

TEST_F(QtSerialPortTest, SendsEveryByteAsItIs) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  const std::string bytes(
      "\x02"
      "a\0\n\r\x11\x13\x7F\xFF\x03",
      10);
  EXPECT_TRUE(write(bytes));
  std::string taken;
  ASSERT_TRUE(until([&] { return (taken += line->take()).size() >= bytes.size(); }));
  EXPECT_EQ(taken, bytes);
}

TEST_F(QtSerialPortTest, SendsMoreThanTheDriverHoldsAtOnce) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  std::string bytes;
  for (int i = 0; bytes.size() < 100000; ++i) {
    bytes += std::to_string(i) + " ";
  }
  EXPECT_TRUE(write(bytes));
  std::string taken;
  ASSERT_TRUE(until([&] { return (taken += line->take()).size() >= bytes.size(); }));
  EXPECT_EQ(taken, bytes);
  EXPECT_EQ(losses, 0);
}

TEST_F(QtSerialPortTest, AClosedPortHasNothingTakesNothingAndIsSilent) {
  EXPECT_FALSE(write("x"));
  EXPECT_EQ(port.available(), 0U);
  EXPECT_EQ(read(), "");
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  ASSERT_TRUE(line->send("unread"));
  ASSERT_TRUE(until([this] { return port.available() == 6; }));
  settle();
  const int before = arrivals;
  port.close();
  ASSERT_TRUE(line->send("more"));
  settle();
  EXPECT_FALSE(port.isOpen());
  EXPECT_EQ(port.available(), 0U);
  EXPECT_EQ(read(), "");
  EXPECT_FALSE(write("x"));
  EXPECT_EQ(arrivals, before);
  EXPECT_EQ(openCount(line->path()), 0);
}

TEST_F(QtSerialPortTest, AnAdapterThatGoesIsToldOnceAndCostsNothingAfterwards) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  line->hangUp();
  ASSERT_TRUE(until([this] { return losses > 0; }));
  EXPECT_FALSE(port.isOpen());
  settle();
  const EventCounter counter;
  for (int turn = 0; turn < 1000; ++turn) {
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(losses, 1);
  EXPECT_LT(counter.events, 10);
  EXPECT_FALSE(write("x"));
}

TEST_F(QtSerialPortTest, AnAdapterThatGoesUnderAWriteRefusesItAndIsToldLater) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  line->hangUp();
  EXPECT_FALSE(write("x"));
  EXPECT_EQ(losses, 0);
  settle();
  EXPECT_EQ(losses, 1);
}

TEST_F(QtSerialPortTest, ALostPortOpensAgain) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  for (int loss = 1; loss <= 3; ++loss) {
    line->hangUp();
    ASSERT_TRUE(until([&] { return losses == loss; }));
    line = std::make_unique<Terminal>();
    device = QString::fromStdString(line->path());
    ASSERT_EQ(open().error, SerialOpenError::kNone);
    ASSERT_TRUE(line->send("back"));
    ASSERT_TRUE(until([this] { return port.available() == 4; }));
    EXPECT_EQ(read(), "back");
  }
}

TEST_F(QtSerialPortTest, ALossIsNotToldToTheNextOpening) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  line->hangUp();
  ASSERT_FALSE(write("x"));
  const Terminal next;
  device = QString::fromStdString(next.path());
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  settle();
  EXPECT_EQ(losses, 0);
  EXPECT_TRUE(port.isOpen());
}

TEST_F(QtSerialPortTest, AnArrivalIsNotToldToTheNextOpening) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  port.onArrival = [this] {
    ++arrivals;
    EXPECT_GT(port.available(), 0U);
  };
  ASSERT_TRUE(line->send("old"));
  QTimer reopener;
  QObject::connect(&reopener, &QTimer::timeout, &reopener, [&] {
    if (port.available() > 0) {
      reopener.stop();
      port.open(1, {});
    }
  });
  reopener.start(0);
  ASSERT_TRUE(until([&] { return !reopener.isActive(); }));
  settle();
}

TEST_F(QtSerialPortTest, APortThatTheProgramClosesIsNotLost) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  port.close();
  line->hangUp();
  settle();
  EXPECT_EQ(losses, 0);
}

TEST_F(QtSerialPortTest, MayBeClosedAndReopenedInItsOwnEvents) {
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  port.onArrival = [this] {
    ++arrivals;
    port.close();
  };
  ASSERT_TRUE(line->send("x"));
  ASSERT_TRUE(until([this] { return arrivals == 1; }));
  EXPECT_FALSE(port.isOpen());
  ASSERT_EQ(open().error, SerialOpenError::kNone);
  const Terminal next;
  port.onLost = [&] {
    ++losses;
    device = QString::fromStdString(next.path());
    EXPECT_EQ(port.open(1, {}).error, SerialOpenError::kNone);
  };
  line->hangUp();
  ASSERT_TRUE(until([this] { return losses == 1; }));
  settle();
  EXPECT_TRUE(port.isOpen());
  EXPECT_EQ(losses, 1);
}

}  // namespace
}  // namespace vireon::tests
