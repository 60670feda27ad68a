#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <algorithm>

#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

using namespace std::chrono_literals;

// What a user at a bench does from the first click to the last, with a steady 4.8 V at the jacks.
class MeterUser : public WindowTest {
 protected:
  explicit MeterUser(simulator::Model model = simulator::Model::kK7310) : WindowTest(model) {
    instrument.meterInput().drift = 0;
    instrument.meterInput().flicker = 0;
    click("cmdBttn_0");
  }

  void chooseMode(int mode) {
    form().SSTab1.setTab(1);
    form().cmbDmod.setListIndex(mode);
    turn();
  }

  void type(const char* name, const char* text) {
    auto* box = find<QLineEdit>(name);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QLatin1String(text));
  }

  // Lets time pass and the program poll, as often as that.
  void poll(int times, std::chrono::nanoseconds step = 500ms) {
    for (int i = 0; i < times; ++i) {
      clock.advance(step);
      form().tmrInt.tick();
    }
    turn();
  }

  std::string shownIn(const char* label) { return find<QLabel>(label)->text().trimmed().toStdString(); }
  std::string captionOf(const char* button) { return find<QAbstractButton>(button)->text().toStdString(); }

  std::string cell(int row, int column) {
    const QAbstractItemModel* model = find<QTableView>("grdLog")->model();
    return model->index(row - 1, column).data().toString().trimmed().toStdString();
  }
};

TEST_F(MeterUser, RecordsARunAndDownloadsIt) {
  chooseMode(0);
  type("txtLog_0", "00001");
  type("txtLog_1", "00000");
  type("txtLog_2", "00009");
  click("cmdLog_0");
  click("chkLog1");
  EXPECT_EQ(captionOf("chkLog1"), "Stop");
  poll(40);
  EXPECT_EQ(captionOf("chkLog1"), "Start");
  EXPECT_EQ(cell(1, 0), "00000");
  EXPECT_EQ(cell(10, 2), "4.80 V");
  EXPECT_EQ(cell(10, 3), "");

  click("chkLog0");
  EXPECT_EQ(form().StatusBar1.panel(1), "Recall complete: 10 records");
  EXPECT_EQ(cell(1, 0), "00000");
  EXPECT_EQ(cell(10, 0), "00009");
  EXPECT_EQ(cell(10, 3), "DCV");
  EXPECT_EQ(cell(11, 1), "--EOD---");
  EXPECT_TRUE(messages.seen.empty());
}

TEST_F(MeterUser, SeesEachRecordAsItComesUntilTurningToEarlierOnes) {
  chooseMode(0);
  auto* const list = find<QTableView>("grdLog");
  const auto sees = [&](int row) {
    const QRect place = list->visualRect(list->model()->index(row - 1, 0));
    return place.isValid() && list->viewport()->rect().contains(place);
  };
  click("chkLog1");
  for (int i = 0; i < 40; ++i) {
    poll(1);
    const int row = program().state.logRow - 1;
    EXPECT_TRUE(row < 1 || sees(row)) << row;
  }
  ASSERT_GT(program().state.logRow, 15);

  list->verticalScrollBar()->setValue(1);
  poll(10);
  EXPECT_TRUE(sees(2));
  EXPECT_FALSE(sees(program().state.logRow - 1));

  list->scrollToBottom();
  poll(10);
  EXPECT_TRUE(sees(program().state.logRow - 1));

  click("chkLog1");
  click("cmdLog_1");
  EXPECT_TRUE(sees(1));
}

TEST_F(MeterUser, EndsADownloadHalfwayAndKeepsWhatCame) {
  instrument.answer("DFN10;DPS0,1,0,99;DPC04");
  for (int second = 0; second < 105; ++second) {
    clock.advance(1s);
    instrument.answer("STS??");
  }
  chooseMode(0);
  // The second press reaches the window between two dumps.
  endpoint.setFaults({.endlessDump = true});
  QTimer::singleShot(0, &window(), [this] { QTest::mouseClick(find("chkLog0"), Qt::LeftButton); });
  click("chkLog0");
  EXPECT_TRUE(form().StatusBar1.panel(1).starts_with("Recall cancelled: ")) << form().StatusBar1.panel(1);
  EXPECT_FALSE(find<QAbstractButton>("chkLog0")->isChecked());
  EXPECT_TRUE(find("cmdStart")->isEnabled());
  EXPECT_TRUE(messages.seen.empty());
}

TEST_F(MeterUser, WatchesATrendToItsEndAndFindsItsFile) {
  chooseMode(4);
  click("chkLog1");
  poll(130, 2s);
  EXPECT_EQ(form().barTrd.value(), 119);
  EXPECT_EQ(captionOf("chkLog1"), "Start");
  EXPECT_EQ(form().picTrd.lines().size(), 119U);
  const std::string name = form().txtFn[1].text();
  EXPECT_TRUE(name.starts_with("Trd_")) << name;
  const std::string file = files.read("folder/" + name + ".trd", 1U << 20U).bytes;
  EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 123);
  EXPECT_TRUE(file.starts_with("4.800V\r\n100mV\r\n20Sec\r\n&H14\r\n")) << file.substr(0, 60);

  instrument.clearLog();
  click("chkLog1");
  EXPECT_TRUE(instrument.log().empty());
  EXPECT_NE(form().StatusBar1.panel(1).find("Clr"), std::string::npos);
  click("cmdLprt");
  EXPECT_EQ(form().barTrd.value(), 0);
  EXPECT_TRUE(form().picTrd.lines().empty());
}

TEST_F(MeterUser, ComparesReadingsWithAReference) {
  chooseMode(2);
  click("cmdSetup");
  EXPECT_TRUE(find("picSet")->isVisible());
  EXPECT_FALSE(find("txtSet_1")->isVisible());
  type("txtSet_0", "4.700V");
  click("cmdSet_0");
  EXPECT_EQ(lastCommand(), "DPS4.700V");
  click("cmdSet_1");
  EXPECT_TRUE(find("picSwin_1")->isVisible());
  click("cmdStart");
  poll(20);
  EXPECT_EQ(shownIn("lblYdg_0"), "4.700V");
  EXPECT_EQ(shownIn("lblYdg_1"), "100.0mV");
  EXPECT_EQ(shownIn("lblYdg_2"), "+2.13%");
}

TEST_F(MeterUser, TestsReadingsAgainstLimits) {
  chooseMode(3);
  click("cmdSetup");
  EXPECT_TRUE(find("txtSet_1")->isVisible());
  type("txtSet_0", "4.900V");
  type("txtSet_1", "4.810V");
  click("cmdSet_0");
  EXPECT_EQ(lastCommand(), "DPS4.900V,4.810V");
  click("cmdSet_1");
  click("cmdStart");
  click("cmdSub_0");
  poll(20);
  EXPECT_EQ(shownIn("lblYdg_0"), "4.900V");
  EXPECT_EQ(shownIn("lblYdg_1"), "4.810V");
  EXPECT_EQ(shownIn("lblYdg_2"), "4.80 V");
  EXPECT_EQ(shownIn("lblYdg_3"), "0.0%");
  instrument.meterInput().signal.offset = 6.05;
  poll(200);
  EXPECT_GT(std::stod(shownIn("lblYdg_3")), 80.0);
}

TEST_F(MeterUser, WatchesTheStatisticsOfARecord) {
  chooseMode(1);
  click("cmdStart");
  poll(20);
  for (const char* label : {"lblYdg_0", "lblYdg_1", "lblYdg_2"}) {
    EXPECT_TRUE(shownIn(label).starts_with("4.80 V")) << shownIn(label);
  }
  const int counted = std::stoi(shownIn("lblYdg_3"));
  EXPECT_GT(counted, 10);
  click("chkSub");
  poll(20);
  EXPECT_LE(std::stoi(shownIn("lblYdg_3")), counted + 1);
  click("chkSub");
  click("cmdSub_0");
  poll(2);
  EXPECT_LT(std::stoi(shownIn("lblYdg_3")), counted);
}

class MeterModelUser : public MeterUser {
 protected:
  MeterModelUser() : MeterUser(simulator::Model::kK7900) {}
};

TEST_F(MeterModelUser, MeasuresDwellAndReadsItsName) {
  EXPECT_EQ(find<QTabBar>("SSTab1")->count(), 1);
  const auto* functions = find<QComboBox>("cmbFun");
  const int dwell = functions->findText(QStringLiteral("Dwell"));
  ASSERT_GE(dwell, 8);
  form().cmbFun.setListIndex(dwell);
  EXPECT_EQ(lastCommand(), "DFN08;DFN??;VDA??;VDB??");
  click("cmdStart");
  poll(2);
  const auto& log = instrument.log();
  EXPECT_NE(std::find(log.begin(), log.end(), "AFN??"), log.end());
  EXPECT_EQ(shownIn("panAfn"), "DWELL ANGLE");
  EXPECT_FALSE(shownIn("lblDmm").empty());
}

}  // namespace
}  // namespace vireon::tests
