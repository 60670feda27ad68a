#include "tests/app/program_bench.h"

namespace vireon::tests {
namespace {

class CaptureAndPrint : public testing::Test, protected ProgramBench {
 protected:
  CaptureAndPrint() {
    desktop.screen.windows = {{5, {0, 0, 12, 9}}};
    desktop.screen.foreground = 5;
    pump.atLimitedWait = [this](std::chrono::milliseconds limit) { desktop.steadyClock.time += limit; };
  }
};

TEST_F(CaptureAndPrint, TheForegroundWindowComesIntoTheViewer) {
  form().cmdSprint.click();
  EXPECT_TRUE(program.frmCapture.isOpen());
  EXPECT_EQ(desktop.viewers.picture.width, 12);
  EXPECT_EQ(desktop.viewers.shows, 1U);
}

TEST_F(CaptureAndPrint, ClosingTheWindowInTheSecondCancelsTheCapture) {
  pump.atLimitedWait = [this](std::chrono::milliseconds) { EXPECT_TRUE(program.requestClose()); };
  form().cmdSprint.click();
  EXPECT_EQ(pump.limitedWaits, 1U);
  EXPECT_EQ(desktop.screen.grabs, 0U);
  EXPECT_FALSE(program.frmCapture.isOpen());
}

TEST_F(CaptureAndPrint, TheLivePollRunsDuringTheSecond) {
  goLive();
  pump.atLimitedWait = [this](std::chrono::milliseconds limit) {
    tick();
    desktop.steadyClock.time += limit / 2 + std::chrono::milliseconds(1);
  };
  form().cmdSprint.click();
  EXPECT_GT(instrument.log().size(), 3U);
  EXPECT_TRUE(program.frmCapture.isOpen());
}

TEST_F(CaptureAndPrint, MemoryThatRunsOutInTheViewerIsToldThereAndStopsSampling) {
  goLive();
  form().cmdSprint.click();
  ASSERT_EQ(form().cmdStart.caption(), "Stop");
  desktop.clipboard.outOfMemory = true;
  desktop.viewers.choose(platform::ViewerCommand::kCopy);
  EXPECT_EQ(desktop.messages.count(), 1U);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(form().cmdStart.caption(), "Start");
  EXPECT_FALSE(form().tmrInt.enabled());
}

TEST_F(CaptureAndPrint, TheViewerGoesWithTheMainWindow) {
  form().cmdSprint.click();
  EXPECT_TRUE(program.requestClose());
  EXPECT_EQ(desktop.viewers.alive, 0U);
}

TEST_F(CaptureAndPrint, TheListGoesToThePrinterAndWithoutOneIntoTheProgramsFolder) {
  form().panTrd.setVisible(false);
  form().grdLog.setText(0, 2, "Reading");
  form().cmdLprt.click();
  EXPECT_EQ(desktop.printer.jobs.size(), 1U);
  desktop.printer.installed = false;
  form().cmdLprt.click();
  EXPECT_EQ(files.files.count("folder/List_071221_140509.pdf"), 1U);
  EXPECT_EQ(messages.count(), 1U);
}

TEST_F(CaptureAndPrint, CancellingALongPrintOutPrintsNothing) {
  form().panTrd.setVisible(false);
  form().grdLog.setRows(2000);
  for (int row = 0; row < 2000; ++row) {
    form().grdLog.setText(row, 2, "1mV");
  }
  pump.atPump.emplace_back([this] { form().cmdCancel.click(); });
  form().cmdLprt.click();
  EXPECT_TRUE(desktop.printer.jobs.empty());
  EXPECT_FALSE(program.longWork.running());
}

}  // namespace
}  // namespace vireon::tests
