#include "adapters/qt/painting_files.h"

#include <QCloseEvent>
#include <QTimer>
#include <new>

#include "adapters/qt/painting_turn.h"
#include "adapters/qt/patient_timer.h"
#include "adapters/qt/viewer_window.h"
#include "tests/adapters/qt/held_files.h"
#include "tests/adapters/qt/window_fixture.h"
#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_raw_hid.h"

namespace vireon::tests {
namespace {

using platform::FileReadError;
using platform::FileReplace;

constexpr int kFilesLimit = 30000;  // milliseconds

// Takes turns while a call is held up; at the third `during` happens, at the tenth the call may go on.
class Turns {
 public:
  explicit Turns(HeldFiles& held, std::function<void()> during = {})
      : held_(held), during_(std::move(during)) {
    clock_.callOnTimeout([this] { turn(); });
    clock_.start(1);
    held_.hold();
  }

  int taken = 0;

 private:
  void turn() {
    if (!held_.holding()) return;
    if (++taken == 3 && during_) during_();
    if (taken == 10) {
      clock_.stop();
      held_.release();
    }
  }

  HeldFiles& held_;
  std::function<void()> during_;
  QTimer clock_;
};

class PaintingFiles : public testing::Test {
 protected:
  FakeFileStore files;
  HeldFiles held{files};
  adapters::ModalGate gate;
  adapters::PaintingFiles painting{held, gate};
};

TEST_F(PaintingFiles, TheEventLoopTurnsWhileEachCallIsHeldUp) {
  const std::function<void()> calls[] = {[this] { painting.exists("f/a"); }, [this] { painting.list("f"); },
                                         [this] { painting.read("f/a", 10); },
                                         [this] { painting.replace("f/a", "new"); }};
  for (const auto& call : calls) {
    const Turns turns(held);
    call();
    EXPECT_EQ(turns.taken, 10);
    EXPECT_FALSE(gate.paintingOnly());
    EXPECT_NE(held.caller, std::this_thread::get_id());
  }
}

TEST_F(PaintingFiles, OutcomesAndBytesArePassedThrough) {
  files.files = {{"f/a", "bytes"}};
  EXPECT_TRUE(painting.exists("f/a"));
  EXPECT_FALSE(painting.exists("f/b"));
  EXPECT_EQ(painting.list("f"), std::vector<std::string>{"a"});
  EXPECT_EQ(painting.read("f/a", 5).bytes, "bytes");
  EXPECT_EQ(painting.read("f/a", 4).error, FileReadError::kTooLarge);
  EXPECT_EQ(painting.replace("f/b", "other"), FileReplace::kDone);
  EXPECT_EQ(files.files.at("f/b"), "other");
  files.replaceErrors = {{2, FileReplace::kNoSpace}};
  EXPECT_EQ(painting.replace("f/b", "third"), FileReplace::kNoSpace);
}

TEST_F(PaintingFiles, ACallThatIsAskedForDuringAnotherIsMadeAfterIt) {
  files.files = {{"f/a", "bytes"}};
  std::string within;
  const Turns turns(held, [&] {
    held.release();
    within = painting.read("f/a", 5).bytes;
  });
  EXPECT_EQ(painting.replace("f/b", "other"), FileReplace::kDone);
  EXPECT_EQ(within, "bytes");
  EXPECT_EQ(files.files.at("f/b"), "other");
}

TEST_F(PaintingFiles, MemoryThatRunsOutInACallIsTheCallers) {
  held.outOfMemory = true;
  EXPECT_THROW(painting.read("f/a", 5), std::bad_alloc);
  EXPECT_THROW(painting.replace("f/a", "new"), std::bad_alloc);
  held.outOfMemory = false;
  EXPECT_EQ(painting.replace("f/a", "new"), FileReplace::kDone);
}

TEST(PatientTimer, RingsOnceHoweverOftenItIsAskedFor) {
  const adapters::ModalGate gate;
  int rings = 0;
  adapters::PatientTimer timer(gate, [&] { ++rings; });
  timer.start();
  timer.start();
  EXPECT_EQ(rings, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return rings > 0; }, kFilesLimit));
  letHappen();
  EXPECT_EQ(rings, 1);
}

TEST(PatientTimer, WaitsWhileTheWindowsOnlyPaint) {
  adapters::ModalGate gate;
  int rings = 0;
  adapters::PatientTimer timer(gate, [&] { ++rings; });
  timer.start();
  for (int turn = 0; turn < 100; ++turn) {
    adapters::paintingTurn(gate);
  }
  EXPECT_EQ(rings, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return rings == 1; }, kFilesLimit));
}

TEST(PatientTimer, RingsNoMoreOnceItIsStopped) {
  adapters::ModalGate gate;
  int rings = 0;
  bool laterRang = false;
  adapters::PatientTimer timer(gate, [&] { ++rings; });
  adapters::PatientTimer later(gate, [&] { laterRang = true; });
  timer.start();
  later.start();
  adapters::paintingTurn(gate);
  timer.stop();
  EXPECT_TRUE(QTest::qWaitFor([&] { return laterRang; }, kFilesLimit));
  EXPECT_EQ(rings, 0);
}

TEST(RunLater, DoesNothingForAnOwnerThatIsGone) {
  const adapters::ModalGate gate;
  int runs = 0;
  {
    QObject owner;
    adapters::runLater(gate, owner, [&] { ++runs; });
  }
  letHappen();
  EXPECT_EQ(runs, 0);
}

TEST(ViewerWhileTheWindowsOnlyPaint, ItsClosingAndItsMenusWait) {
  adapters::ModalGate gate;
  adapters::QtViewerWindow viewer(gate);
  std::vector<platform::ViewerCommand> commands;
  int unloads = 0;
  viewer.onCommand = [&](platform::ViewerCommand command) { commands.push_back(command); };
  viewer.onUnload = [&] { ++unloads; };
  viewer.show();
  auto* const clear = viewer.findChild<QAction*>(QStringLiteral("mnuClear"));
  ASSERT_NE(clear, nullptr);
  {
    const adapters::ModalGate::Painting painting(gate);
    clear->trigger();
    viewer.close();
    letHappen();
    EXPECT_TRUE(commands.empty());
    EXPECT_EQ(unloads, 0);
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return unloads == 1; }, kFilesLimit));
  EXPECT_EQ(commands, std::vector{platform::ViewerCommand::kClear});
}

// The window on a disk that can be held up.
class SlowDiskWindow : public testing::Test {
 protected:
  SlowDiskWindow() {
    files.files["folder/vireon.ini"] = "";
    EXPECT_TRUE(session.show());
    QApplication::processEvents();
  }

  MessageWatcher messages;
  FakeRawHid hid;
  FakeSerialPort serialPort;
  FakeFileStore files;
  HeldFiles held{files};
  adapters::ModalGate gate;
  adapters::PaintingFiles painting{held, gate};
  app::Session session{{hid, serialPort, painting}, "folder", gate};
};

TEST_F(SlowDiskWindow, ACloseRequestDuringASaveWaitsForItsEnd) {
  form::MainForm& form = session.program().form;
  form.grdLog.setRows(2);
  form.grdLog.setText(0, 0, "Rec.No");
  form.grdLog.setText(1, 0, "00001");
  form.optFmt[0].setValue(true);
  form.txtFn[1].type("mine");
  messages.answers = {QMessageBox::No};
  bool stayed = false;
  const Turns turns(held, [&] {
    session.window().close();
    stayed = session.window().isVisible() && files.files.count("folder/mine.txt") == 0;
  });
  form.cmdSave[1].click();
  EXPECT_EQ(turns.taken, 10);
  EXPECT_TRUE(stayed);
  EXPECT_EQ(files.files.count("folder/mine.txt"), 1U);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !session.window().isVisible(); }, kFilesLimit));
}

}  // namespace
}  // namespace vireon::tests
