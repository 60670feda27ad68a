#include "tests/soak/window_acts.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeySequence>
#include <QMimeData>
#include <QPalette>
#include <QPointer>
#include <QUrl>
#include <array>

#include "app/executables/dark_palette.h"

namespace vireon::soak {
namespace {

// All that the window file gives a shortcut to but leaving the program.
constexpr std::array<const char*, 17> kShortcuts{
    "Ctrl+O",          "Ctrl+P",        "F2",     "Ctrl+Down", "Ctrl+Up",    "Ctrl+1",
    "Ctrl+Shift+Down", "Ctrl+Shift+Up", "Ctrl+2", "Ctrl+Left", "Ctrl+Right", "Ctrl+L",
    "Ctrl+G",          "Ctrl+H",        "F5",     "Ctrl+C",    "Delete"};
constexpr std::array<int, 12> kKeys{Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Return,
                                    Qt::Key_Up,     Qt::Key_Down,    Qt::Key_Left,  Qt::Key_Right,
                                    Qt::Key_Escape, Qt::Key_F1,      Qt::Key_Menu,  Qt::Key_Backspace};

}  // namespace

void useKeys(Stage& stage, Dice& dice) {
  QWidget* const viewer = viewerOf();
  QWidget& target = viewer != nullptr && dice.oneIn(4) ? *viewer : static_cast<QWidget&>(stage.window());
  const QWidget* const exit = stage.window().findChild<QWidget*>(QStringLiteral("cmdBttn_1"));
  if (dice.percent(50)) {
    const QString name = QString::fromLatin1(dice.pick(kShortcuts));
    if (name == QLatin1String("Ctrl+P") && !dice.oneIn(5)) {
      return;
    }
    const QKeyCombination keys = QKeySequence(name)[0];
    stage.act("shortcut " + name.toStdString());
    stage.hands.key(target, keys.key(), keys.keyboardModifiers());
    return;
  }
  for (int left = dice.between(1, 4); left > 0; --left) {
    const int key = dice.pick(kKeys);
    const bool leaves = (key == Qt::Key_Space || key == Qt::Key_Return) && target.focusWidget() == exit;
    if (!leaves) {
      stage.act("key " + QKeySequence(key).toString().toStdString());
      stage.hands.key(target, key, {}, key == Qt::Key_Space ? QStringLiteral(" ") : QString());
    }
    if (QApplication::activeModalWidget() != nullptr) {
      return;
    }
  }
}

void useFrame(Stage& stage, Dice& dice) {
  QWidget& window = stage.window();
  const QPointer<QWidget> seen(&window);
  const auto later = [&stage, seen](void (QWidget::*step)()) {
    stage.steps.emplace_back([seen, step] {
      if (seen != nullptr) {
        (seen.data()->*step)();
      }
    });
  };
  switch (dice.below(5)) {
    case 0:
      stage.act("resize");
      window.resize(dice.between(200, 1600), dice.between(120, 1000));
      break;
    case 1:
      stage.act("minimise");
      window.showMinimized();
      for (int left = dice.between(1, 10); left > 0; --left) {
        stage.steps.emplace_back([] {});
      }
      later(&QWidget::showNormal);
      break;
    case 2:
      stage.act("maximise");
      window.showMaximized();
      later(&QWidget::showNormal);
      break;
    case 3:
      stage.act("move");
      window.move(dice.between(-100, 600), dice.between(-100, 500));
      break;
    default:
      stage.act("another palette");
      QApplication::setPalette(dice.oneIn(2) ? app::darkPalette() : QPalette());
      break;
  }
}

void drop(Stage& stage, const std::string& path) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
  QWidget& window = stage.window();
  const QPoint at(10, 10);
  QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&window, &enter);
  QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&window, &event);
}

void dropFile(Stage& stage, Dice& dice) {
  const auto names = stage.files.list(stage.folder.string());
  const std::string name = names.empty() || dice.percent(10) ? "not_there.wfm" : dice.pick(names);
  stage.act("drop " + name);
  drop(stage, (stage.folder / name).string());
}

}  // namespace vireon::soak
