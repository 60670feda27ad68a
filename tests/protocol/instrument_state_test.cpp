#include "protocol/instrument_state.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireon::protocol {
namespace {

TEST(InstrumentState, StartsWithNothingReceivedAndEveryFlagDown) {
  const InstrumentState state;
  EXPECT_EQ(state.rxBuf.size(), 601U);
  EXPECT_TRUE(std::all_of(state.rxBuf.begin(), state.rxBuf.end(), [](int byte) { return byte == 0; }));
  EXPECT_EQ(state.rxLen, 0);
  EXPECT_EQ(state.modelId, "");
  for (const bool flag : {state.ohmBz, state.logEnd, state.memFull, state.trgLevelSync, state.initBusy,
                          state.uiBusy, state.rxHold, state.ackSeen, state.enqSeen}) {
    EXPECT_FALSE(flag);
  }
}

TEST(InstrumentState, TheLoggerStartsAtRowOneAndTheTrendAtPointZero) {
  const InstrumentState state;
  EXPECT_EQ(state.logRow, 1);
  EXPECT_EQ(state.trdCnt, 0);
  EXPECT_EQ(state.trdBuf.size(), 121U);
  EXPECT_EQ(numberOf(state.trdBuf[120]), 0.0);
}

TEST(InstrumentState, LogRowCountsBeyondSixteenBits) {
  InstrumentState state;
  state.logRow = 32767;
  ++state.logRow;
  EXPECT_EQ(state.logRow, 32768);
}

}  // namespace
}  // namespace vireon::protocol
