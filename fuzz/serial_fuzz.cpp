#include <algorithm>
#include <span>
#include <string>

#include "fuzz/arena.h"
#include "fuzz/serial_rig.h"

namespace {

using vireon::fuzz::require;
using vireon::fuzz::SerialRig;
using vireon::protocol::InstrumentState;

// Letters of a script; any other lets a turn of the pump pass.
constexpr char kReceive = 'r';       // the bytes up to the next zero arrive
constexpr char kReceiveLong = 'l';   // kLongPiece letters arrive
constexpr char kTimeOut = 't';       // the answer's time-out passes
constexpr char kCommand = 'c';       // a handler gives a command
constexpr char kEndWait = 'e';       // the user ends the wait
constexpr char kPullOut = 'p';       // the adapter goes
constexpr char kRefuseWrites = 'w';  // writes are refused from now on, or no longer
constexpr char kRefuseOpening = 'o';
constexpr char kButton = 'b';  // the connect button
constexpr char kSearch = 's';  // the search for port and rate
constexpr char kClose = 'd';
constexpr char kYes = 'y';  // where a question is asked

constexpr std::size_t kLongPiece = 200;

// Plays a script of what arrives, what the user does and how time passes: at the top, and within every turn
// of the pump.
class Player {
 public:
  Player(SerialRig& rig, std::string_view script) : rig_(rig), rest_(script) {
    rig_.pump.happen = [this] { return happen(); };
    rig_.messages.answer = [this] {
      const bool yes = rest_.starts_with(kYes);
      rest_.remove_prefix(yes ? 1 : 0);
      return yes ? vireon::platform::MessageAnswer::kYes : vireon::platform::MessageAnswer::kNo;
    };
  }

  void play() {
    while (!rest_.empty()) {
      const std::size_t sent = rig_.port.commands.size();
      const bool plain = rest_.front() == kCommand;
      const bool open = rig_.port.isOpen();
      causes_ = 0;
      rig_.messages.failures = 0;
      happen();
      checkRest();
      if (plain && open) {
        checkOutcome(sent);
      }
    }
    checkRecovery();
  }

 private:
  // False at the end of the script.
  bool happen() {
    if (rest_.empty()) {
      ++causes_;  // a wait ends by its time-out now
      return false;
    }
    const char letter = rest_.front();
    rest_.remove_prefix(1);
    act(letter);
    return true;
  }

  void act(char letter) {
    vireon::link::SerialLink& serial = rig_.connection.serial();
    switch (letter) {
      case kReceive:
        rig_.port.receive(piece());
        break;
      case kReceiveLong:
        rig_.port.receive(std::string(kLongPiece, 'x'));
        break;
      case kTimeOut:
        ++causes_;
        rig_.form.tmrCom.tick();
        break;
      case kCommand:
        rig_.connection.transKcmd("C" + std::to_string(given_++));
        break;
      case kEndWait:
        ++causes_;
        rig_.connection.endWait();
        break;
      case kPullOut:
        ++causes_;
        rig_.port.pullOut();
        break;
      case kRefuseWrites:
        ++causes_;
        rig_.port.refusesWrites = !rig_.port.refusesWrites;
        break;
      case kRefuseOpening:
        rig_.port.refusesOpening = !rig_.port.refusesOpening;
        break;
      case kButton:
        rig_.connection.cmdBttn_Click(0);
        break;
      case kSearch:
        search();
        break;
      case kClose:
        serial.closeWhenDone();
        break;
      default:
        break;
    }
  }

  // The window asks for none while something is under way.
  void search() {
    if (!rig_.connection.operations().running()) {
      rig_.connection.serial().com_search();
    }
  }

  std::string_view piece() {
    const std::string_view bytes = rest_.substr(0, rest_.find('\0'));
    rest_.remove_prefix(std::min(rest_.size(), bytes.size() + 1));
    return bytes;
  }

  // What holds whenever nothing is under way.
  void checkRest() const {
    const vireon::link::LinkState& link = rig_.link;
    require(!link.linkBusy && !link.portSearch && !link.cmdPending &&
            !rig_.connection.operations().running());
    require(!rig_.form.tmrCom.enabled());
    require(rig_.messages.failures <= 1);
    const std::string& held = rig_.model.held();
    require(rig_.state.rxLen >= 0 && rig_.state.rxLen <= InstrumentState::kBufferSize);
    require(static_cast<std::size_t>(rig_.state.rxLen) == held.size());
    require(
        std::equal(held.begin(), held.end(), rig_.state.rxBuf.begin(),
                   [](char byte, std::uint8_t stored) { return static_cast<std::uint8_t>(byte) == stored; }));
    require(rig_.texts == rig_.model.texts());
    checkCommands();
  }

  // Each command goes out once at most, and none after a later one.
  void checkCommands() const {
    int former = -1;
    for (const std::string& command : rig_.port.commands) {
      if (command.starts_with('C')) {
        const int number = std::stoi(command.substr(1));
        require(number > former && number < given_);
        former = number;
      }
    }
  }

  // A command that found the port open went out and has its outcome: the one that the bytes give.
  void checkOutcome(std::size_t sent) const {
    const vireon::link::LinkState& link = rig_.link;
    require(rig_.port.commands.size() > sent);
    require(link.rxDone || link.rxEnq || link.rxTimeout);
    require(link.rxDone == rig_.model.accepted() && link.rxEnq == rig_.model.refused());
    require(!link.rxTimeout || causes_ > 0 || rig_.port.refusesWrites);
    require(link.rxTimeout || rig_.messages.failures == 0);
  }

  // Whatever was: the port opens again and takes a command and its answer.
  void checkRecovery() {
    rig_.port.refusesOpening = rig_.port.refusesWrites = false;
    rig_.link.comPort = "1";
    rig_.link.baudRate = "9600";
    rig_.connection.serial().com_open();
    rest_ = std::string_view("r\2dfn:00\3\0", 10);
    std::string command = "DFN??";
    rig_.connection.serial().trans_rs2(command);
    require(rig_.link.rxDone && !rig_.link.rxEnq && !rig_.link.rxTimeout && rest_.empty());
    require(rig_.port.commands.back() == "DFN??" && rig_.texts.back() == "dfn:00");
    checkRest();
  }

  SerialRig& rig_;
  std::string_view rest_;
  int given_ = 0;   // commands
  int causes_ = 0;  // of a time-out since the last event at the top began
};

}  // namespace

// An input is a script.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vireon::fuzz::withNew<SerialRig>([&](SerialRig& rig) {
    Player(rig, std::string_view(reinterpret_cast<const char*>(data), size)).play();
  });
  return 0;
}
