#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/file_commands.h"
#include "files/list_row.h"
#include "files/trend_file.h"
#include "meter/panel_layouts.h"
#include "protocol/reply_dispatcher.h"
#include "protocol/scoped_flag.h"
#include "protocol/trend_plot.h"
#include "scope/scale_tables.h"
#include "tests/fakes/fake_compound_files.h"
#include "tests/fakes/fake_document_opener.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_wall_clock.h"
#include "tests/link/connection_fixture.h"
#include "tests/scope/waveform_frame.h"

namespace vireon::tests {

// A disconnected main window as it starts, its file commands at work, with a folder of no files.
class FileFixture : public ConnectionFixture {
 protected:
  using Row = files::ListRow;

  FileFixture() {
    interpreter.effects.dspVinf = [this](int channel, int setting) {
      scope::dspVinf(form, state, channel, setting);
    };
    interpreter.effects.setSubPan = [this](int mode) { meter::setSubPan(form, mode); };
    interpreter.effects.setTabPan = [this] { meter::setTabPan(form); };
    dispatcher.sinks.scopeDraw = [this] { waveform.scopeDraw(); };
    form.SSTab1.onSwitch = [this] { meter::SSTab1_Switch(form, state, connection); };
    sampling.connectEvents();
    commands.connectEvents();
    const protocol::ScopedFlag busy(state.uiBusy);
    scope::initLbl(form, state);
    meter::setTabPan(form);
    for (form::PictureBox* panel : {&form.panTrd, &form.picSet, &form.picSwin[0], &form.picSwin[1]}) {
      panel->setVisible(false);
    }
  }

  void TearDown() override {
    EXPECT_FALSE(state.uiBusy);
    EXPECT_FALSE(state.logTransfer);
    EXPECT_TRUE(hid.commands.empty()) << "a file command sent something";
  }

  // The panels that the user sees, as the instrument's mode or a look at the tabs leaves them.
  void showLogger(int mode = 0) {
    const protocol::ScopedFlag busy(state.uiBusy);
    form.SSTab1.setTab(1);
    meter::setTabPan(form);
    form.cmbDmod.setListIndex(mode);
    mode == 4 ? interpreter.enterTrendMode() : interpreter.enterListMode();
  }

  void take(const FrameBytes& frame) {
    receiveFrame(state, frame);
    dispatcher.dspRcv();
  }

  // A full plot of points "&H00" to "&H77".
  void fillTrend() {
    for (int point = 0; point < protocol::kTrendPoints; ++point) {
      const std::string digits{"0123456789ABCDEF"[point / 16], "0123456789ABCDEF"[point % 16]};
      state.trdBuf[static_cast<std::size_t>(point)] = "&H" + digits;
    }
    form.vdtrd[7].setCaption("20Sec");
    form.vdtrd[1].setCaption("+100mV");
    form.vdtrd[3].setCaption("10Min");
    form.barTrd.setValue(119);
    state.trdCnt = 119;
  }

  // So many records below a header.
  void fillList(int records) {
    form::Grid& list = form.grdLog;
    list.setRows(std::max(list.rows(), records + 2));
    setRow(0, {"  R/No", "Time", "Reading", "    Remarks"});
    for (int record = 1; record <= records; ++record) {
      setRow(record, {std::to_string(record), "1:02:03", "1.5mV", ""});
    }
  }

  void setRow(int row, const Row& texts) {
    for (int column = 0; column < 4; ++column) {
      form.grdLog.setText(row, column, texts[static_cast<std::size_t>(column)]);
    }
  }

  Row row(int number) {
    Row texts;
    for (int column = 0; column < 4; ++column) {
      texts[static_cast<std::size_t>(column)] = form.grdLog.text(number, column);
    }
    return texts;
  }

  std::vector<Row> rows() {
    std::vector<Row> all;
    for (int number = 0; number < form.grdLog.rows(); ++number) {
      all.push_back(row(number));
    }
    return all;
  }

  std::string panel() { return form.StatusBar1.panel(1); }
  std::string& file(const std::string& name) { return disk.files["folder/" + name]; }
  bool hasFile(const std::string& name) { return disk.files.contains("folder/" + name); }

  // One message, of this text.
  void expectMessage(const std::string& text, platform::MessageIcon icon = platform::MessageIcon::kNone) {
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastText(), text);
    EXPECT_EQ(messages.shown.back().icon, icon);
    messages.shown.clear();
  }

  void expectRefusedName() {
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_NE(messages.lastText().find("cannot be the name of a file"), std::string::npos);
    messages.shown.clear();
    EXPECT_EQ(disk.replaces, 0U);
  }

  FakeFileStore disk;
  FakeFileDialogs dialogs;
  FakeDocumentOpener documents;
  FakeCompoundFiles compoundFiles;
  FakeWallClock clock{platform::CalendarTime{2007, 12, 21, 15, 30, 12}};
  protocol::ReplyInterpreter interpreter{form, state, beeper};
  protocol::ReplyDispatcher dispatcher{form, state, interpreter};
  scope::WaveformDisplay waveform{form, state, interpreter};
  meter::Sampling sampling{form, state, link, connection};
  link::LongWork longWork{form, state, connection.operations(), pump};
  files::FileCommands commands{
      {form, state, interpreter, waveform, sampling, longWork, connection.operations()},
      {disk, dialogs, messages, clock, beeper, compoundFiles, documents},
      "folder"};
};

}  // namespace vireon::tests
