#include "adapters/qt/file_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <fstream>

#include "tests/adapters/qt/dialog_user.h"
#include "tests/fakes/temporary_folder.h"

namespace vireon::tests {
namespace {

class FileDialogs : public testing::Test {
 protected:
  std::string path(const char* name) const { return (folder / name).string(); }
  void write(const char* name) const { std::ofstream(folder / name) << "old"; }

  platform::FileQuestion question() const {
    return {"Bitmap Image (*.bmp)|*.bmp|Two kinds|*.a;*.b", folder.path().string(), ".BMP"};
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

TEST_F(FileDialogs, GiveTheChosenNameToOpen) {
  write("a.bmp");
  const DialogUser user([this](QFileDialog& dialog) {
    dialog.selectFile(QString::fromStdString(path("a.bmp")));
    accept(dialog);
  });
  EXPECT_EQ(dialogs.openName(question()), path("a.bmp"));
}

TEST_F(FileDialogs, GiveTheChosenNameToSaveWithTheExtensionThatItLacks) {
  const DialogUser user([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    dialog.selectFile(QString::fromStdString(path("a")));
    accept(dialog);
  });
  EXPECT_EQ(dialogs.saveName(question()), path("a.BMP"));
}

TEST_F(FileDialogs, KeepAnExtensionThatWasTyped) {
  const DialogUser user([this](QFileDialog& dialog) {
    dialog.selectFile(QString::fromStdString(path("a.png")));
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
    dialog.selectFile(QString::fromStdString(path("a.bmp")));
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

}  // namespace
}  // namespace vireon::tests
