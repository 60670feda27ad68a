#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <functional>

#include "adapters/qt/file_dialogs.h"
#include "tests/adapters/qt/dialog_user.h"

namespace vireon::tests {
namespace {

void type(QFileDialog& dialog, const QString& name) {
  auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  box->setText(name);
  QTest::keyClick(box, Qt::Key_Return);
  QApplication::processEvents();
}

class FolderDialog : public testing::Test {
 protected:
  FolderDialog() {
    EXPECT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("sub")));
    EXPECT_TRUE(QDir(other_.path()).mkdir(QStringLiteral("sub")));
    write(folder_.filePath(QStringLiteral("here.wfm")));
    write(other_.filePath(QStringLiteral("there.wfm")));
    question_ = {"Scope Data File(*.wfm)|*.wfm", folder_.path().toStdString(), "", true};
  }

  static void write(const QString& path) { EXPECT_TRUE(QFile(path).open(QIODevice::WriteOnly)); }

  std::string open(const std::function<void(QFileDialog&)>& use) {
    const DialogUser user([&](QFileDialog& dialog) {
      use(dialog);
      if (dialog.isVisible()) {
        dialog.reject();
      }
    });
    return dialogs_.openName(question_);
  }

  std::string here(const char* name) const { return folder_.filePath(QLatin1String(name)).toStdString(); }

  QTemporaryDir folder_;
  QTemporaryDir other_;
  adapters::ModalGate gate_;
  adapters::QtFileDialogs dialogs_{gate_};
  platform::FileQuestion question_;
};

TEST_F(FolderDialog, GivesThePathOfTheChosenFile) {
  EXPECT_EQ(open([](QFileDialog& dialog) { type(dialog, QStringLiteral("here.wfm")); }), here("here.wfm"));
}

TEST_F(FolderDialog, GivesTheNameOfAFileThatIsNotThereToo) {
  EXPECT_EQ(open([](QFileDialog& dialog) { type(dialog, QStringLiteral("HERE")); }), here("HERE"));
}

TEST_F(FolderDialog, GivesNothingWhenTheUserCancels) {
  EXPECT_EQ(open([](QFileDialog&) {}), "");
}

TEST_F(FolderDialog, ShowsTheFilesOfTheFolderThatFitTheFilter) {
  open([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.nameFilters(), QStringList{QStringLiteral("Scope Data File(*.wfm)")});
    EXPECT_EQ(dialog.directory(), QDir(folder_.path()));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Open"));
  });
}

TEST_F(FolderDialog, TakesNoFileOfAnotherFolder) {
  for (const QString& name : {other_.filePath(QStringLiteral("there.wfm")), QStringLiteral("../x.wfm"),
                              QStringLiteral("sub/x.wfm"), QStringLiteral("/")}) {
    EXPECT_EQ(open([&](QFileDialog& dialog) {
                type(dialog, name);
                EXPECT_EQ(dialog.directory(), QDir(folder_.path()));
              }),
              "")
        << name.toStdString();
  }
}

TEST_F(FolderDialog, ComesBackFromEveryOtherFolder) {
  open([this](QFileDialog& dialog) {
    for (const QString& path :
         {other_.path(), folder_.filePath(QStringLiteral("sub")), QStringLiteral("/")}) {
      dialog.setDirectory(path);
      QApplication::processEvents();
      EXPECT_EQ(dialog.directory(), QDir(folder_.path())) << path.toStdString();
    }
    EXPECT_FALSE(dialog.findChild<QWidget*>(QStringLiteral("toParentButton"))->isVisible());
    EXPECT_FALSE(dialog.findChild<QWidget*>(QStringLiteral("lookInCombo"))->isVisible());
    EXPECT_FALSE(dialog.findChild<QWidget*>(QStringLiteral("sidebar"))->isVisible());
  });
}

TEST_F(FolderDialog, UnboundItGoesWhereTheUserGoes) {
  question_.staysInFolder = false;
  EXPECT_EQ(open([this](QFileDialog& dialog) { type(dialog, other_.filePath(QStringLiteral("there.wfm"))); }),
            other_.filePath(QStringLiteral("there.wfm")).toStdString());
}

TEST(NameFilters, AreOneForEachCaptionWithItsPatterns) {
  EXPECT_EQ(adapters::nameFilters("Saved Files(*.wfm;*.trd)|*.wfm;*.trd|All|*"),
            (QStringList{QStringLiteral("Saved Files(*.wfm *.trd)"), QStringLiteral("All (*)")}));
  EXPECT_TRUE(adapters::nameFilters("").isEmpty());
}

}  // namespace
}  // namespace vireon::tests
