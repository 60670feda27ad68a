#include "protocol/reply_interpreter.h"

#include <stdexcept>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"
#include "tests/protocol/reply_rig.h"

namespace vireon::protocol {
namespace {

using Settings = std::vector<std::pair<int, int>>;

class ReplySplitting : public tests::ReplyRig {};

TEST_F(ReplySplitting, ItemsArePartedByCommasAndTheLastOneCounts) {
  reply("vda:25,vdb:0A");
  EXPECT_EQ(settings_, (Settings{{0, 0x25}, {1, 0x0A}}));
}

TEST_F(ReplySplitting, AReplyOfOneItemNeedsNoComma) {
  reply("vda:25");
  EXPECT_EQ(settings_, (Settings{{0, 0x25}}));
}

TEST_F(ReplySplitting, ATrailingCommaYieldsAnEmptyItemThatIsIgnored) {
  reply("vda:25,");
  EXPECT_EQ(settings_, (Settings{{0, 0x25}}));
}

TEST_F(ReplySplitting, EmptyItemsInBetweenAreIgnored) {
  reply(",,vda:25,,,vdb:01,,");
  EXPECT_EQ(settings_, (Settings{{0, 0x25}, {1, 0x01}}));
}

TEST_F(ReplySplitting, AnEmptyReplyChangesNothing) {
  tests::RecordingView view;
  form_.setView(&view);
  reply("");
  EXPECT_TRUE(view.changes.empty());
  EXPECT_TRUE(settings_.empty());
}

TEST_F(ReplySplitting, BytesBeyondTheLengthAreNotRead) {
  reply("vda:25,vdb:0A");
  settings_.clear();
  state_.rxLen = 6;
  interpreter_.dspRxd();
  EXPECT_EQ(settings_, (Settings{{0, 0x25}}));
}

TEST_F(ReplySplitting, TheByteAtIndexZeroIsNotRead) {
  tests::receive(state_, "vda:25");
  state_.rxBuf[0] = 'x';
  interpreter_.dspRxd();
  EXPECT_EQ(settings_, (Settings{{0, 0x25}}));
}

TEST_F(ReplySplitting, AnItemCutByTheFormerReplyIsNotContinued) {
  tests::receive(state_, "vda:25,vd");
  interpreter_.dspRxd();
  settings_.clear();
  reply("vda:31");
  EXPECT_EQ(settings_, (Settings{{0, 0x31}}));
}

TEST_F(ReplySplitting, SixHundredBytesAreTheMostAndOneMoreIsAFaultAfterTheItemsBefore) {
  reply("vda:25," + std::string(586, 'x') + ",vdb:0A");
  ASSERT_EQ(state_.rxLen, 600);
  EXPECT_EQ(settings_, (Settings{{0, 0x25}, {1, 0x0A}}));
  settings_.clear();
  state_.rxLen = 601;
  tests::expectFault(form::FaultKind::kBounds, [this] { interpreter_.dspRxd(); });
  EXPECT_EQ(settings_, (Settings{{0, 0x25}}));
}

TEST_F(ReplySplitting, AFaultOfOneItemLeavesTheNextOneAlone) {
  reply("vda:ZZ,hdv:5F,dfn:99,vdb:0A");
  EXPECT_EQ(settings_, (Settings{{1, 0x0A}}));
}

TEST_F(ReplySplitting, BytesAbove127AreCharactersLikeOthers) {
  reply("sid:\xB5\xFF\x80");
  EXPECT_EQ(form_.caption(), "\xB5\xFF\x80");
}

class ReplyItem : public tests::ReplyRig {};

TEST_F(ReplyItem, KeysAreMatchedExactly) {
  tests::RecordingView view;
  form_.setView(&view);
  for (const char* text : {"VDA:25", "Vda:25", " vda:25", "vdx:25", "vd", "", "drs:25", "mem:25", "lgd:25",
                           "afn:25", "v", "\3"}) {
    item(text);
  }
  EXPECT_TRUE(settings_.empty());
  EXPECT_TRUE(view.changes.empty());
}

TEST_F(ReplyItem, TheSeparatorIsNotTested) {
  item("vda;25");
  item("vdb,0A");
  item("vda 11");
  EXPECT_EQ(settings_, (Settings{{0, 0x25}, {1, 0x0A}, {0, 0x11}}));
}

TEST_F(ReplyItem, OnlyTheFirstTwoCharactersOfAHexValueCount) {
  item("vda:25FF");
  EXPECT_EQ(settings_, (Settings{{0, 0x25}}));
}

TEST_F(ReplyItem, OneHexDigitAloneCounts) {
  item("vda:7");
  EXPECT_EQ(settings_, (Settings{{0, 7}}));
}

// Every key whose value is a byte.
TEST_F(ReplyItem, AValueThatIsNoHexNumberEndsTheItemSilently) {
  tests::RecordingView view;
  form_.setView(&view);
  form_.SSTab1.setTab(1);
  view.changes.clear();
  for (const char* key : {"vda", "vdb", "vpa", "vpb", "hdv", "hpo", "tlv", "trg", "dfn", "drg", "sts"}) {
    for (const char* value : {"", ":", ":G0", ":0G", ":  ", ":-1", ": 1", ":1 "}) {
      item(std::string(key) + value);
    }
  }
  EXPECT_TRUE(settings_.empty());
  EXPECT_TRUE(view.changes.empty());
  EXPECT_EQ(beeper_.beeps, 0);
}

TEST_F(ReplyItem, AFaultInsideAnEffectEndsTheItemSilently) {
  interpreter_.effects.dspVinf = [](int, int) { throw form::Fault(form::FaultKind::kBounds); };
  item("vda:0F");
  interpreter_.effects.dspVinf = [](int, int) { throw std::runtime_error("effect"); };
  reply("vdb:0F,hpo:40");
  EXPECT_EQ(form_.sldPosH.value(), 0x40);
}

TEST_F(ReplyItem, AnItemGoesOnPastAMissingEffect) {
  interpreter_.effects = {};
  form_.panTrd.setVisible(false);
  form_.chkLog1.setCaption("Stop");
  item("dfn:10");
  EXPECT_EQ(form_.SSTab1.tab(), 1);
  EXPECT_EQ(form_.cmbDmod.listIndex(), 0);
  EXPECT_EQ(form_.chkLog1.caption(), "Start");
  item("dfn:50");
  EXPECT_TRUE(form_.panTrd.visible());
  reply("vda:25,vdb:0A,drt:119:3C,hpo:40");
  EXPECT_EQ(state_.trdCnt, 119);
  EXPECT_EQ(form_.sldPosH.value(), 0x40);
}

TEST(ShowToggle, ShowsOnInRedAndOffInTheButtonTextColour) {
  form::MainForm form;
  showToggle(form.chkAt, true);
  EXPECT_EQ(form.chkAt.value(), 1);
  EXPECT_EQ(form.chkAt.foreColor(), form::kRed);
  showToggle(form.chkAt, false);
  EXPECT_EQ(form.chkAt.value(), 0);
  EXPECT_EQ(form.chkAt.foreColor(), form::kButtonText);
}

}  // namespace
}  // namespace vireon::protocol
