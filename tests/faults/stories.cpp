#include "tests/faults/stories.h"

#include <chrono>

#include "protocol/logger_mode.h"
#include "protocol/scoped_flag.h"

namespace vireon::tests {
namespace {

using namespace std::chrono_literals;
using Form = form::MainForm;

void withUsbSettings(FaultBench& bench) {
  bench.files.files[kSettingsPath] = kUsbSettings;
}

void withSerialSettings(FaultBench& bench) {
  bench.files.files[kSettingsPath] = kSerialSettings;
  bench.endpoint.unplug();
  bench.atSerialPort = true;
}

void live(FaultBench& bench) {
  bench.goLive();
}

void onMeterTab(FaultBench& bench) {
  bench.goLive();
  bench.switchTo(1);
  // The tab's change may have ended the sampling.
  if (bench.form().cmdStart.caption() == "Start") bench.click(bench.form().cmdStart);
  bench.tick();
  ASSERT_TRUE(bench.form().tmrInt.enabled());
}

void serialConnected(FaultBench& bench) {
  withSerialSettings(bench);
  bench.load();
  bench.click(bench.form().cmdBttn[0]);
  ASSERT_TRUE(bench.program().connection.connected());
}

// A memory with more records than one dump holds, on the logger's tab.
void recorded(FaultBench& bench) {
  onMeterTab(bench);
  bench.click(bench.form().cmdStart);
  bench.instrument.answer("DFN10;DPS0,1,0,59;DPC04");
  for (int second = 0; second < 150; ++second) {
    bench.clock.advance(1s);
    bench.instrument.answer("STS??");
  }
  bench.instrument.answer("DPC04");
  bench.step([&] { bench.program().connection.transUsbOnly("DFN??;DPS??"); });
  bench.form().grdLog.setText(1, 0, "old");
}

// A list, a full trend plot, and a live waveform.
void withAllToSave(FaultBench& bench) {
  onMeterTab(bench);
  for (int point = 0; point < 120; ++point) {
    bench.program().state.trdBuf[static_cast<std::size_t>(point)] = point % 40 + 0.5;
  }
  fillList(bench, 60);
  bench.switchTo(0);
  bench.tick();
}

void startOnUsb(FaultBench& bench) {
  bench.load();
  bench.click(bench.form().cmdBttn[0]);
  bench.click(bench.form().cmdStart);
  bench.tick();
}

void startOnSerial(FaultBench& bench) {
  bench.load();
  bench.click(bench.form().cmdBttn[0]);
}

void firstRun(FaultBench& bench) {
  bench.load();
  if (bench.loaded) bench.click(bench.form().cmdBttn[0]);
}

void serialSearch(FaultBench& bench) {
  bench.messages.answers = {platform::MessageAnswer::kYes};
  bench.mostQuestions = 2;  // after a search in vain as well
  bench.click(bench.form().cmdBttn[0]);
  bench.mostQuestions = 1;
}

void liveWave(FaultBench& bench) {
  for (int frame = 0; frame < 60; ++frame) {
    bench.instrument.signal(simulator::Channel::kA).amplitude = 0.5 + 0.1 * frame;
    bench.tick();
  }
}

void moveScopePanel(FaultBench& bench) {
  Form& form = bench.form();
  const auto open = [&] { return form.panScon.enabled() && form.picMscope.enabled(); };
  const std::function<void()> moves[] = {
      [&] { bench.click(form.cmdVu[0]); },     [&] { bench.click(form.cmdVd[1]); },
      [&] { bench.check(form.chkVac[0], 1); }, [&] { bench.check(form.chkVat[1], 1); },
      [&] { bench.check(form.chkVof[1], 0); }, [&] { bench.check(form.chkVof[1], 1); },
      [&] { bench.click(form.cmdTud[0]); },    [&] { bench.click(form.cmdTud[1]); },
      [&] { bench.check(form.chkHat, 1); },    [&] { bench.check(form.chkAt, 0); },
      [&] { bench.check(form.chkSgl, 1); },    [&] { bench.click(form.cmdSlp); },
      [&] { bench.choose(form.optTS[1]); },    [&] { bench.slide(form.sldPosV[0], 50); },
      [&] { bench.slide(form.sldPosH, 40); },  [&] { bench.slide(form.trgLvl, 117); },
      [&] { bench.choose(form.cmbFun, 2); },   [&] { bench.choose(form.cmbFun, 0); },
      [&] { bench.check(form.chkMhld, 1); },   [&] { bench.check(form.chkMhld, 0); },
      [&] { bench.check(form.chkMld, 1); },    [&] { bench.click(form.madUD[1]); },
      [&] { bench.check(form.chkMld, 0); },    [&] { bench.click(form.cmdClock); },
  };
  for (const auto& move : moves) {
    if (open()) move();
    bench.tick();
  }
}

void readMeter(FaultBench& bench) {
  Form& form = bench.form();
  for (int function = 0; function < form.optFun.size(); ++function) {
    if (form.panDlog.enabled()) bench.choose(form.optFun[function]);
    for (int reading = 0; reading < 8; ++reading) bench.tick();
  }
  if (form.panDlog.enabled()) bench.click(form.mrgUD[1]);
  if (form.panDlog.enabled()) bench.click(form.mrgUD[2]);
  if (form.panDlog.enabled()) bench.check(form.chkDmAt, 1);
  if (form.panDlog.enabled()) bench.check(form.chkHold, 1);
  if (form.panDlog.enabled()) bench.check(form.chkHold, 0);
  bench.tick();
}

// One mode of the logger from its choice over its parameters to a run.
void logIn(FaultBench& bench, int mode) {
  Form& form = bench.form();
  const auto open = [&] { return form.panDlog.enabled(); };
  if (open() && mode == 0) bench.choose(form.cmbDmod, 1);
  if (open()) bench.choose(form.cmbDmod, mode);
  if (open()) bench.click(form.cmdSetup);
  if (open()) bench.click(form.cmdSet[0]);
  if (open()) bench.click(form.cmdSet[1]);
  if (open()) bench.click(form.cmdLog[0]);
  if (open()) bench.check(form.chkLog1, 1);
  for (int turn = 0; turn < 16; ++turn) {
    bench.clock.advance(2s);
    bench.tick();
  }
  if (open()) bench.check(form.chkLog1, 0);
  if (open()) bench.click(form.cmdSub[0]);
  if (open()) bench.check(form.chkSub, 1);
  if (open()) bench.click(form.cmdLog[1]);
  if (open()) bench.check(form.chkLog0, 1);
  if (open()) bench.click(form.mnuSmm[1]);
  bench.tick();
}

void download(FaultBench& bench) {
  bench.check(bench.form().chkLog0, 1);
}

void saveTrend(FaultBench& bench) {
  Form& form = bench.form();
  {
    const protocol::ScopedFlag busy(bench.program().state.uiBusy);
    form.cmbDmod.setListIndex(protocol::kTrendPlot);
    form.barTrd.setValue(119);
  }
  form.txtFn[1].setText("plot");
  bench.click(form.cmdSave[1]);
  {
    const protocol::ScopedFlag busy(bench.program().state.uiBusy);
    form.cmbDmod.setListIndex(0);
  }
}

void saveAll(FaultBench& bench) {
  Form& form = bench.form();
  bench.click(form.cmdSave[0]);
  bench.tick();
  bench.tick();
  saveTrend(bench);
  form.txtFn[1].setText("list");
  form.optFmt[0].setValue(true);
  bench.click(form.cmdSave[1]);
  form.optFmt[1].setValue(true);
  bench.click(form.cmdSave[1]);
}

// What saveAll leaves.
void withAllSaved(FaultBench& bench) {
  withAllToSave(bench);
  saveAll(bench);
  bench.messages.shown.clear();
  bench.form().StatusBar1.setPanel(1, "");
  form::Grid& list = bench.form().grdLog;
  list.clear();
  list.setRows(13);
  list.setText(1, 0, "a record of before");
}

void open(FaultBench& bench, const char* path) {
  bench.fileDialogs.answer = path;
  bench.click(bench.form().cmdOpen);
}

void openAll(FaultBench& bench) {
  for (const char* path : {"folder/Wfm_071221_140509.wfm", "folder/plot.trd", "folder/list.txt",
                           "folder/list.xls", "folder/LIST.TXT"}) {
    open(bench, path);
  }
  bench.fileDialogs.answer = "folder/list.xls";
  bench.click(bench.form().cmdLoad[1]);
  bench.step([&] { bench.program().fileCommands.openSaved("folder/plot.trd"); });
}

void unplugged(FaultBench& bench) {
  bench.endpoint.unplug();
  bench.tick();
  bench.tick();
  bench.click(bench.form().cmdBttn[0]);
}

void adapterGone(FaultBench& bench) {
  bench.step([&] { bench.serialPort.pullOut(); });
  bench.atSerialPort = false;
  bench.click(bench.form().cmdBttn[0]);
  bench.atSerialPort = true;
}

void exitAndKeepThePort(FaultBench& bench) {
  bench.messages.answers = {platform::MessageAnswer::kYes};
  bench.program().link.comPort = "3";
  bench.program().link.baudRate = "1200";
  bench.close();
}

void moveSerialPanel(FaultBench& bench) {
  Form& form = bench.form();
  const auto open = [&] { return form.panScon.enabled(); };
  if (open()) bench.click(form.cmdVu[0]);
  if (open()) bench.check(form.chkVac[0], 1);
  if (open()) bench.choose(form.optTS[1]);
  if (open()) bench.choose(form.optTS[0]);
  if (open()) bench.slide(form.sldPosV[1], 30);
  if (open()) bench.slide(form.sldPosH, 40);
  if (open()) bench.slide(form.trgLvl, 117);
  if (open()) bench.click(form.cmdSlp);
  if (open()) bench.click(form.cmdTud[0]);
  if (open()) bench.check(form.chkVof[1], 0);
  if (open()) bench.check(form.chkVof[1], 1);
  if (open()) bench.choose(form.cmbFun, 2);
  if (open()) bench.click(form.cmdClock);
  if (open()) bench.check(form.chkMhld, 1);
  if (open()) bench.check(form.chkMld, 1);
  if (open()) bench.check(form.chkMld, 0);
  bench.click(form.cmdBttn[0]);
}

void captureAndPrint(FaultBench& bench) {
  using platform::ViewerCommand;
  bench.click(bench.form().cmdSprint);
  bench.inViewer(ViewerCommand::kCopy);
  bench.desktop.dialogs.answer = "shot.bmp";
  bench.inViewer(ViewerCommand::kSave);
  bench.desktop.dialogs.answer = "shot.png";
  bench.inViewer(ViewerCommand::kSave);
  bench.inViewer(ViewerCommand::kPrint);
  bench.desktop.dialogs.answer = "shot.bmp";
  bench.inViewer(ViewerCommand::kOpen);
  bench.inViewer(ViewerCommand::kClear);
  bench.inViewer(ViewerCommand::kExit);
  bench.click(bench.form().cmdLprt);
  bench.desktop.printer.installed = false;
  bench.click(bench.form().cmdLprt);
}

void withListOnly(FaultBench& bench) {
  bench.goLive();
  fillList(bench, 25);
}

}  // namespace

void fillList(FaultBench& bench, int records) {
  Form& form = bench.form();
  form.panTrd.setVisible(false);
  form::Grid& list = form.grdLog;
  list.setRows(records + 10);
  for (int row = 1; row <= records; ++row) {
    list.setText(row, 0, std::to_string(10000 + row));
    list.setText(row, 1, "01:02:" + std::to_string(10 + row % 40));
    list.setText(row, 2, "-1.234mV");
    list.setText(row, 3, "a remark that is longer than most");
  }
}

const std::vector<Story>& stories() {
  static const std::vector<Story> kStories{
      {"StartOnUsb", withUsbSettings, startOnUsb, true},
      {"StartOnSerial", withSerialSettings, startOnSerial, true},
      {"FirstRunOnUsb", [](FaultBench&) {}, firstRun, true},
      {"FirstRunOnSerial",
       [](FaultBench& bench) {
         bench.endpoint.unplug();
         bench.atSerialPort = true;
       },
       firstRun, true},
      {"SerialSearch",
       [](FaultBench& bench) {
         withSerialSettings(bench);
         bench.load();
         bench.program().link.comPort = "1";
       },
       serialSearch},
      {"LiveWave", live, liveWave},
      {"ScopePanel", live, moveScopePanel},
      {"SerialPanel", serialConnected, moveSerialPanel},
      {"Meter", onMeterTab, readMeter},
      {"DataLogger", onMeterTab, [](FaultBench& bench) { logIn(bench, 0); }, false, true},
      {"RecordMode", onMeterTab, [](FaultBench& bench) { logIn(bench, 1); }, false, true},
      {"RelativeMode", onMeterTab, [](FaultBench& bench) { logIn(bench, 2); }, false, true},
      {"CompareMode", onMeterTab, [](FaultBench& bench) { logIn(bench, 3); }, false, true},
      {"TrendPlot", onMeterTab, [](FaultBench& bench) { logIn(bench, protocol::kTrendPlot); }, false, true},
      {"Download", recorded, download},
      {"Save", withAllToSave, saveAll},
      {"Open", withAllSaved, openAll},
      {"Unplugged", live, unplugged},
      {"AdapterGone", serialConnected, adapterGone},
      {"ExitWithSettings", serialConnected, exitAndKeepThePort},
      {"ExitOnUsb", live, [](FaultBench& bench) { bench.click(bench.form().cmdBttn[1]); }},
      {"CaptureAndPrint", withListOnly, captureAndPrint},
  };
  return kStories;
}

}  // namespace vireon::tests
