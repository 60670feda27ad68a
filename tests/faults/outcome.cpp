#include "tests/faults/outcome.h"

#include <algorithm>

#include "app/ini_text.h"
#include "files/list_text_file.h"
#include "files/waveform_file.h"
#include "protocol/scoped_flag.h"

namespace vireon::tests {
namespace {

bool isOneOf(const std::map<std::string, std::string>& files, const std::string& bytes) {
  return std::any_of(files.begin(), files.end(), [&](const auto& file) { return file.second == bytes; });
}

bool isWaveform(const std::string& path, const std::string& bytes) {
  std::array<std::uint8_t, files::kWaveformBytesRead> frame{};
  return path.ends_with(".wfm") && std::count(bytes.begin(), bytes.end(), '\n') == files::kWaveformBytes &&
         files::readWaveform(bytes, frame).error == files::ListError::kNone;
}

// Each key has its value of before or of the faultless end; an instrument that never said its title has the
// program's as the caption.
bool areSettings(const std::string& before, const std::string& faultless, const std::string& now) {
  for (const char* key : {"Caption", "System ID", "ProductId", "Tabs", "ComPort", "BaudRate"}) {
    const std::string value = app::iniValue(now, key, key);
    if (value != app::iniValue(before, key, key) && value != app::iniValue(faultless, key, key) &&
        value != "Vireon") {
      return false;
    }
  }
  return true;
}

std::string at(const std::map<std::string, std::string>& files, const std::string& path) {
  const auto file = files.find(path);
  return file == files.end() ? std::string() : file->second;
}

// The tab, the timer and the link as a live frame needs them.
void goLiveAgain(FaultBench& bench) {
  form::MainForm& form = bench.form();
  if (form.SSTab1.tab() != 0) bench.switchTo(0);
  if (form.chkMld.value() != 0) bench.check(form.chkMld, 0);
  if (form.cmdStart.caption() == "Start") bench.click(form.cmdStart);
  bench.clock.advance(std::chrono::seconds(1));
  const std::size_t before = bench.told();
  bench.tick();
  EXPECT_EQ(bench.told(), before);
  EXPECT_GE(form.picScope.lines().size(), 124U);
  EXPECT_TRUE(bench.program().connection.connected());
}

void saveTheList(FaultBench& bench) {
  form::MainForm& form = bench.form();
  {
    const protocol::ScopedFlag busy(bench.program().state.uiBusy);
    form.cmbDmod.setListIndex(0);
  }
  form.grdLog.setText(0, 0, "R/No");
  form.grdLog.setText(1, 0, "00001");
  form.optFmt[0].setValue(true);
  form.txtFn[1].setText("goes on");
  bench.click(form.cmdSave[1]);
  EXPECT_EQ(bench.files.files["folder/goes on.txt"],
            files::listText(form.grdLog, files::writtenRows(form.grdLog), nullptr).bytes);
}

}  // namespace

bool Outcome::isLike(const Outcome& other) const {
  const auto withoutSettings = [](auto all) {
    all.erase(kSettingsPath);
    return all;
  };
  return withoutSettings(files) == withoutSettings(other.files) && list == other.list &&
         loaded == other.loaded && connected == other.connected && mayClose == other.mayClose;
}

Outcome outcomeOf(FaultBench& bench) {
  Outcome outcome;
  outcome.files = bench.files.files;
  const form::Grid& list = bench.form().grdLog;
  for (int row = 0; row < list.rows(); ++row) {
    for (int column = 0; column < list.columns(); ++column) outcome.list.push_back(list.text(row, column));
  }
  while (!outcome.list.empty() && outcome.list.back().empty()) outcome.list.pop_back();
  outcome.loaded = bench.loaded;
  outcome.connected = bench.program().connection.connected();
  outcome.mayClose = bench.mayClose;
  for (const FakeMessageBoxes* boxes : {&bench.messages, &bench.desktop.messages}) {
    for (const platform::Message& message : boxes->shown) outcome.told.push_back(message.text);
  }
  const form::StatusBar& bar = bench.form().StatusBar1;
  outcome.panels = bar.panel(1) + "|" + bar.panel(2);
  return outcome;
}

void expectFilesWhole(const Outcome& before, const Outcome& faultless, const Outcome& now) {
  for (const auto& [path, bytes] : now.files) {
    const bool whole = path == kSettingsPath
                           ? areSettings(at(before.files, path), at(faultless.files, path), bytes)
                           : isOneOf(before.files, bytes) || isOneOf(faultless.files, bytes) ||
                                 isWaveform(path, bytes) || bytes.starts_with("PDF");
    EXPECT_TRUE(whole) << path << ": " << bytes.substr(0, 400);
  }
  for (const auto& [path, bytes] : before.files) {
    EXPECT_TRUE(now.files.contains(path)) << path;
  }
}

void expectListWhole(const Outcome& before, const Outcome& faultless, const Outcome& now) {
  const bool isPart = now.list.size() <= faultless.list.size() &&
                      std::equal(now.list.begin(), now.list.end(), faultless.list.begin());
  const bool isLost = now.list.empty() && !before.list.empty();
  EXPECT_TRUE((isPart && !isLost) || now.list == before.list) << now.list.size() << " cells";
}

void expectAtRest(FaultBench& bench) {
  app::Program& program = bench.program();
  EXPECT_FALSE(program.state.uiBusy);
  EXPECT_FALSE(program.state.initBusy);
  EXPECT_FALSE(program.state.logTransfer);
  EXPECT_FALSE(program.longWork.running());
  EXPECT_FALSE(program.connection.operations().running());
  EXPECT_FALSE(program.link.linkBusy);
  EXPECT_FALSE(program.link.portSearch);
  EXPECT_FALSE(program.form.tmrCom.enabled());
  EXPECT_FALSE(program.form.barWork.visible());
  EXPECT_EQ(program.form.chkLog0.value(), 0);
  EXPECT_EQ(program.form.Txled[0].fillColor(), form::kWhite);
  EXPECT_EQ(program.form.Txled[1].fillColor(), form::kWhite);
  EXPECT_TRUE(program.form.cmdSprint.enabled());
  EXPECT_EQ(bench.searchView.depth, 0);
  EXPECT_TRUE(program.link.usbOpen || !program.connection.connected() || !program.link.onUsb() ||
              bench.mayClose);
}

void expectGoesOn(FaultBench& bench, bool withAnotherRun) {
  bench.messages.answers.clear();
  bench.endpoint.setFaults({});
  if (!bench.atSerialPort) bench.endpoint.plug();
  if (bench.mayClose || !bench.loaded || (withAnotherRun && !bench.program().connection.connected())) {
    bench.start();
    bench.load();
    ASSERT_TRUE(bench.loaded) << bench.lastTold();
  }
  if (!bench.program().connection.connected()) {
    // Port and rate may be others by now.
    bench.messages.answers = {platform::MessageAnswer::kYes};
    bench.click(bench.form().cmdBttn[0]);
    bench.messages.answers.clear();
  }
  ASSERT_TRUE(bench.program().connection.connected()) << bench.lastTold();
  if (!bench.atSerialPort) goLiveAgain(bench);
  saveTheList(bench);
  bench.close();
  EXPECT_TRUE(bench.mayClose);
}

}  // namespace vireon::tests
