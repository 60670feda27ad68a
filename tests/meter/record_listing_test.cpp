#include "meter/record_listing.h"

#include <gtest/gtest.h>

#include <vector>

#include "protocol/reply_dispatcher.h"
#include "protocol/scoped_flag.h"
#include "tests/form/expect_fault.h"
#include "tests/meter/record_text.h"
#include "tests/protocol/reply_rig.h"

namespace vireon::meter {
namespace {

using tests::endRecord;
using tests::record;
using Cells = std::vector<std::string>;

class Listing : public tests::ReplyRig {
 protected:
  Listing() {
    dispatcher_.sinks.dspLog = [this] { listing_.dspLog(); };
    form_.chkLog0.onClick = [this] { EXPECT_TRUE(state_.uiBusy); };
    listing_.prepare();
    form_.cmdLoad[0].setEnabled(false);
    form_.cmdLoad[1].setEnabled(false);
  }

  void dump(const std::string& records) {
    tests::receive(state_, "lgd:" + records);
    dispatcher_.dspRcv();
    EXPECT_FALSE(state_.uiBusy);
  }

  Cells row(int number) const {
    Cells cells;
    for (int column = 0; column < 4; ++column) {
      cells.push_back(form_.grdLog.text(number, column));
    }
    return cells;
  }
  std::string remark(int number) const { return form_.grdLog.text(number, 3); }

  RecordListing listing_{form_, state_, beeper_};
  protocol::ReplyDispatcher dispatcher_{form_, state_, interpreter_};
};

TEST_F(Listing, ARecordFillsItsRowWithoutItsSeparators) {
  dump("00017x12:34:56y 1.234V\x95z");
  EXPECT_EQ(row(1), (Cells{"00017", "12:34:56", " 1.234V\xE2\x80\xA2", "DCV"}));
  EXPECT_EQ(state_.logRow, 2);
  EXPECT_EQ(listing_.records(), 1);
  EXPECT_EQ(row(2), (Cells{"", "", "", ""}));
}

TEST_F(Listing, TheFunctionIsBytes22And23OfEachRecord) {
  dump(record(1, "  1.50", '\x6B', ' ') + record(2, "  4.80", 'V', '\x95') +
       record(3, "  4.80", ' ', '\x96'));
  EXPECT_EQ(remark(1), "OHM or BZ");
  EXPECT_EQ(remark(2), "DCV");
  EXPECT_EQ(remark(3), "ACV");
}

TEST_F(Listing, NothingIsListedBeforeTheFirstDump) {
  EXPECT_EQ(RecordListing(form_, state_, beeper_).records(), 0);
}

TEST_F(Listing, FunctionCodesAreReadInHexadecimal) {
  dump(record(1, "  4.80", ' ', '\x8C') + record(2, "  4.80", ' ', '\x7A') +
       record(3, "  4.80", ' ', '\x85'));
  EXPECT_EQ(remark(1), "OHM or BZ");
  EXPECT_EQ(remark(2), "FRQ (Hz)");
  EXPECT_EQ(remark(3), "Check!!");
}

TEST_F(Listing, OneRowForEachWholeRecord) {
  dump(record(1));
  EXPECT_EQ(state_.logRow, 2);
  dump(record(2) + record(3));
  EXPECT_EQ(state_.logRow, 4);
  EXPECT_EQ(row(3)[0], "00003");
}

TEST_F(Listing, APartialRecordCountsByHalvesToEven) {
  struct Row {
    std::size_t characters;
    int rows;
  };
  for (const Row& part : {Row{0, 0}, Row{1, 0}, Row{11, 0}, Row{12, 1}, Row{23, 1}, Row{24, 1}, Row{35, 1},
                          Row{36, 1}, Row{37, 2}, Row{48, 2}, Row{59, 2}, Row{60, 3}, Row{61, 3}, Row{84, 3},
                          Row{85, 4}, Row{108, 5}, Row{596, 25}}) {
    listing_.prepare();
    dump(std::string(part.characters, '7'));
    EXPECT_EQ(state_.logRow - 1, part.rows) << part.characters;
    EXPECT_EQ(listing_.records(), part.rows) << part.characters;
  }
}

TEST_F(Listing, ACutRecordIsFilledFromWhatThereIs) {
  const std::string whole = record(7, "  4.80", 'V', '\x95');
  dump(whole.substr(0, 12));
  EXPECT_EQ(row(1), (Cells{"00007", "12:00:", "", "Check!!"}));
  dump(whole.substr(0, 18));
  EXPECT_EQ(row(2), (Cells{"00007", "12:00:07", "  4", "Check!!"}));
  dump(whole.substr(0, 23));
  EXPECT_EQ(row(3), (Cells{"00007", "12:00:07", "  4.80V\xE2\x80\xA2", "DCV"}));
}

TEST_F(Listing, ACutRecordEmptiesTheCellsItDoesNotReach) {
  for (int column = 0; column < 4; ++column) {
    form_.grdLog.setText(1, column, "old");
  }
  dump(std::string(12, '1'));
  EXPECT_EQ(row(1), (Cells{"11111", "111111", "", "Check!!"}));
}

TEST_F(Listing, AnOtherSubCodeRepeatsTheRemarkOfTheRecordBefore) {
  dump(record(1, "  4.80", 'V', '\x96') + record(2, "  4.80", 'X', ' ') + record(3, "  4.80", '\x9C', ' ') +
       record(4, "  4.80", 'X', ' '));
  EXPECT_EQ(remark(2), "ACV");
  EXPECT_EQ(remark(4), "RPM");
}

TEST_F(Listing, InTheFirstRecordAnOtherSubCodeRepeatsTheLastCharacterOfTheReply) {
  dump(record(1, "  4.80", 'X', ' ') + record(2, "  4.80", 'X', ' ', '\x80'));
  EXPECT_EQ(remark(1), "\xE2\x82\xAC");
  EXPECT_EQ(remark(2), "\xE2\x82\xAC");
  dump(record(3, "  4.80", 'V', '\x95'));
  dump(record(4, "  4.80", 'X', ' ', 'q'));
  EXPECT_EQ(remark(4), "q");
}

TEST_F(Listing, AByteBelow16ShiftsTheCodesBehindIt) {
  std::string first = record(1, "  4.80", 'V', '\x95');
  first[5] = '\x09';
  dump(first + record(2, "  4.80", 'V', '\x95'));
  EXPECT_EQ(remark(1), "Check!!");
  EXPECT_EQ(remark(2), "Check!!");
  EXPECT_EQ(row(2)[2], "  4.80V\xE2\x80\xA2");
}

TEST_F(Listing, AByteOf16ShiftsNothing) {
  std::string first = record(1, "  4.80", 'V', '\x95');
  first[5] = '\x10';
  dump(first);
  EXPECT_EQ(remark(1), "DCV");
}

TEST_F(Listing, TwoBytesBelow16ShiftTheCodesByAWholeByte) {
  std::string shifted = record(1, "  4.80", 'V', ' ', '\x96');
  shifted[5] = '\x01';
  shifted[14] = '\x0F';
  dump(shifted);
  EXPECT_EQ(remark(1), "ACV");
}

TEST_F(Listing, TheEndRecordEndsTheDataAndItsRemarkStandsInTheRowBelow) {
  form_.chkLog0.setValue(0);
  {
    const protocol::ScopedFlag busy(state_.uiBusy);
    form_.chkLog0.setValue(1);
  }
  dump(record(1, "  4.80", 'V', '\x95'));
  EXPECT_FALSE(state_.logEnd);
  EXPECT_EQ(form_.chkLog0.value(), 1);
  dump(endRecord());
  EXPECT_TRUE(state_.logEnd);
  EXPECT_EQ(row(2), (Cells{"     ", "--EOD---", "        ", ""}));
  EXPECT_EQ(row(3), (Cells{"", "", "", " "}));
  EXPECT_EQ(state_.logRow, 4);
  EXPECT_EQ(listing_.records(), 1);
  EXPECT_EQ(beeper_.beeps, 1);
  EXPECT_EQ(form_.chkLog0.value(), 0);
  EXPECT_TRUE(form_.cmdLoad[1].enabled());
  EXPECT_FALSE(form_.cmdLoad[0].enabled());
}

TEST_F(Listing, TheEndRecordBehindRecordsOfItsReplyTakesTheirRemark) {
  dump(record(1, "  4.80", 'V', '\x95') + endRecord());
  EXPECT_EQ(remark(2), "");
  EXPECT_EQ(remark(3), "DCV");
  EXPECT_TRUE(state_.logEnd);
}

TEST_F(Listing, RecordsBehindTheEndRecordAreListedBelowItsRemark) {
  dump(endRecord() + record(9, "  4.80", 'V', '\x95'));
  EXPECT_TRUE(state_.logEnd);
  EXPECT_EQ(row(3), (Cells{"00009", "12:00:09", "  4.80V\xE2\x80\xA2", "DCV"}));
  EXPECT_EQ(state_.logRow, 4);
}

TEST_F(Listing, OnlyTheTimeFieldTrimmedMakesAnEndRecord) {
  struct Row {
    const char* time;
    bool end;
  };
  for (const Row& text : {Row{"--EOD---", true}, Row{"--EOD-- ", false}, Row{"--eod---", false},
                          Row{" --EOD--", false}, Row{"-EOD----", false}}) {
    listing_.prepare();
    dump("      " + std::string(text.time) + std::string(10, ' '));
    EXPECT_EQ(state_.logEnd, text.end) << text.time;
  }
  listing_.prepare();
  dump("--EOD---" + std::string(16, ' '));
  EXPECT_FALSE(state_.logEnd);
}

TEST_F(Listing, AThousandEndRecordsAreListedAndBeepAThousandTimes) {
  for (int end = 0; end < 1000; ++end) {
    dump(endRecord());
  }
  EXPECT_EQ(beeper_.beeps, 1000);
  EXPECT_EQ(state_.logRow, 2001);
  EXPECT_EQ(form_.grdLog.rows(), 2003);
  EXPECT_EQ(listing_.records(), 0);
}

TEST_F(Listing, FromRowElevenOnTheListGrowsAndScrollsWithEachRecord) {
  for (int number = 1; number <= 40; ++number) {
    dump(record(number));
    EXPECT_EQ(form_.grdLog.rows(), number > 10 ? number + 3 : 13);
    EXPECT_EQ(form_.grdLog.topRow(), number > 10 ? number - 9 : 1);
  }
  EXPECT_EQ(row(40)[0], "00040");
}

// Writes down which controls are to be drawn at once.
class Drawn final : public form::ControlView {
 public:
  void changed(const form::Control& /*control*/) override {}
  void refresh(const form::Control& control) override { controls.push_back(&control); }
  void shieldMoved(bool /*up*/) override {}

  std::vector<const form::Control*> controls;
};

TEST_F(Listing, FromRowElevenOnALongerListIsCutBehindTheRecordAndDrawnAtOnce) {
  Drawn drawn;
  form_.setView(&drawn);
  state_.logRow = 10;
  form_.grdLog.setRows(60);
  dump(record(10));
  EXPECT_EQ(form_.grdLog.rows(), 60);
  EXPECT_TRUE(drawn.controls.empty());
  dump(record(11));
  EXPECT_EQ(form_.grdLog.rows(), 14);
  EXPECT_EQ(drawn.controls, std::vector<const form::Control*>{&form_.grdLog});
  form_.setView(nullptr);
}

TEST_F(Listing, AnEndRecordInRowTenScrollsByItsRemark) {
  for (int number = 1; number < 10; ++number) {
    dump(record(number));
  }
  dump(endRecord());
  EXPECT_EQ(form_.grdLog.rows(), 14);
  EXPECT_EQ(form_.grdLog.topRow(), 2);
  EXPECT_EQ(state_.logRow, 12);
}

TEST_F(Listing, PreparingEmptiesTheListAndKeepsTheHeadings) {
  dump(record(1) + endRecord());
  form_.grdLog.setRows(60);
  form_.grdLog.setTopRow(40);
  listing_.prepare();
  EXPECT_EQ(form_.grdLog.rows(), 13);
  EXPECT_EQ(form_.grdLog.topRow(), 1);
  EXPECT_EQ(row(0), (Cells{"  R/No", "Time", "Reading", "    Remarks"}));
  EXPECT_EQ(row(1), (Cells{"", "", "", ""}));
  EXPECT_EQ(state_.logRow, 1);
  EXPECT_FALSE(state_.logEnd);
  EXPECT_EQ(listing_.records(), 0);
}

TEST_F(Listing, ARowBeyondTheGridMakesRoomForItself) {
  state_.logRow = 50;
  dump(record(1));
  EXPECT_EQ(row(50)[0], "00001");
  EXPECT_EQ(form_.grdLog.rows(), 53);
}

TEST_F(Listing, ALengthBeyondTheBufferIsAFaultThatListsNothing) {
  tests::receive(state_, "lgd:" + record(1));
  state_.rxLen = 601;
  tests::expectFault(form::FaultKind::kBounds, [this] { listing_.dspLog(); });
  EXPECT_EQ(state_.logRow, 1);
  state_.rxLen = 600;
  listing_.dspLog();
  EXPECT_EQ(state_.logRow, 26);
}

TEST_F(Listing, AReplyShorterThanItsKeyListsNothing) {
  for (int length = 0; length <= 4; ++length) {
    tests::receive(state_, "lgd:");
    state_.rxLen = length;
    dispatcher_.dspRcv();
    EXPECT_EQ(state_.logRow, 1);
  }
}

// Numerical Recipes' generator: the same bytes in every run.
class Bytes {
 public:
  char next() {
    state_ = state_ * 1664525U + 1013904223U;
    return static_cast<char>(state_ >> 24U);
  }

 private:
  std::uint32_t state_ = 1;
};

TEST_F(Listing, DumpsOfEveryLengthAndAnyBytesListTheirRowsAndKeepTheGridWhole) {
  Bytes bytes;
  for (std::size_t length = 0; length <= 596; ++length) {
    listing_.prepare();
    std::string text;
    for (std::size_t index = 0; index < length; ++index) {
      text += bytes.next();
    }
    dump(text);
    const int records = static_cast<int>(length / 24 + (length % 24 > 12 ? 1 : 0) +
                                         (length % 24 == 12 && (length / 24) % 2 == 0 ? 1 : 0));
    ASSERT_EQ(state_.logRow - 1, records) << length;
    ASSERT_GE(form_.grdLog.rows(), std::max(13, state_.logRow + 2)) << length;
    ASSERT_LT(form_.grdLog.topRow(), form_.grdLog.rows());
  }
}

}  // namespace
}  // namespace vireon::meter
