#include "tests/soak/trouble.h"

#include <array>
#include <filesystem>
#include <string>
#include <utility>

#include "tests/soak/habits.h"

namespace vireon::soak {
namespace {

using simulator::Faults;
using std::chrono::milliseconds;

struct Knob {
  const char* name;
  void (*turn)(Faults& faults, Dice& dice);
};

std::size_t some(Dice& dice, int lowest, int highest) {
  return static_cast<std::size_t>(dice.between(lowest, highest));
}

// Every knob of the simulator but those that say when the others act.
constexpr std::array<Knob, 22> kKnobs{{
    {"silence", [](Faults& faults, Dice& /*dice*/) { faults.silence = true; }},
    {"refuse", [](Faults& faults, Dice& /*dice*/) { faults.refuse = true; }},
    {"late", [](Faults& faults, Dice& dice) { faults.lateBy = milliseconds(dice.between(1, 900)); }},
    {"cut", [](Faults& faults, Dice& dice) { faults.cutAfterBytes = some(dice, 0, 300); }},
    {"cut-reports", [](Faults& faults, Dice& dice) { faults.cutAfterReports = some(dice, 0, 5); }},
    {"garbage",
     [](Faults& faults, Dice& dice) {
       faults.garbage = simulator::Garbage{dice.number(), some(dice, 1, 700), true};
     }},
    {"garbage-open",
     [](Faults& faults, Dice& dice) {
       faults.garbage = simulator::Garbage{dice.number(), some(dice, 1, 700), false};
     }},
    {"code", [](Faults& faults,
                Dice& dice) { faults.controlCode = static_cast<std::uint8_t>(dice.between(4, 255)); }},
    {"identity", [](Faults& faults, Dice& /*dice*/) { faults.identity = "X1000"; }},
    {"endless", [](Faults& faults, Dice& dice) { faults.endless = some(dice, 1, 2000); }},
    {"false-start", [](Faults& faults, Dice& /*dice*/) { faults.falseStart = true; }},
    {"dump-empty", [](Faults& faults, Dice& /*dice*/) { faults.emptyDump = true; }},
    {"dump-endless", [](Faults& faults, Dice& /*dice*/) { faults.endlessDump = true; }},
    {"drop", [](Faults& faults, Dice& dice) { faults.dropReport = some(dice, 1, 5); }},
    {"double", [](Faults& faults, Dice& dice) { faults.doubleReport = some(dice, 1, 5); }},
    {"swap", [](Faults& faults, Dice& dice) { faults.swapReport = some(dice, 1, 5); }},
    {"short",
     [](Faults& faults, Dice& dice) {
       faults.shortReport = simulator::ShortReport{some(dice, 1, 5), some(dice, 0, 63)};
     }},
    {"unplug-at", [](Faults& faults, Dice& dice) { faults.unplugAtReport = some(dice, 1, 8); }},
    {"stall", [](Faults& faults, Dice& /*dice*/) { faults.stall = true; }},
    {"split", [](Faults& faults, Dice& dice) { faults.split = milliseconds(dice.between(0, 20)); }},
    {"twice", [](Faults& faults, Dice& /*dice*/) { faults.twice = true; }},
    {"hang-up",
     [](Faults& faults, Dice& dice) {
       if (dice.oneIn(2)) {
         faults.hangUpAtByte = some(dice, 1, 100);
       } else {
         faults.hangUpAtCommand = some(dice, 1, 5);
       }
     }},
}};

constexpr std::array<const char*, 9> kCommands{"DRS", "VDA", "DFN", "DPC", "DRM", "GTL", "TRG", "DPS", "MEM"};

}  // namespace

void Trouble::say(const std::string& name) {
  ++begun_;
  stage_.log.count("fault: " + name);
  stage_.log.note("fault: " + name);
}

void Trouble::begin(Dice& dice) {
  if (active_) {
    return;
  }
  active_ = true;
  endsAt_ = stage_.inputs + static_cast<std::uint64_t>(dice.between(1, 25));
  stage_.act("trouble");
  const int kind = dice.below(100);
  if (kind < 55) {
    linkFault(dice);
    takeUpLink(stage_, dice);
  } else if (kind < 75) {
    cableFault(dice);
  } else if (kind < 90) {
    fileFault(dice);
    takeUpFiles(stage_, dice);
  } else if (kind < 95) {
    folderAway();
    takeUpFiles(stage_, dice);
  } else {
    printerFault(dice);
    stage_.wishes.insert(stage_.wishes.end(), {"cmdOpen", "cmdLprt"});
  }
}

void Trouble::linkFault(Dice& dice) {
  Faults faults;
  faults.once = dice.percent(60);
  if (dice.percent(25)) {
    faults.onlyOn = dice.pick(kCommands);
  }
  faults.skip = dice.percent(25) ? some(dice, 1, 5) : 0;
  for (int left = dice.oneIn(4) ? 2 : 1; left > 0; --left) {
    const Knob& knob = dice.pick(kKnobs);
    knob.turn(faults, dice);
    say(knob.name);
  }
  stage_.far.hurry = dice.oneIn(40) ? 1 : 10;
  const std::lock_guard lock(stage_.far.lock);
  stage_.far.usb.setFaults(faults);
  stage_.far.serial.setFaults(faults);
}

void Trouble::cableFault(Dice& dice) {
  using platform::HidOpenError;
  using platform::SerialOpenError;
  constexpr std::array<HidOpenError, 3> kHid{HidOpenError::kNotFound, HidOpenError::kNoPermission,
                                             HidOpenError::kFailed};
  constexpr std::array<SerialOpenError, 3> kSerial{SerialOpenError::kNoPermission, SerialOpenError::kInUse,
                                                   SerialOpenError::kFailed};
  const std::lock_guard lock(stage_.far.lock);
  if (dice.percent(75)) {
    say("unplugged");
    stage_.far.usb.unplug();
    stage_.far.serial.unplug();
  } else {
    say("refuses to open");
    stage_.far.usbRefusal = dice.pick(kHid);
    stage_.far.serialRefusal = dice.pick(kSerial);
  }
}

void Trouble::fileFault(Dice& dice) {
  using platform::FileReadError;
  using platform::FileReplace;
  constexpr std::array<FileReplace, 4> kWriting{FileReplace::kNoPermission, FileReplace::kNoSpace,
                                                FileReplace::kNoFolder, FileReplace::kFailed};
  constexpr std::array<FileReadError, 4> kReading{FileReadError::kNotFound, FileReadError::kNoPermission,
                                                  FileReadError::kTooLarge, FileReadError::kFailed};
  if (dice.percent(70)) {
    say("files cannot be written");
    stage_.files.setFaults(FileReadError::kNone, dice.pick(kWriting));
  } else {
    say("files cannot be read");
    stage_.files.setFaults(dice.pick(kReading), FileReplace::kDone);
  }
}

void Trouble::folderAway() {
  say("folder away");
  std::error_code ignored;
  std::filesystem::rename(stage_.folder, stage_.folder.string() + ".away", ignored);
}

void Trouble::printerFault(Dice& dice) {
  say("printer");
  stage_.paper.result = dice.oneIn(2) ? platform::PrintResult::kNoPrinter : platform::PrintResult::kRefused;
}

void Trouble::look() {
  if (active_ && stage_.inputs >= endsAt_) {
    heal();
  }
}

void Trouble::heal() {
  active_ = false;
  stage_.log.note("well again");
  stage_.files.setFaults(platform::FileReadError::kNone, platform::FileReplace::kDone);
  stage_.paper.result = platform::PrintResult::kDone;
  std::error_code ignored;
  std::filesystem::rename(stage_.folder.string() + ".away", stage_.folder, ignored);
  stage_.far.hurry = 10;
  const std::lock_guard lock(stage_.far.lock);
  stage_.far.usb.setFaults({});
  stage_.far.serial.setFaults({});
  stage_.far.usb.plug();
  stage_.far.serial.plug();
  stage_.far.usbRefusal = platform::HidOpenError::kNone;
  stage_.far.serialRefusal = platform::SerialOpenError::kNone;
}

}  // namespace vireon::soak
