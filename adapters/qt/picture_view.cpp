#include "adapters/qt/picture_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <QVariant>
#include <algorithm>

#include "adapters/qt/colors.h"

namespace vireon::adapters {
namespace {

const QColor kGraticule(70, 78, 84);
const QColor kAxis(112, 122, 130);

}  // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

QPointF PictureView::fromTwips(int x, int y) const {
  const double pictureWidth = property("twipsWidth").toInt();
  const double pictureHeight = property("twipsHeight").toInt();
  return {x * width() / pictureWidth, y * height() / pictureHeight};
}

void PictureView::resizeEvent(QResizeEvent* event) {
  background_ = QPixmap();
  QWidget::resizeEvent(event);
}

// In the screen's own pixels, so that every line of the graticule is equally thick and crisp at any scale.
void PictureView::drawBackground() {
  const double ratio = devicePixelRatioF();
  background_ = QPixmap(size() * ratio);
  background_.fill(Qt::black);
  if (const QRect division = property("graticule").toRect(); division.isValid()) {
    const QSize divisions = property("divisions").toSize();
    QPainter painter(&background_);
    const int thickness = std::max(1, static_cast<int>(ratio));
    const auto corner = [&](int column, int row) {
      const QPoint twips = division.topLeft() + QPoint(column * division.width(), row * division.height());
      return (fromTwips(twips.x(), twips.y()) * ratio).toPoint();
    };
    const QRect field(corner(0, 0), corner(divisions.width(), divisions.height()));
    for (int column = 0; column <= divisions.width(); ++column) {
      painter.fillRect(corner(column, 0).x(), field.top(), thickness, field.height(),
                       column * 2 == divisions.width() ? kAxis : kGraticule);
    }
    for (int row = 0; row <= divisions.height(); ++row) {
      painter.fillRect(field.left(), corner(0, row).y(), field.width(), thickness,
                       row * 2 == divisions.height() ? kAxis : kGraticule);
    }
  }
  background_.setDevicePixelRatio(ratio);
}

void PictureView::paintEvent(QPaintEvent* event) {
  if (background_.isNull() || background_.devicePixelRatio() != devicePixelRatioF()) {
    drawBackground();
  }
  QPainter painter(this);
  const QRectF source(QPointF(event->rect().topLeft()) * devicePixelRatioF(),
                      QSizeF(event->rect().size()) * devicePixelRatioF());
  painter.drawPixmap(QRectF(event->rect()), background_, source);
  if (picture_ != nullptr) {
    drawLines(painter);
  }
}

// Lines that continue each other in one colour are drawn as one polyline, so that their joints are smooth.
void PictureView::drawLines(QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  const double scaleX = width() / property("twipsWidth").toDouble();
  const double scaleY = height() / property("twipsHeight").toDouble();
  std::vector<form::Color> colors;
  for (const form::Line& line : picture_->lines()) {
    if (std::find(colors.begin(), colors.end(), line.color) == colors.end()) {
      colors.push_back(line.color);
    }
  }
  for (const form::Color color : colors) {
    painter.setPen(QPen(toQColor(color), 1.0));
    const form::Line* former = nullptr;
    points_.clear();
    for (const form::Line& line : picture_->lines()) {
      if (line.color != color) {
        continue;
      }
      if (former == nullptr || former->x2 != line.x1 || former->y2 != line.y1) {
        painter.drawPolyline(points_.data(), static_cast<int>(points_.size()));
        points_.assign(1, QPointF(line.x1 * scaleX, line.y1 * scaleY));
      }
      points_.emplace_back(line.x2 * scaleX, line.y2 * scaleY);
      former = &line;
    }
    painter.drawPolyline(points_.data(), static_cast<int>(points_.size()));
  }
}

}  // namespace vireon::adapters
