#include <QDesktopServices>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QTableView>
#include <QUrl>

#include "files/waveform_file.h"
#include "protocol/scoped_flag.h"
#include "tests/adapters/qt/dialog_user.h"
#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

// Takes what the program hands to the desktop.
class Desktop : public QObject {
  Q_OBJECT

 public:
  Desktop() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
  Q_DISABLE_COPY_MOVE(Desktop)
  ~Desktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

  QStringList opened;

 public Q_SLOTS:
  void open(const QUrl& url) { opened << url.toLocalFile(); }
};

class SavedFilesWindow : public WindowTest {
 protected:
  std::string file(const std::string& name) { return files.read("folder/" + name, 1U << 20U).bytes; }
  QString panel() { return find<QLabel>("StatusBar1_1")->text(); }

  void saveAWaveform() {
    goLive();
    click("cmdSave_0");
    tick();
    click("cmdBttn_0");
  }

  void drop(const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window(), &enter);
    entered = enter.isAccepted();
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window(), &event);
    turn();
    turn();
  }

  bool entered = false;
  Desktop desktop;
};

TEST_F(SavedFilesWindow, TheButtonsSaveAFrame) {
  goLive();
  QTest::mouseClick(find("txtFn_0"), Qt::LeftButton);
  turn();
  EXPECT_EQ(find<QLineEdit>("txtFn_0")->text(), QString());
  QTest::keyClicks(find("txtFn_0"), QStringLiteral("mine"));
  click("cmdSave_0");
  EXPECT_EQ(panel(), QStringLiteral("Waiting for the next waveform"));
  tick();
  EXPECT_EQ(file("mine.wfm"),
            files::waveformFile(std::span(program().state.rxBuf).first<files::kWaveformBytes>()));
  EXPECT_EQ(panel(), QStringLiteral("Saved mine.wfm"));
}

TEST_F(SavedFilesWindow, TheKeyboardsFocusEmptiesTheBoxOfItsPlaceholder) {
  window().activateWindow();
  QApplication::setActiveWindow(&window());
  auto* box = find<QLineEdit>("txtFn_0");
  EXPECT_EQ(box->text(), QStringLiteral("File Name"));
  box->setFocus(Qt::ActiveWindowFocusReason);
  turn();
  EXPECT_EQ(box->text(), QStringLiteral("File Name"));
  box->clearFocus();
  box->setFocus(Qt::TabFocusReason);
  turn();
  EXPECT_EQ(box->text(), QString());
}

TEST_F(SavedFilesWindow, AFileIsLoadedThroughTheDialogWhileDisconnected) {
  saveAWaveform();
  form().picScope.cls();
  const QString name = find<QLineEdit>("txtFn_0")->text();
  QMetaObject::invokeMethod(
      qApp,
      [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* box = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        box->setText(name);
        QTest::keyClick(box, Qt::Key_Return);
      },
      Qt::QueuedConnection);
  click("cmdLoad_0");
  EXPECT_EQ(panel(), QStringLiteral("Loaded %1.wfm").arg(name));
  EXPECT_EQ(form().picScope.lines().size(), 248U);
}

TEST_F(SavedFilesWindow, ADroppedFileIsShown) {
  saveAWaveform();
  form().picScope.cls();
  files.replace("/elsewhere/x.wfm", file(form().txtFn[0].text() + ".wfm"));
  drop(QStringLiteral("/elsewhere/x.wfm"));
  EXPECT_TRUE(entered);
  EXPECT_EQ(panel(), QStringLiteral("Loaded x.wfm"));
  EXPECT_EQ(form().picScope.lines().size(), 248U);
}

TEST_F(SavedFilesWindow, ADroppedListIsShownInItsTable) {
  files.replace("/elsewhere/x.txt", "No\tTime\r\n00001\t01:02:03\r\n");
  drop(QStringLiteral("/elsewhere/x.txt"));
  auto* table = find<QTableView>("grdLog");
  ASSERT_TRUE(table->isVisible());
  EXPECT_EQ(table->model()->index(0, 0).data().toString(), QStringLiteral("00001"));
}

TEST_F(SavedFilesWindow, NothingIsTakenWhileALongWorkRuns) {
  files.replace("/elsewhere/x.txt", "No\r\n");
  int dialogs = 0;
  const DialogUser user([&](QFileDialog& dialog) {
    ++dialogs;
    dialog.reject();
  });
  const link::LongWork::Scope work(program().longWork, 0);
  turn();
  QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier);
  drop(QStringLiteral("/elsewhere/x.txt"));
  EXPECT_FALSE(entered);
  EXPECT_EQ(dialogs, 0);
  EXPECT_EQ(panel(), QString());
}

TEST_F(SavedFilesWindow, NothingIsTakenWhileAMessageIsOpen) {
  const adapters::ModalGate::Hold hold(gate);
  drop(QStringLiteral("/elsewhere/x.txt"));
  EXPECT_FALSE(entered);
  EXPECT_EQ(panel(), QString());
}

TEST_F(SavedFilesWindow, ATextThatIsDraggedIsNoFile) {
  QMimeData data;
  data.setText(QStringLiteral("x.txt"));
  QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window(), &enter);
  EXPECT_FALSE(enter.isAccepted());
}

TEST_F(SavedFilesWindow, TheShortcutAsksForAFileOfAnyKind) {
  QStringList filters;
  const DialogUser user([&](QFileDialog& dialog) {
    filters = dialog.nameFilters();
    dialog.reject();
  });
  QApplication::setActiveWindow(&window());
  QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier);
  // A button pressed by its shortcut stays down for a moment.
  EXPECT_TRUE(QTest::qWaitFor([&] { return !filters.isEmpty(); }));
  EXPECT_EQ(filters, QStringList{QStringLiteral("Saved Files(*.wfm *.trd *.txt *.xls)")});
}

TEST_F(SavedFilesWindow, ANewSpreadsheetIsOpenedByTheDesktop) {
  {
    const protocol::ScopedFlag busy(program().state.uiBusy);
    form().SSTab1.setTab(1);
  }
  form().SSTab1.onLook();
  form().grdLog.setText(1, 0, "00001");
  form().optFmt[1].setValue(true);
  form().txtFn[1].setText("mine");
  turn();
  click("cmdSave_1");
  ASSERT_EQ(messages.seen.size(), 1U);
  EXPECT_EQ(messages.seen[0].text, QStringLiteral("Complete Excel file: folder/mine.xls"));
  ASSERT_EQ(desktop.opened.size(), 1);
  EXPECT_TRUE(desktop.opened[0].endsWith(QStringLiteral("/folder/mine.xls")));
  EXPECT_TRUE(file("mine.xls").starts_with("\xD0\xCF\x11\xE0")) << "a compound file";
}

}  // namespace
}  // namespace vireon::tests

#include "saved_files_test.moc"
