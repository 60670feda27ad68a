#pragma once

#include <QWidget>
#include <vector>

#include "tests/soak/dice.h"
#include "tests/soak/stage.h"

namespace vireon::soak {

// What a user can put his hand to in this window: seen, enabled, and made for input.
std::vector<QWidget*> usableWidgets(QWidget& window);

// One act with this widget, of those that its kind invites.
void useWidget(Stage& stage, Dice& dice, QWidget& widget);

// Has it typed into the line, a handful of letters a step: the windows paint between those of a keyboard.
void typeOn(Stage& stage, QWidget& line, const QString& text);

// A point of the widget, its edges left out.
QPoint pointIn(Dice& dice, const QRect& area);

// Its object name, or its kind where it has none.
std::string nameOf(const QWidget& widget);

}  // namespace vireon::soak
