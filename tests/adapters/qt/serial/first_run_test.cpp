#include <QProgressBar>

#include "tests/adapters/qt/serial/serial_window_fixture.h"
#include "tests/fakes/unprivileged.h"

namespace vireon::tests {
namespace {

// The program without a settings file.
class FirstRun : public SerialWindowTest {
 protected:
  static QWidget* searchWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String("searchWindow") && widget->isVisible()) {
        return widget;
      }
    }
    return nullptr;
  }
  static QString step() { return searchWindow()->findChild<QLabel*>(QStringLiteral("searchStep"))->text(); }

  // Does something to the search window as soon as it tries this pair, while its probe waits.
  void whenItTries(const QString& text, const std::function<void(QWidget&)>& action) {
    watcher.callOnTimeout([this, text, action] {
      if (!done && searchWindow() != nullptr && step() == text && program().link.linkBusy) {
        done = true;
        action(*searchWindow());
      }
    });
    watcher.start(1);
  }

  void expectQuietEnd() {
    EXPECT_FALSE(session.show());
    EXPECT_TRUE(done);
    EXPECT_TRUE(messages.seen.empty());
    EXPECT_EQ(searchWindow(), nullptr);
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(folder.names(), std::vector<std::string>{"COM1"});
  }

  QTimer watcher;
  bool done = false;
};

TEST_F(FirstRun, FindsTheInstrumentAndWritesTheSettings) {
  plugIn(3, 2400);
  ASSERT_TRUE(session.show());
  turn();
  EXPECT_TRUE(messages.seen.empty());
  EXPECT_EQ(settingsNow(), settings(3, 2400));
  EXPECT_EQ(linkState(), "COM3:2400");
  EXPECT_TRUE(window().isVisible());
  EXPECT_EQ(searchWindow(), nullptr);
  expectWorks();
  EXPECT_EQ(program().link.comWait, 2400);
}

TEST_F(FirstRun, ShowsWhatIsTriedBeforeTheMainWindowComes) {
  plugIn(1, 4800);
  QStringList shown;
  int progress = -1;
  watcher.callOnTimeout([&] {
    if (searchWindow() != nullptr && program().link.linkBusy && !shown.contains(step())) {
      EXPECT_FALSE(window().isVisible());
      shown << step();
      const int now = searchWindow()->findChild<QProgressBar*>()->value();
      EXPECT_GT(now, progress);
      progress = now;
    }
  });
  watcher.start(1);
  ASSERT_TRUE(session.show());
  ASSERT_GE(shown.size(), 2);
  EXPECT_EQ(shown[0], QStringLiteral("Trying COM1 at 9600 baud ..."));
  EXPECT_EQ(shown[1], QStringLiteral("Trying COM1 at 4800 baud ..."));
}

TEST_F(FirstRun, ItsButtonEndsTheSearchQuietly) {
  plugIn(1, 9600, {"--fault", "silence"});
  whenItTries(QStringLiteral("Trying COM1 at 9600 baud ..."), [](QWidget& search) {
    QTest::mouseClick(search.findChild<QWidget*>(QStringLiteral("searchCancel")), Qt::LeftButton);
  });
  expectQuietEnd();
  EXPECT_FALSE(serialPort.isOpen());
}

TEST_F(FirstRun, EscapeEndsTheSearchQuietly) {
  plugIn(1, 9600, {"--fault", "silence"});
  whenItTries(QStringLiteral("Trying COM1 at 4800 baud ..."),
              [](QWidget& search) { QTest::keyClick(&search, Qt::Key_Escape); });
  expectQuietEnd();
}

TEST_F(FirstRun, ClosingItsWindowEndsTheSearchQuietly) {
  plugIn(1, 9600, {"--fault", "silence"});
  whenItTries(QStringLiteral("Trying COM1 at 9600 baud ..."), [](QWidget& search) { search.close(); });
  expectQuietEnd();
}

TEST_F(FirstRun, ACancelWhileTheInstrumentIsAskedForItsModelWritesNothing) {
  plugIn(1, 9600, {"--fault", "late=300"});
  watcher.callOnTimeout([this] {
    if (!done && program().link.linkBusy && !program().link.portSearch) {
      done = true;
      searchWindow()->close();
    }
  });
  watcher.start(1);
  expectQuietEnd();
}

TEST_F(FirstRun, WithoutAnInstrumentOneMessageEndsTheProgram) {
  plugIn(1, 9600, {"--fault", "silence"});
  EXPECT_FALSE(session.show());
  ASSERT_EQ(messages.seen.size(), 1U);
  EXPECT_EQ(messages.seen[0].title, QStringLiteral("Device Not Found"));
  EXPECT_EQ(messages.seen[0].text,
            QStringLiteral("Device not detected...Please check Communication cable & connector."));
  EXPECT_EQ(messages.seen[0].icon, QMessageBox::Critical);
  EXPECT_FALSE(window().isVisible());
  EXPECT_FALSE(serialPort.isOpen());
  EXPECT_EQ(folder.names(), std::vector<std::string>{"COM1"});
}

TEST_F(FirstRun, AnAdapterPulledOutDuringTheSearchIsPassedOver) {
  plugIn(1, 9600, {"--fault", "hangup-command=1"});
  plugIn(2, 9600);
  ASSERT_TRUE(session.show());
  EXPECT_TRUE(messages.seen.empty());
  EXPECT_EQ(settingsNow(), settings(2, 9600));
}

TEST_F(FirstRun, AFolderThatTakesNoFilesKeepsTheValuesForThisRun) {
  plugIn(1, 4800);
  {
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
    std::filesystem::permissions(portPath(1), std::filesystem::perms(0666));
    const Unprivileged account;
    ASSERT_TRUE(session.show());
  }
  EXPECT_TRUE(messages.seen.empty());
  EXPECT_EQ(folder.names(), std::vector<std::string>{"COM1"});
  turn();
  EXPECT_EQ(linkState(), "COM1:4800");
  expectWorks();
}

}  // namespace
}  // namespace vireon::tests
