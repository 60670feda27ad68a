#include "tests/soak/widget_acts.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QTabBar>
#include <QTableView>

#include "tests/soak/texts.h"

namespace vireon::soak {
namespace {

using Seen = QPointer<QWidget>;

constexpr int kTurningKeys[] = {Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left, Qt::Key_Right,
                                Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};

bool isUsable(const QWidget& widget) {
  const bool kind = widget.inherits("QAbstractButton") || widget.inherits("QComboBox") ||
                    widget.inherits("QLineEdit") || widget.inherits("QAbstractSlider") ||
                    widget.inherits("QTabBar") || widget.inherits("QTableView") ||
                    widget.inherits("QMenuBar");
  return kind && widget.isVisible() && widget.isEnabled() && widget.width() > 2 && widget.height() > 2;
}

void later(Stage& stage, QWidget& widget, const std::function<void(QWidget&)>& step) {
  stage.steps.emplace_back([seen = Seen(&widget), step] {
    if (seen != nullptr && seen->isVisible()) {
      step(*seen);
    }
  });
}

void drag(Stage& stage, Dice& dice, QWidget& widget) {
  const QPoint from = pointIn(dice, widget.rect());
  stage.act("drag " + nameOf(widget));
  stage.hands.press(widget, from);
  for (int left = dice.between(1, 6); left > 0; --left) {
    const QPoint to(dice.between(-10, widget.width() + 10), dice.between(-10, widget.height() + 10));
    later(stage, widget, [&stage, to](QWidget& seen) { stage.hands.move(seen, to); });
  }
  // A pointer that was let go of elsewhere still belongs to what was pressed.
  stage.steps.emplace_back([&stage, seen = Seen(&widget), from] {
    if (seen != nullptr) {
      stage.hands.release(*seen, from);
    }
  });
}

void turnKeys(Stage& stage, Dice& dice, QWidget& widget) {
  stage.act("keys at " + nameOf(widget));
  widget.setFocus();
  for (int left = dice.between(1, 5); left > 0; --left) {
    const int key = dice.pick(kTurningKeys);
    later(stage, widget, [&stage, key](QWidget& seen) { stage.hands.key(seen, key); });
  }
}

void turnWheel(Stage& stage, Dice& dice, QWidget& widget) {
  const int notches = dice.between(-3, 3);
  stage.act("wheel at " + nameOf(widget));
  stage.hands.wheel(widget, pointIn(dice, widget.rect()), notches);
}

void useButton(Stage& stage, Dice& dice, QWidget& widget) {
  const QPoint at = pointIn(dice, widget.rect());
  const int way = dice.below(100);
  if (way < 80) {
    stage.act("click " + nameOf(widget));
    stage.hands.click(widget, at);
  } else if (way < 85) {
    stage.act("double click " + nameOf(widget));
    stage.hands.doubleClick(widget, at);
  } else if (way < 90) {
    stage.act("right click " + nameOf(widget));
    stage.hands.click(widget, at, Qt::RightButton);
  } else if (way < 95) {
    stage.act("space at " + nameOf(widget));
    widget.setFocus();
    stage.hands.key(widget, Qt::Key_Space, {}, QStringLiteral(" "));
  } else {
    drag(stage, dice, widget);
  }
}

void useLine(Stage& stage, Dice& dice, QLineEdit& line) {
  const std::string name = nameOf(line);
  const QString text = typedText(dice, name);
  stage.act("type \"" + text.toStdString() + "\" into " + name);
  stage.hands.click(line, pointIn(dice, line.rect()));
  if (dice.percent(80)) {
    later(stage, line, [&stage](QWidget& seen) { stage.hands.key(seen, Qt::Key_A, Qt::ControlModifier); });
  }
  typeOn(stage, line, text);
  if (dice.percent(40)) {
    later(stage, line,
          [&stage](QWidget& seen) { stage.hands.key(seen, Qt::Key_Return, {}, QStringLiteral("\r")); });
  }
}

void useTabs(Stage& stage, Dice& dice, QTabBar& tabs) {
  const int tab = dice.below(std::max(1, tabs.count()));
  stage.act("tab " + std::to_string(tab));
  stage.hands.click(tabs, tabs.tabRect(tab).center());
}

void useMenuBar(Stage& stage, Dice& dice, QMenuBar& bar) {
  const auto menus = bar.actions();
  if (!menus.isEmpty()) {
    const QAction* const menu = menus[dice.below(static_cast<int>(menus.size()))];
    stage.act("menu " + menu->text().toStdString());
    stage.hands.click(bar, bar.actionGeometry(const_cast<QAction*>(menu)).center());
  }
}

void useTable(Stage& stage, Dice& dice, QTableView& table) {
  QWidget& sheet = *table.viewport();
  const int way = dice.below(10);
  if (way < 5) {
    stage.act("click " + nameOf(table));
    const QRect cell = table.visualRect(table.model()->index(table.rowAt(2), dice.below(4)));
    stage.hands.click(sheet, cell.isEmpty() ? pointIn(dice, sheet.rect()) : cell.center());
  } else if (way < 7) {
    stage.act("copy " + nameOf(table));
    table.setFocus();
    stage.hands.key(table, Qt::Key_A, Qt::ControlModifier);
    stage.hands.key(table, Qt::Key_C, Qt::ControlModifier);
  } else if (way < 9) {
    turnKeys(stage, dice, table);
  } else {
    stage.act("wheel at " + nameOf(table));
    stage.hands.wheel(sheet, pointIn(dice, sheet.rect()), dice.between(-5, 5));
  }
}

}  // namespace

void typeOn(Stage& stage, QWidget& line, const QString& text) {
  constexpr qsizetype kHandful = 4;
  for (qsizetype at = 0; at < text.size(); at += kHandful) {
    later(stage, line,
          [&stage, part = text.mid(at, kHandful)](QWidget& seen) { stage.hands.type(seen, part); });
  }
}

std::string nameOf(const QWidget& widget) {
  return (widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                        : widget.objectName())
      .toStdString();
}

QPoint pointIn(Dice& dice, const QRect& area) {
  const QRect inner = area.adjusted(1, 1, -1, -1);
  return {inner.left() + dice.below(std::max(1, inner.width())),
          inner.top() + dice.below(std::max(1, inner.height()))};
}

std::vector<QWidget*> usableWidgets(QWidget& window) {
  std::vector<QWidget*> usable;
  for (QWidget* const widget : window.findChildren<QWidget*>()) {
    if (widget->window() == &window && isUsable(*widget) &&
        qobject_cast<QHeaderView*>(widget->parentWidget()) == nullptr) {
      usable.push_back(widget);
    }
  }
  return usable;
}

void useWidget(Stage& stage, Dice& dice, QWidget& widget) {
  if (auto* const line = qobject_cast<QLineEdit*>(&widget)) {
    useLine(stage, dice, *line);
  } else if (auto* const tabs = qobject_cast<QTabBar*>(&widget)) {
    useTabs(stage, dice, *tabs);
  } else if (auto* const table = qobject_cast<QTableView*>(&widget)) {
    useTable(stage, dice, *table);
  } else if (auto* const bar = qobject_cast<QMenuBar*>(&widget)) {
    useMenuBar(stage, dice, *bar);
  } else if (qobject_cast<QAbstractButton*>(&widget) != nullptr) {
    useButton(stage, dice, widget);
  } else if (const int way = dice.below(10); way < 5) {
    if (qobject_cast<QComboBox*>(&widget) != nullptr) {
      stage.act("open " + nameOf(widget));
      stage.hands.click(widget, widget.rect().center());
    } else {
      drag(stage, dice, widget);
    }
  } else if (way < 8) {
    turnWheel(stage, dice, widget);
  } else {
    turnKeys(stage, dice, widget);
  }
}

}  // namespace vireon::soak
