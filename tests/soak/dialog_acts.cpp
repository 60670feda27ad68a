#include "tests/soak/dialog_acts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <vector>

#include "tests/soak/texts.h"
#include "tests/soak/widget_acts.h"

namespace vireon::soak {
namespace {

constexpr int kSoon = 3;  // milliseconds
constexpr int kWatching = 50;

QWidget* searchWindow() {
  for (QWidget* const top : QApplication::topLevelWidgets()) {
    if (top->isVisible() && top->objectName() == QLatin1String("searchWindow")) {
      return top;
    }
  }
  return nullptr;
}

void pressEnter(Stage& stage, QWidget& widget) {
  stage.hands.key(widget, Qt::Key_Return, {}, QStringLiteral("\r"));
}

void pressEscape(Stage& stage, QWidget& widget) {
  stage.hands.key(widget, Qt::Key_Escape, {}, QStringLiteral("\x1b"));
}

void useMenu(Stage& stage, Dice& dice, QMenu& menu) {
  const auto items = menu.actions();
  QAction* const item = items[dice.below(static_cast<int>(items.size()))];
  if (dice.percent(15) || !item->isEnabled() || item->isSeparator()) {
    stage.act("leave the menu");
    pressEscape(stage, menu);
  } else {
    stage.act("menu item " + item->objectName().toStdString());
    stage.hands.click(menu, menu.actionGeometry(item).center());
  }
}

void useList(Stage& stage, Dice& dice, QWidget& popup) {
  auto* const list = popup.findChild<QAbstractItemView*>();
  auto* const view = list == nullptr ? qobject_cast<QAbstractItemView*>(&popup) : list;
  if (dice.percent(15) || view == nullptr || view->model()->rowCount(view->rootIndex()) == 0) {
    stage.act("leave the list");
    pressEscape(stage, popup);
    return;
  }
  const int row = dice.below(view->model()->rowCount(view->rootIndex()));
  stage.act("list row " + std::to_string(row));
  const QModelIndex index = view->model()->index(row, 0, view->rootIndex());
  view->scrollTo(index);
  stage.hands.click(*view->viewport(), view->visualRect(index).center());
}

void answerBox(Stage& stage, Dice& dice, QMessageBox& box) {
  const bool search = box.text().contains(QLatin1String("Re-search"));
  const auto buttons = box.buttons();
  QAbstractButton* button = buttons[dice.below(static_cast<int>(buttons.size()))];
  if (search && !dice.percent(15)) {
    button = box.button(QMessageBox::No);
  }
  const int way = dice.below(10);
  if (way < 2) {
    stage.act("escape the message");
    pressEscape(stage, box);
  } else if (way < 4 && !search) {
    stage.act("enter at the message");
    pressEnter(stage, box);
  } else if (button != nullptr) {
    stage.act("answer " + button->text().toStdString());
    stage.hands.click(*button, button->rect().center());
  }
}

// A name that stays in the folder, mostly of a file that is there.
QString fileName(Stage& stage, Dice& dice) {
  std::vector<std::string> names;
  for (const std::string& name : stage.files.list(stage.folder.string())) {
    names.push_back(name);
  }
  const int way = dice.below(10);
  if (way < 7 && !names.empty()) {
    return QString::fromStdString((stage.folder / dice.pick(names)).string());
  }
  if (way < 9) {
    constexpr const char* kPictures[] = {"one.bmp", "two.bmp", "three.png", "four.BMP", "five"};
    return QString::fromStdString((stage.folder / dice.pick(kPictures)).string());
  }
  const QString name = nonsense(dice, 20).remove(QLatin1Char('/'));
  return QString::fromStdString((stage.folder / name.toStdString()).string());
}

void useFileDialog(Stage& stage, Dice& dice, QFileDialog& dialog) {
  auto* const line = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  auto* const list = dialog.findChild<QAbstractItemView*>(QStringLiteral("listView"));
  const int way = dice.below(100);
  if (way < 50 && line != nullptr) {
    const QString name = fileName(stage, dice);
    stage.act("file name \"" + name.section(QLatin1Char('/'), -1).toStdString() + "\"");
    const QPointer<QWidget> seen(line);
    line->setFocus();
    stage.hands.key(*line, Qt::Key_A, Qt::ControlModifier);
    typeOn(stage, *line, name);
    stage.steps.emplace_back([&stage, seen] {
      QWidget* const completions = QApplication::activePopupWidget();
      if (completions != nullptr) {
        pressEscape(stage, *completions);
      }
    });
    stage.steps.emplace_back([&stage, seen] {
      if (seen != nullptr) {
        pressEnter(stage, *seen);
      }
    });
  } else if (way < 70 && list != nullptr) {
    const bool twice = dice.percent(50);
    const int draw = dice.below(1000);
    const int rows = list->model()->rowCount(list->rootIndex());  // they come by and by
    stage.act("file row");
    if (rows == 0) {
      return;
    }
    const QModelIndex index = list->model()->index(draw % rows, 0, list->rootIndex());
    list->scrollTo(index);
    const QPoint at = list->visualRect(index).center();
    if (twice) {
      stage.hands.doubleClick(*list->viewport(), at);
    } else {
      stage.hands.click(*list->viewport(), at);
    }
  } else {
    stage.act("escape the file dialog");
    pressEscape(stage, dialog);
  }
}

}  // namespace

QWidget* inFront() {
  if (QWidget* const popup = QApplication::activePopupWidget()) {
    return popup;
  }
  if (QWidget* const modal = QApplication::activeModalWidget()) {
    return modal;
  }
  return searchWindow();
}

int answer(Stage& stage, Dice& dice, QWidget& front) {
  if (auto* const menu = qobject_cast<QMenu*>(&front)) {
    useMenu(stage, dice, *menu);
  } else if (auto* const box = qobject_cast<QMessageBox*>(&front)) {
    answerBox(stage, dice, *box);
  } else if (auto* const dialog = qobject_cast<QFileDialog*>(&front)) {
    useFileDialog(stage, dice, *dialog);
  } else if (front.objectName() == QLatin1String("searchWindow")) {
    if (!dice.percent(1)) {
      return kWatching;
    }
    stage.act("end the search");
    pressEscape(stage, front);
  } else {
    useList(stage, dice, front);
  }
  return kSoon;
}

void dismiss(Stage& stage, QWidget& front) {
  if (auto* const box = qobject_cast<QMessageBox*>(&front)) {
    auto* const button = box->button(QMessageBox::No);
    QAbstractButton& choice = button == nullptr ? *box->buttons().front() : *button;
    stage.hands.click(choice, choice.rect().center());
  } else {
    pressEscape(stage, front);
  }
}

}  // namespace vireon::soak
