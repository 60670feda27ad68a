#include "protocol/reply_dispatcher.h"

#include <stdexcept>

#include "tests/form/recording_view.h"
#include "tests/protocol/reply_rig.h"

namespace vireon::protocol {
namespace {

class ReplyDispatch : public tests::ReplyRig {
 protected:
  ReplyDispatch() {
    dispatcher_.sinks.scopeDraw = [this] { calls_.push_back(busy("scopeDraw")); };
    dispatcher_.sinks.dspLog = [this] { calls_.push_back(busy("dspLog")); };
    interpreter_.effects.dspVinf = [this](int, int) { calls_.push_back(busy("dspVinf")); };
  }

  void frame(std::string_view text) {
    tests::receive(state_, text);
    dispatcher_.dspRcv();
  }

  std::string busy(const std::string& what) const { return what + (state_.uiBusy ? " busy" : " idle"); }

  ReplyDispatcher dispatcher_{form_, state_, interpreter_};
  std::vector<std::string> calls_;
};

using Calls = std::vector<std::string>;

TEST_F(ReplyDispatch, AnAcknowledgeRaisesItsTwoFlagsAlone) {
  frame("\6");
  EXPECT_TRUE(state_.rxHold);
  EXPECT_TRUE(state_.ackSeen);
  EXPECT_FALSE(state_.enqSeen);
  EXPECT_FALSE(state_.uiBusy);
}

TEST_F(ReplyDispatch, ARefusalRaisesItsFlagAlone) {
  frame("\5");
  EXPECT_TRUE(state_.enqSeen);
  EXPECT_FALSE(state_.rxHold);
  EXPECT_FALSE(state_.ackSeen);
  EXPECT_FALSE(state_.uiBusy);
}

TEST_F(ReplyDispatch, ControlAnswersLeaveTheBusyFlagUntouched) {
  for (const char* answer : {"\6", "\5"}) {
    state_.uiBusy = true;
    frame(answer);
    EXPECT_TRUE(state_.uiBusy);
  }
}

TEST_F(ReplyDispatch, WhatFollowsAControlAnswerIsNotRead) {
  frame("\6vda:25");
  frame("\5,vda:25");
  EXPECT_EQ(calls_, Calls{});
}

TEST_F(ReplyDispatch, WaveformFramesGoToTheDrawing) {
  frame("drs");
  frame("mem:whatever,vda:25");
  EXPECT_EQ(calls_, (Calls{"scopeDraw busy", "scopeDraw busy"}));
  EXPECT_FALSE(state_.uiBusy);
}

TEST_F(ReplyDispatch, LoggerDumpsGoToTheLog) {
  frame("lgd:0000112:34:56,vda:25");
  EXPECT_EQ(calls_, Calls{"dspLog busy"});
  EXPECT_FALSE(state_.uiBusy);
}

TEST_F(ReplyDispatch, EveryOtherFrameGoesToTheInterpreter) {
  frame("vda:25,vdb:0A");
  EXPECT_EQ(calls_, (Calls{"dspVinf busy", "dspVinf busy"}));
  EXPECT_FALSE(state_.uiBusy);
}

TEST_F(ReplyDispatch, UpperCaseKeysAreTextForTheInterpreter) {
  for (const char* text : {"DRS,vda:25", "Drs,vda:25", "MEM,vda:25", "LGD,vda:25", "AFN,vda:25"}) {
    calls_.clear();
    frame(text);
    EXPECT_EQ(calls_, Calls{"dspVinf busy"}) << text;
  }
  EXPECT_EQ(form_.panAfn.caption(), "");
}

TEST_F(ReplyDispatch, AKeyThatOnlyStartsAlikeIsTextForTheInterpreter) {
  for (const char* text : {"drx,vda:25", "dr,vda:25", "mex,vda:25", " drs,vda:25", "lgx,vda:25"}) {
    calls_.clear();
    frame(text);
    EXPECT_EQ(calls_, Calls{"dspVinf busy"}) << text;
  }
}

TEST_F(ReplyDispatch, FunctionTextIsBytes5To19Trimmed) {
  frame("afn:0123456789abcdef");
  EXPECT_EQ(form_.panAfn.caption(), "0123456789abcde");
  frame("afn:  DC  VOLT  XXYYZ");
  EXPECT_EQ(form_.panAfn.caption(), "DC  VOLT  XXY");
  frame("afn:               Z");
  EXPECT_EQ(form_.panAfn.caption(), "");
}

TEST_F(ReplyDispatch, FunctionTextReadsItsPlacesBeyondTheLength) {
  frame("xxx:ABCDEFGHIJKLMNOP");
  frame("afn:12");
  EXPECT_EQ(form_.panAfn.caption(), std::string("12\3DEFGHIJKLMNO"));
}

TEST_F(ReplyDispatch, AShortFrameIsKeyedByWhatItsPlacesStillHold) {
  frame("drs");
  calls_.clear();
  state_.rxBuf[1] = 'd';
  state_.rxLen = 1;
  dispatcher_.dspRcv();
  EXPECT_EQ(calls_, Calls{"scopeDraw busy"});
  state_.rxLen = 0;
  dispatcher_.dspRcv();
  EXPECT_EQ(calls_, (Calls{"scopeDraw busy", "scopeDraw busy"}));
}

TEST_F(ReplyDispatch, TheByteAtIndexZeroIsNoKey) {
  tests::receive(state_, "rs,vda:25");
  state_.rxBuf[0] = 'd';
  dispatcher_.dspRcv();
  EXPECT_EQ(calls_, Calls{"dspVinf busy"});
}

TEST_F(ReplyDispatch, AnEmptyFrameLeavesTheProgramIdle) {
  frame("");
  EXPECT_EQ(calls_, Calls{});
  EXPECT_FALSE(state_.uiBusy);
}

TEST_F(ReplyDispatch, TheProgramIsIdleAgainAfterEveryBranch) {
  for (const char* text : {"drs", "mem", "lgd", "afn:text", "vda:25", "vda:ZZ", "xyz", ""}) {
    state_.uiBusy = true;
    frame(text);
    EXPECT_FALSE(state_.uiBusy) << text;
  }
}

TEST_F(ReplyDispatch, TheProgramIsIdleAgainAfterASinkFaulted) {
  dispatcher_.sinks.scopeDraw = [] { throw form::Fault(form::FaultKind::kConversion); };
  dispatcher_.sinks.dspLog = [] { throw std::runtime_error("sink"); };
  for (const char* text : {"drs", "mem", "lgd"}) {
    frame(text);
    EXPECT_FALSE(state_.uiBusy) << text;
  }
  frame("vda:25");
  EXPECT_EQ(calls_, Calls{"dspVinf busy"});
}

TEST_F(ReplyDispatch, TheProgramIsIdleAgainAfterALengthBeyondTheBuffer) {
  frame("vda:25,");
  state_.rxLen = 601;
  dispatcher_.dspRcv();
  EXPECT_FALSE(state_.uiBusy);
  EXPECT_EQ(calls_.size(), 2U);
}

TEST_F(ReplyDispatch, FramesWithoutASinkAreDropped) {
  dispatcher_.sinks = {};
  tests::RecordingView view;
  form_.setView(&view);
  for (const char* text : {"drs,vda:25", "mem,vda:25", "lgd,vda:25"}) {
    frame(text);
  }
  EXPECT_TRUE(view.changes.empty());
  EXPECT_EQ(calls_, Calls{});
  EXPECT_FALSE(state_.uiBusy);
}

TEST_F(ReplyDispatch, LaterFramesClearNoFlagOfAControlAnswer) {
  frame("\6");
  frame("\5");
  frame("vda:25");
  EXPECT_TRUE(state_.rxHold);
  EXPECT_TRUE(state_.ackSeen);
  EXPECT_TRUE(state_.enqSeen);
}

}  // namespace
}  // namespace vireon::protocol
