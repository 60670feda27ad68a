#include "meter/recall.h"

#include "tests/meter/recall_fixture.h"

namespace vireon::meter {
namespace {

using Texts = std::vector<std::string>;

class RecallTest : public tests::RecallFixture {
 protected:
  void press() { form.chkLog0.setValue(1); }
  std::string told() const { return form.StatusBar1.panel(1); }

  void expectEnded() {
    EXPECT_EQ(form.chkLog0.value(), 0);
    EXPECT_FALSE(longWork.running());
    EXPECT_FALSE(state.uiBusy);
    EXPECT_TRUE(form.cmdStart.takesInput());
    EXPECT_FALSE(form.cmdCancel.visible());
  }
};

TEST_F(RecallTest, WindsBackClearsTheListAndFetchesDumpsUntilTheEndRecord) {
  fillMemory(5);
  listSomething();
  form.barTrd.setValue(7);
  press();
  EXPECT_EQ(hid.commands, (Texts{"DPC02", "DPC02;STS??", "DPC03", "DPC03", "DPC03", "DPC03"}));
  EXPECT_EQ(form.grdLog.text(1, 0), "00001");
  EXPECT_EQ(form.grdLog.text(5, 0), "00005");
  EXPECT_EQ(form.grdLog.text(6, 1), "--EOD---");
  EXPECT_TRUE(state.logEnd);
  EXPECT_EQ(form.barTrd.value(), 0);
  EXPECT_EQ(told(), "Recall complete: 5 records");
  EXPECT_EQ(beeper.beeps, 1);
  EXPECT_EQ(messages.count(), 0U);
  expectEnded();
}

TEST_F(RecallTest, ShowsABarWithoutARangeAsTheNumberOfRecordsIsNotKnown) {
  fillMemory(2);
  int largest = -1;
  atTurn(0, [&] { largest = form.barWork.maximum(); });
  press();
  EXPECT_EQ(largest, 0);
}

TEST_F(RecallTest, OfAnEmptyMemoryIsCompleteWithoutRecords) {
  fillMemory(0);
  press();
  EXPECT_EQ(told(), "Recall complete: 0 records");
  fillMemory(1);
  press();
  EXPECT_EQ(told(), "Recall complete: 1 record");
}

TEST_F(RecallTest, TellsTheRecordsSoFarAtEachTurn) {
  fillMemory(4);
  Texts seen;
  for (std::size_t turn = 0; turn < 4; ++turn) {
    atTurn(turn, [&] { seen.push_back(told()); });
  }
  press();
  EXPECT_EQ(seen, (Texts{"Recall: winding back", "Recall: 0 records so far", "Recall: 2 records so far",
                         "Recall: 4 records so far"}));
}

TEST_F(RecallTest, WhileItRunsNothingElseTakesInputAndThePollRests) {
  fillMemory(4);
  sample();
  atTurn(2, [this] {
    EXPECT_FALSE(form.cmdStart.takesInput());
    EXPECT_FALSE(form.SSTab1.takesInput());
    EXPECT_FALSE(form.cmdLog[1].takesInput());
    EXPECT_TRUE(form.chkLog0.takesInput());
    EXPECT_TRUE(form.cmdCancel.takesInput());
    EXPECT_TRUE(form.cmdBttn[1].takesInput());
    const std::size_t before = hid.commands.size();
    form.tmrInt.tick();
    EXPECT_EQ(hid.commands.size(), before);
  });
  press();
  EXPECT_EQ(told(), "Recall complete: 4 records");
  EXPECT_TRUE(form.tmrInt.enabled());
}

TEST_F(RecallTest, PressedAgainOrCancelledAtAnyTurnEndsThereAndKeepsWhatHasArrived) {
  const std::function<void()> ways[] = {[this] { form.chkLog0.setValue(0); },
                                        [this] { form.cmdCancel.click(); },
                                        [this] {
                                          form.chkLog0.setValue(0);
                                          form.chkLog0.setValue(1);
                                        }};
  for (const auto& way : ways) {
    for (int turn = 1; turn <= 4; ++turn) {
      fillMemory(6);
      hid.forget();
      atTurn(static_cast<std::size_t>(turn), way);
      press();
      const int records = 2 * (turn - 1);
      EXPECT_EQ(hid.commands.size(), static_cast<std::size_t>(turn) + 1);
      EXPECT_EQ(state.logRow, records + 1);
      EXPECT_EQ(told(), "Recall cancelled: " + std::to_string(records) + " records kept");
      EXPECT_FALSE(state.logEnd);
      expectEnded();
      pump.atPump.clear();
    }
  }
}

TEST_F(RecallTest, CancelledBeforeTheListIsClearedKeepsTheList) {
  fillMemory(6);
  listSomething();
  atTurn(0, [this] { form.cmdCancel.click(); });
  press();
  EXPECT_EQ(hid.commands, Texts{"DPC02"});
  EXPECT_TRUE(listKept());
  EXPECT_EQ(told(), "Recall cancelled: the list is kept");
  expectEnded();
}

TEST_F(RecallTest, CanBeStartedAgainAfterACancelledOne) {
  fillMemory(6);
  atTurn(2, [this] { form.cmdCancel.click(); });
  press();
  press();
  EXPECT_EQ(told(), "Recall complete: 6 records");
  EXPECT_EQ(form.grdLog.text(1, 0), "00001");
}

TEST_F(RecallTest, LosingTheLinkAtEachExchangeIsOneMessageAndKeepsWhatHasArrived) {
  for (std::size_t exchange = 1; exchange <= 6; ++exchange) {
    SCOPED_TRACE(exchange);
    connect();
    fillMemory(8);
    listSomething();
    messages.shown.clear();
    std::size_t asked = 0;
    special = [&](const std::string&) {
      if (++asked == exchange) {
        hid.unplug();
      }
      return std::string();
    };
    press();
    expectOneFailureMessage();
    expectDisconnected();
    EXPECT_EQ(hid.commands.size(), exchange);
    if (exchange <= 2) {
      EXPECT_TRUE(listKept());
      EXPECT_EQ(told(), "Recall ended, the link is lost: the list is kept");
    } else {
      const std::size_t records = 2 * (exchange - 3);
      EXPECT_EQ(state.logRow, static_cast<int>(records) + 1);
      EXPECT_EQ(told(), "Recall ended, the link is lost: " + std::to_string(records) + " records kept");
    }
    EXPECT_EQ(form.chkLog0.value(), 0);
    EXPECT_FALSE(longWork.running());
    EXPECT_TRUE(form.cmdLoad[1].enabled());
    special = nullptr;
    hid.plug();
  }
}

TEST_F(RecallTest, RefusedAtEachExchangeEndsWithoutAMessage) {
  for (std::size_t exchange = 1; exchange <= 4; ++exchange) {
    SCOPED_TRACE(exchange);
    fillMemory(8);
    listSomething();
    hid.forget();
    special = [&](const std::string&) { return hid.commands.size() == exchange ? tests::framed("\5") : ""; };
    press();
    EXPECT_EQ(hid.commands.size(), exchange);
    EXPECT_EQ(listKept(), exchange <= 2);
    EXPECT_EQ(told(), "Recall refused by the instrument: " +
                          (exchange <= 2 ? "the list is kept"
                                         : std::to_string(2 * (exchange - 3)) + " records kept"));
    EXPECT_EQ(messages.count(), 0U);
    expectEnded();
  }
}

TEST_F(RecallTest, AnEarlierRefusalDoesNotEndIt) {
  fillMemory(2);
  state.enqSeen = true;
  press();
  EXPECT_EQ(told(), "Recall complete: 2 records");
}

TEST_F(RecallTest, ThreeAnswersInARowThatListNothingEndIt) {
  const std::string silentAnswers[] = {tests::framed("\6"), tests::framed("lgd:"), tests::framed("sts:00"),
                                       std::string("\2lgd:") + std::string(700, '1') + '\3'};
  for (const std::string& silent : silentAnswers) {
    SCOPED_TRACE(silent.substr(0, 6));
    fillMemory(4);
    hid.forget();
    special = [&](const std::string& command) { return command == "DPC03" ? silent : ""; };
    press();
    EXPECT_EQ(hid.commands, (Texts{"DPC02", "DPC02;STS??", "DPC03", "DPC03", "DPC03"}));
    EXPECT_EQ(told(), "Recall ended, no end of the data came: 0 records kept");
    expectEnded();
  }
}

TEST_F(RecallTest, AnswersThatListNothingAreForgottenWithTheNextRecord) {
  dumps = {"lgd:",
           "lgd:",
           "lgd:" + tests::record(1),
           "lgd:",
           "lgd:",
           "lgd:" + tests::record(2),
           "lgd:" + tests::endRecord()};
  press();
  EXPECT_EQ(told(), "Recall complete: 2 records");
}

TEST_F(RecallTest, OfADumpThatNeverEndsGoesOnUntilItIsCancelled) {
  dumps = {"lgd:" + tests::record(1) + tests::record(2)};
  atTurn(500, [this] { form.cmdCancel.click(); });
  press();
  EXPECT_EQ(state.logRow, 2 * 499 + 1);
  EXPECT_EQ(told(), "Recall cancelled: 998 records kept");
  expectEnded();
}

TEST_F(RecallTest, InTrendPlotTheDataAreAskedForOnce) {
  quietly([this] { form.cmbDmod.setListIndex(4); });
  press();
  EXPECT_EQ(hid.commands, Texts{"TRD??"});
  expectEnded();
}

TEST_F(RecallTest, InTheOtherModesWithTheMemoryRecallAndByTheProgramNothingIsSent) {
  for (const int mode : {-1, 1, 2, 3}) {
    quietly([&] { form.cmbDmod.setListIndex(mode); });
    press();
    expectEnded();
  }
  quietly([this] {
    form.cmbDmod.setListIndex(0);
    form.chkMld.setValue(1);
  });
  press();
  expectEnded();
  quietly([this] {
    form.chkMld.setValue(0);
    form.chkLog0.setValue(1);
  });
  EXPECT_EQ(hid.commands, Texts{});
  EXPECT_EQ(told(), "");
}

TEST_F(RecallTest, ReleasingTheButtonStartsNothing) {
  quietly([this] { form.chkLog0.setValue(1); });
  form.chkLog0.setValue(0);
  EXPECT_EQ(hid.commands, Texts{});
}

TEST_F(RecallTest, OnASerialLinkNothingIsSentAndPanelOneTells) {
  useSerial();
  listSomething();
  press();
  EXPECT_EQ(serial, Texts{});
  EXPECT_EQ(told(), "Works over USB only");
  EXPECT_TRUE(listKept());
  EXPECT_EQ(pump.pumps, 0U);
  expectEnded();
}

TEST_F(RecallTest, ClearingThatIsNotAnsweredKeepsTheList) {
  const std::string answers[] = {tests::framed("\5"), std::string("\2") + std::string(700, 'x') + '\3'};
  for (const std::string& wire : answers) {
    listSomething();
    hid.answerAll(wire);
    form.cmdLog[1].click();
    EXPECT_TRUE(listKept());
  }
  hid.answerAll("");
  form.cmdLog[1].click();
  EXPECT_TRUE(listKept());
  expectOneFailureMessage();
}

TEST_F(RecallTest, ARefusedClearingIsTold) {
  hid.answerAll(tests::framed("\5"));
  form.cmdLog[1].click();
  EXPECT_EQ(told(), "Refused by the instrument: the list is kept");
}

TEST_F(RecallTest, TheListIsClearedBehindTheStatusReplySoThatNoEndMarkIsLeft) {
  form.SSTab1.setTabs(2);
  quietly([this] {
    form.SSTab1.setTab(1);
    protocol::showRecording(form, true);
  });
  hid.answerAll(tests::framed("sts:00"));
  form.cmdLog[1].click();
  EXPECT_EQ(form.grdLog.text(1, 1), "");
  EXPECT_FALSE(state.logEnd);
  EXPECT_EQ(form.chkLog1.caption(), "Start");
}

}  // namespace
}  // namespace vireon::meter
