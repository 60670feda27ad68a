#pragma once

#include <QPixmap>
#include <QWidget>
#include <vector>

#include "form/picture_box.h"

namespace vireon::adapters {

// A picture with lines in twips, scaled to whatever size the widget has. Dynamic properties from the form
// file: twipsWidth and twipsHeight, what the widget shows of the picture; graticule, its first division at
// the top left, if it has one; divisions, how many there are across and down.
class PictureView : public QWidget {
  Q_OBJECT

 public:
  explicit PictureView(QWidget* parent = nullptr);

  // Shows the lines of `picture`, which outlives this widget, from the next update() on.
  void setPicture(const form::PictureBox& picture) { picture_ = &picture; }

  // Where a point of the picture lies in the widget, in its own units.
  QPointF fromTwips(int x, int y) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void drawBackground();
  void drawLines(QPainter& painter);

  const form::PictureBox* picture_ = nullptr;
  QPixmap background_;
  std::vector<QPointF> points_;
};

}  // namespace vireon::adapters
