#include "form/text_encoding.h"
#include "protocol/logger_mode.h"
#include "protocol/record_list.h"
#include "protocol/reply_interpreter.h"
#include "protocol/reply_text.h"
#include "protocol/trend_plot.h"

namespace vireon::protocol {

void ReplyInterpreter::drt(std::string_view item, int /*byte*/) {
  if (form_.panTrd.visible()) {
    trendPoint(item);
  } else {
    loggerRecord(item);
  }
}

void ReplyInterpreter::trendPoint(std::string_view item) {
  state_.trdCnt = decimalValue(slice(item, 5, 7));
  form_.barTrd.setValue(state_.trdCnt);
  const auto point = static_cast<std::size_t>(state_.trdCnt);
  if (point == 0) {
    form_.picTrd.cls();
  }
  state_.trdBuf[point] = "&H" + std::string(slice(item, 9, 10));
  if (point != 0) {
    drawTrendLine(form_, state_, state_.trdCnt);
  }
  if (state_.trdCnt == kLastTrendPoint && effects.saveTrd) {
    effects.saveTrd();
  }
}

void ReplyInterpreter::loggerRecord(std::string_view item) {
  form::Grid& list = form_.grdLog;
  makeRoom(list, state_.logRow);
  if (state_.logRow == 1) {
    list.clear(1);
    list.setTopRow(1);
  }
  list.setText(state_.logRow, kRecordColumn, form::utf8From1252(slice(item, 5, 9)));
  list.setText(state_.logRow, kTimeColumn, form::utf8From1252(slice(item, 10, 17)));
  list.setText(state_.logRow, kReadingColumn, form::utf8From1252(slice(item, 18, 25)));
  followRecord(list, state_.logRow);
  ++state_.logRow;
}

void ReplyInterpreter::dfn(std::string_view item, int byte) {
  const int function = byte & 15;
  form_.cmbFun.setListIndex(function);
  state_.ohmBz = function == 2 || function == 3;
  form_.posDV[1].setVisible(!state_.ohmBz);
  form_.lblSinf[1].setVisible(!state_.ohmBz);
  form_.optFun[decimalValue(slice(item, 6, 6))].setValue(true);
  const int digit = decimalValue(slice(item, 5, 5));
  if (digit == 0) {
    showTab(0);
    showRecording(form_, false);
    return;
  }
  showTab(1);
  const int mode = digit - 1;
  form_.cmbDmod.setListIndex(mode);
  if (effects.setSubPan) {
    effects.setSubPan(mode);
  }
  if (mode == kTrendPlot) {
    enterTrendMode();
  } else {
    enterListMode();
  }
  showRecording(form_, false);
}

void ReplyInterpreter::showTab(int tab) {
  if (form_.SSTab1.tab() != tab) {
    form_.SSTab1.setTab(tab);
    if (effects.setTabPan) {
      effects.setTabPan();
    }
  }
}

void ReplyInterpreter::enterTrendMode() {
  form_.panTrd.setVisible(true);
  form_.grdLog.setVisible(false);
  form_.lblDttl.setCaption(" TREND PLOT ");
  form_.optFmt[0].setVisible(false);
  form_.optFmt[1].setVisible(false);
  form_.cmdLprt.setCaption("Clr");
  clearTrend(form_);
}

void ReplyInterpreter::enterListMode() {
  form_.panTrd.setVisible(false);
  form_.grdLog.setVisible(true);
  form_.lblDttl.setCaption(" DATA LOGGER ");
  form_.optFmt[0].setVisible(true);
  form_.optFmt[1].setVisible(true);
  form_.cmdLprt.setCaption("Print");
  state_.logRow = 1;
  state_.logEnd = false;
}

void ReplyInterpreter::loggingStatus(int byte) {
  const bool recorded = form_.chkLog1.caption() == "Stop";
  if ((byte & 16) != 0) {
    if (!recorded) {
      showRecording(form_, true);
    }
  } else {
    if (recorded) {
      markEnd(form_.grdLog, state_.logRow, kEndOfData);
      if (state_.logEnd) {
        form_.cmdLoad[1].setEnabled(true);
      }
      state_.logEnd = true;
      beeper_.beep();
    }
    showRecording(form_, false);
  }
  if ((byte & 64) != 0) {
    state_.memFull = true;
  }
}

}  // namespace vireon::protocol
