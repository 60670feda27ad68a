#include "adapters/qt/file_dialogs.h"

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <array>
#include <fstream>
#include <memory>

#include "tests/adapters/qt/dialog_user.h"
#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {
namespace {

// Knows whether a file of a folder was opened.
class OpenedFiles {
 public:
  explicit OpenedFiles(const std::filesystem::path& folder)
      : queue_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    EXPECT_GE(::inotify_add_watch(queue_, folder.c_str(), IN_OPEN), 0);
  }
  OpenedFiles(const OpenedFiles&) = delete;
  OpenedFiles& operator=(const OpenedFiles&) = delete;
  ~OpenedFiles() { ::close(queue_); }

  // The names, each with a blank behind it.
  std::string names() const {
    alignas(inotify_event) std::array<char, 4096> events{};
    std::string names;
    for (ssize_t size = 0; (size = ::read(queue_, events.data(), events.size())) > 0;) {
      for (ssize_t at = 0; at < size;) {
        const auto* const event = reinterpret_cast<const inotify_event*>(events.data() + at);
        if ((event->mask & IN_ISDIR) == 0 && event->len != 0) {
          names += event->name + std::string(" ");
        }
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
      }
    }
    return names;
  }

 private:
  int queue_;
};

QStringList shownNames(const QFileDialog& dialog) {
  const auto* const list = dialog.findChild<QAbstractItemView*>(QStringLiteral("listView"));
  QStringList names;
  for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
    names << list->model()->index(row, 0, list->rootIndex()).data().toString();
  }
  return names;
}

class FileDialogs : public testing::Test {
 protected:
  std::string path(const char* name) const { return (folder / name).string(); }
  void write(const char* name) const { std::ofstream(folder / name) << "old"; }

  platform::FileQuestion question() const {
    return {"Bitmap Image (*.bmp)|*.bmp|Two kinds|*.a;*.b", folder.path().string(), ".BMP"};
  }

  // The user opens a.bmp in the folder.
  std::string openPicture() {
    write("a.bmp");
    const DialogUser user([this](QFileDialog& dialog) {
      enterName(dialog, QString::fromStdString(path("a.bmp")));
      accept(dialog);
    });
    return dialogs.openName(question());
  }

  TemporaryFolder folder;
  adapters::ModalGate gate;
  adapters::QtFileDialogs dialogs{gate};
};

TEST_F(FileDialogs, OfferTheFiltersAndTheFolder) {
  const DialogUser user([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.nameFilters(),
              (QStringList{QStringLiteral("Bitmap Image (*.bmp)"), QStringLiteral("Two kinds (*.a *.b)")}));
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder.path().string());
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    dialog.reject();
  });
  dialogs.openName(question());
}

TEST_F(FileDialogs, AreTheToolkitsOwnOnEveryDesktop) {
  for (const bool stays : {true, false}) {
    platform::FileQuestion asked = question();
    asked.staysInFolder = stays;
    const DialogUser user([](QFileDialog& dialog) {
      EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
      dialog.reject();
    });
    dialogs.openName(asked);
  }
}

TEST_F(FileDialogs, ShowSizesKindsAndDatesWhole) {
  write("a.bmp");
  const DialogUser user([](QFileDialog& dialog) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownNames(dialog).size() == 1; }));
    const auto* const list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    const QAbstractItemModel& files = *list->model();
    for (int column = 1; column < files.columnCount(list->rootIndex()); ++column) {
      const QString text = files.index(0, column, list->rootIndex()).data().toString();
      EXPECT_TRUE(QTest::qWaitFor([&] {
        return list->columnWidth(column) > QFontMetrics(list->font()).horizontalAdvance(text);
      })) << qUtf8Printable(text);
    }
    dialog.reject();
  });
  dialogs.openName(question());
}

TEST_F(FileDialogs, GiveTheChosenNameToOpen) {
  EXPECT_EQ(openPicture(), path("a.bmp"));
}

TEST_F(FileDialogs, GiveTheChosenNameToSaveWithTheExtensionThatItLacks) {
  const DialogUser user([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    enterName(dialog, QString::fromStdString(path("a")));
    accept(dialog);
  });
  EXPECT_EQ(dialogs.saveName(question()), path("a.BMP"));
}

TEST_F(FileDialogs, KeepAnExtensionThatWasTyped) {
  const DialogUser user([this](QFileDialog& dialog) {
    enterName(dialog, QString::fromStdString(path("a.png")));
    accept(dialog);
  });
  EXPECT_EQ(dialogs.saveName(question()), path("a.png"));
}

TEST_F(FileDialogs, CancelledTheyGiveNoName) {
  const DialogUser open([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(dialogs.openName(question()), "");
  const DialogUser save([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(dialogs.saveName(question()), "");
}

TEST_F(FileDialogs, AskBeforeAFileIsReplaced) {
  write("a.bmp");
  int asked = 0;
  const DialogUser user([&](QFileDialog& dialog) {
    QTimer::singleShot(0, &dialog, [&] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      ++asked;
      box->button(QMessageBox::Yes)->click();
    });
    enterName(dialog, QString::fromStdString(path("a.bmp")));
    accept(dialog);
  });
  EXPECT_EQ(dialogs.saveName(question()), path("a.bmp"));
  EXPECT_EQ(asked, 1);
}

TEST_F(FileDialogs, TheTimersRestWhileOneIsOpen) {
  const DialogUser user([this](QFileDialog& dialog) {
    EXPECT_TRUE(gate.closed());
    dialog.reject();
  });
  dialogs.saveName(question());
  EXPECT_FALSE(gate.closed());
}

TEST_F(FileDialogs, StandOverTheirWindow) {
  QWidget window;
  window.show();
  dialogs.setParentWindow(&window);
  const DialogUser user([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.parentWidget(), &window);
    EXPECT_TRUE(dialog.isModal());
    dialog.reject();
  });
  dialogs.openName(question());
}

TEST_F(FileDialogs, StandOverTheirNewWindow) {
  QWidget window;
  const DialogUser first([](QFileDialog& dialog) { dialog.reject(); });
  dialogs.openName(question());
  dialogs.setParentWindow(&window);
  const DialogUser second([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.parentWidget(), &window);
    EXPECT_TRUE(dialog.isWindow());
    dialog.reject();
  });
  dialogs.openName(question());
}

TEST_F(FileDialogs, KeepToTheirFolderWhereTheyMust) {
  platform::FileQuestion bound = question();
  bound.staysInFolder = true;
  const DialogUser user([this](QFileDialog& dialog) {
    dialog.setDirectory(QDir::rootPath());
    Q_EMIT dialog.directoryEntered(QDir::rootPath());
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder.path().string());
    dialog.reject();
  });
  dialogs.openName(bound);
}

TEST_F(FileDialogs, ShowAFolderWithoutOpeningItsFiles) {
  write("a.bmp");
  write("b");
  const OpenedFiles opened(folder.path());
  const DialogUser user([](QFileDialog& dialog) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownNames(dialog) == QStringList{QStringLiteral("a.bmp")}; }));
    QApplication::processEvents();
    dialog.reject();
  });
  dialogs.openName(question());
  EXPECT_EQ(opened.names(), "");
  write("a.bmp");
  EXPECT_EQ(opened.names(), "a.bmp ");
}

TEST_F(FileDialogs, TellTheKindOfAFileByItsName) {
  const adapters::FileIcons icons;
  EXPECT_EQ(icons.type(QFileInfo(QString::fromStdString(path("x.txt")))),
            QMimeDatabase().mimeTypeForName(QStringLiteral("text/plain")).comment());
  EXPECT_EQ(icons.type(QFileInfo(QString::fromStdString(path("x.WFM")))), QStringLiteral("waveform"));
  EXPECT_EQ(icons.type(QFileInfo(QString::fromStdString(path("x.trd")))), QStringLiteral("trend"));
  EXPECT_EQ(icons.type(QFileInfo(QString::fromStdString(path("x.nobody-knows")))),
            QMimeDatabase().mimeTypeForName(QStringLiteral("application/octet-stream")).comment());
  EXPECT_EQ(icons.type(QFileInfo(QString::fromStdString(folder.path()))),
            QMimeDatabase().mimeTypeForName(QStringLiteral("inode/directory")).comment());
  EXPECT_FALSE(icons.icon(QFileInfo(QString::fromStdString(path("x.txt")))).isNull());
  EXPECT_NE(icons.icon(QFileInfo(QString::fromStdString(path("x.txt")))).cacheKey(),
            icons.icon(QFileInfo(QString::fromStdString(folder.path()))).cacheKey());
}

TEST_F(FileDialogs, BeginAnewWithEachQuestion) {
  write("a.bmp");
  const DialogUser first([](QFileDialog& dialog) {
    enterName(dialog, QStringLiteral("typed"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownNames(dialog).size() == 1; }));
    dialog.reject();
  });
  dialogs.openName(question());
  write("new.trd");
  write("old.trd");
  const DialogUser again([](QFileDialog& dialog) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownNames(dialog).size() == 2; }));
    dialog.reject();
  });
  dialogs.openName({"Trend|*.trd", folder.path().string(), ""});
  std::filesystem::remove(folder / "old.trd");
  const DialogUser second([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(), QString());
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Save"));
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog.nameFilters(), QStringList{QStringLiteral("Trend (*.trd)")});
    EXPECT_EQ(dialog.defaultSuffix(), QString());
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder.path().string());
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return shownNames(dialog) == QStringList{QStringLiteral("new.trd")}; }));
    dialog.reject();
  });
  dialogs.saveName({"Trend|*.trd", folder.path().string(), ""});
}

TEST_F(FileDialogs, ShowFirstTheFolderOfTheFileChosenLast) {
  openPicture();
  const TemporaryFolder other;
  const DialogUser away([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), other.path().string());
    dialog.reject();
  });
  dialogs.openName({"All|*", other.path().string(), ""});
  const DialogUser back([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder.path().string());
    dialog.reject();
  });
  dialogs.openName({"All|*", "", ""});
}

TEST_F(FileDialogs, ShowTheFolderOfTheFileChosenLastWhereTheWantedOneIsGone) {
  openPicture();
  const TemporaryFolder other;
  const DialogUser user([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder.path().string());
    dialog.reject();
  });
  dialogs.openName({"All|*", (other / "gone").string(), "", true});
}

TEST_F(FileDialogs, ClosedTheyWatchNoFolder) {
  QWidget window;
  dialogs.setParentWindow(&window);
  const DialogUser user([](QFileDialog& dialog) {
    EXPECT_FALSE(dialog.findChild<QFileSystemModel*>()->testOption(QFileSystemModel::DontWatchForChanges));
    dialog.reject();
  });
  dialogs.openName(question());
  const auto* const files = window.findChild<QFileSystemModel*>();
  ASSERT_NE(files, nullptr);
  EXPECT_TRUE(files->testOption(QFileSystemModel::DontWatchForChanges));
}

TEST_F(FileDialogs, AskNothingElseWhileOneIsOpen) {
  const DialogUser user([this](QFileDialog& dialog) {
    EXPECT_EQ(dialogs.saveName(question()), "");
    enterName(dialog, QString::fromStdString(path("a.bmp")));
    accept(dialog);
  });
  EXPECT_EQ(dialogs.openName(question()), path("a.bmp"));
}

TEST_F(FileDialogs, GoneWithTheirWindowTheyGiveNoName) {
  auto window = std::make_unique<QWidget>();
  dialogs.setParentWindow(window.get());
  const DialogUser user([&](QFileDialog&) { window.reset(); });
  EXPECT_EQ(dialogs.openName(question()), "");
  EXPECT_FALSE(gate.closed());
  const DialogUser next([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.parentWidget(), nullptr);
    dialog.reject();
  });
  EXPECT_EQ(dialogs.openName(question()), "");
}

}  // namespace
}  // namespace vireon::tests
