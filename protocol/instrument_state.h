#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "protocol/trend_point.h"

namespace vireon::protocol {

// The scale labels by their codes; empty until the label tables are filled.
struct ScaleLabels {
  std::array<std::string, 13> vdLbl;       // volts/div, low four bits of "vda" and "vdb"
  std::array<std::string, 5> ohmLbl;       // ohm ranges, same bits while the meter is on OHM or BZ
  std::array<std::string, 26> hdvLbl;      // time/div, low five bits of "hdv"
  std::array<std::string, 13> trdSpanLbl;  // trend span, hex digit at character 25 of "dps"
  int trdSpan = 0;                         // span code in force, 0 to 11
};

// What no control holds of the instrument's state, and the flags that the handlers share.
struct InstrumentState {
  static constexpr int kBufferSize = 601;   // bytes of one frame, STX at index 0
  static constexpr int kTrendBuffer = 121;  // trend points by number, 0 to 120

  std::array<std::uint8_t, kBufferSize> rxBuf{};  // text at 1 to rxLen; older bytes stay beyond
  int rxLen = 0;                                  // text bytes; while a link collects, its next index

  ScaleLabels labels;
  std::string modelId;      // six characters of the "sim" reply
  bool ohmBz = false;       // meter function is OHM or BZ
  std::int32_t logRow = 1;  // row of grdLog that the next record fills
  bool logEnd = false;      // end of the logger data reached
  bool memFull = false;     // status bit 6 seen while a logging mode is shown
  int trdCnt = 0;           // number of the trend point last received
  std::array<TrendPoint, kTrendBuffer> trdBuf{};

  bool logTransfer = false;   // a download or another long work runs; the poll rests
  bool trgLevelSync = false;  // a "trg" reply also moves the trigger-level slider
  bool initBusy = false;      // the full settings query runs
  bool uiBusy = false;        // the program itself moves controls; handlers send nothing
  bool rxHold = false;        // set by an acknowledge, cleared by some handlers before they send
  bool ackSeen = false;       // an acknowledge was ever seen
  bool enqSeen = false;       // a refusal was seen; whoever asks for one clears this first
};

}  // namespace vireon::protocol
