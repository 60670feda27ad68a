#include "adapters/qt/panel_bindings.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "adapters/qt/picture_view.h"
#include "adapters/qt/text.h"
#include "platform/twips.h"

namespace vireon::adapters {
namespace {

constexpr int kTwipsPerPixel = static_cast<int>(platform::kTwipsPerInch / 96);
constexpr int kDefaultColumnWidth = 75;  // pixels

}  // namespace

PictureBoxBinding::PictureBoxBinding(const form::PictureBox& control, QWidget& widget, const ModalGate& gate)
    : Binding(&widget, gate) {
  if (auto* picture = qobject_cast<PictureView*>(&widget)) {
    picture->setPicture(control);
  }
}

void PictureBoxBinding::show() {
  if (qobject_cast<PictureView*>(widget()) != nullptr) {
    widget()->update();
  }
}

void ProgressBarBinding::show() {
  bar_.setRange(control_.minimum(), control_.maximum());
  bar_.setValue(control_.value());
}

TabControlBinding::TabControlBinding(form::TabControl& control, QTabBar& widget, const ModalGate& gate)
    : Binding(&widget, gate), control_(control), tabs_(widget) {
  widget.setDrawBase(false);
  widget.setExpanding(false);
  QObject::connect(&widget, &QTabBar::currentChanged, &widget, [this](int tab) {
    if (tab >= 0) {
      act(tabs_, [this, tab] { turnTo(tab); });
    }
  });
}

void TabControlBinding::turnTo(int tab) {
  if (control_.enabled()) {
    control_.setTab(tab);
  } else {
    control_.look(tab);
  }
}

void TabControlBinding::show() {
  const QSignalBlocker blocker(tabs_);
  while (tabs_.count() > control_.tabs()) {
    tabs_.removeTab(tabs_.count() - 1);
  }
  while (tabs_.count() < control_.tabs()) {
    tabs_.addTab(QString());
  }
  for (int tab = 0; tab < control_.tabs(); ++tab) {
    tabs_.setTabText(tab, shown(control_.captions()[static_cast<std::size_t>(tab)]));
  }
  tabs_.setCurrentIndex(control_.tab());
}

StatusBarBinding::StatusBarBinding(const form::StatusBar& control, QWidget& widget, const ModalGate& gate)
    : Binding(&widget, gate), control_(control) {
  for (int panel = 1; panel <= form::StatusBar::kPanels; ++panel) {
    labels_.at(static_cast<std::size_t>(panel - 1)) =
        widget.findChild<QLabel*>(shown(control.name() + "_" + std::to_string(panel)));
  }
}

void StatusBarBinding::show() {
  for (int panel = 1; panel <= form::StatusBar::kPanels; ++panel) {
    if (QLabel* const label = labels_.at(static_cast<std::size_t>(panel - 1))) {
      const QString text = shownUtf8(control_.panel(panel));
      const QString fitting = QFontMetrics(label->font()).elidedText(text, Qt::ElideRight, roomOf(*label));
      const QString toolTip = shownUtf8(control_.toolTip(panel));
      label->setText(fitting);
      label->setToolTip(toolTip.isEmpty() && fitting != text ? text : toolTip);
      label->setAccessibleDescription(text);
    }
  }
}

// Up to the next widget that stands in its way.
int StatusBarBinding::roomOf(const QLabel& label) const {
  int end = label.geometry().right() + 1;
  for (const QWidget* other : widget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (other != &label && !other->isHidden() && other->x() > label.x()) {
      end = std::min(end, other->x());
    }
  }
  return end - label.x();
}

GridBinding::GridBinding(form::Grid& control, QTableView& widget, const ModalGate& gate)
    : Binding(&widget, gate),
      control_(control),
      table_(widget),
      formWidth_(widget.width()),
      model_(control, nullptr) {
  widget.setModel(&model_);
  widget.verticalHeader()->hide();
  widget.verticalHeader()->setMinimumSectionSize(1);
  widget.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  widget.horizontalHeader()->setHighlightSections(false);
  widget.horizontalHeader()->setStretchLastSection(true);
  widget.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void GridBinding::show() {
  model_.follow();
  // Set anew, a height or width lays the whole table out again.
  const int height = QFontMetrics(table_.font()).height() + 4;
  if (table_.verticalHeader()->defaultSectionSize() != height) {
    table_.verticalHeader()->setDefaultSectionSize(height);
  }
  const double scale = table_.width() / static_cast<double>(formWidth_);
  for (int column = 0; column < control_.columns(); ++column) {
    const int twips = control_.columnWidth(column);
    const int pixels = twips == 0 ? kDefaultColumnWidth : twips / kTwipsPerPixel;
    const int width = static_cast<int>(pixels * scale);
    if (std::exchange(widths_.emplace(column, 0).first->second, width) != width) {
      table_.setColumnWidth(column, width);
    }
  }
  scroll();
}

// A list that grows is followed to its newest row, unless the user has moved on from there.
void GridBinding::scroll() {
  const int formerTop = std::exchange(topRow_, control_.topRow());
  const int formerNewest = std::exchange(newestRow_, control_.newestRow());
  const bool grew = newestRow_ != formerNewest;
  const bool begins = topRow_ < formerTop;
  const bool follows = grew && (begins || isInView(formerNewest));
  if (begins || (topRow_ != formerTop && !grew)) {
    table_.scrollTo(model_.index(topRow_ - 1, 0), QAbstractItemView::PositionAtTop);
  }
  if (follows) {
    table_.scrollTo(model_.index(newestRow_ - 1, 0));
  }
}

// True of a row that is not there, and of each while nothing is to be seen.
bool GridBinding::isInView(int row) const {
  const QModelIndex index = model_.index(row - 1, 0);
  return !index.isValid() || !table_.isVisible() ||
         table_.viewport()->rect().intersects(table_.visualRect(index));
}

}  // namespace vireon::adapters
