#include "adapters/qt/edge_slider.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>
#include <QVariant>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "adapters/qt/picture_view.h"

namespace vireon::adapters {
namespace {

constexpr double kHandle = 6.0;   // half its length along, pixels at the form file's size
constexpr double kGroove = 3.0;   // its width
constexpr double kAcross = 20.0;  // width of a slider in the form file

bool turnsValue(int key) {
  switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
      return true;
    default:
      return false;
  }
}

}  // namespace

EdgeSlider::EdgeSlider(QWidget* parent) : QSlider(parent) {}

// The marker is there once all form files are read.
void EdgeSlider::showEvent(QShowEvent* event) {
  QSlider::showEvent(event);
  if (marker_ == nullptr) {
    marker_ = window()->findChild<QWidget*>(property("marker").toString());
    if (marker_ != nullptr) {
      marker_->installEventFilter(this);
    }
  }
}

bool EdgeSlider::eventFilter(QObject* object, QEvent* event) {
  if (object == marker_ && (event->type() == QEvent::Move || event->type() == QEvent::Resize)) {
    update();
  }
  return QSlider::eventFilter(object, event);
}

// A disabled slider gets no release.
void EdgeSlider::changeEvent(QEvent* event) {
  QSlider::changeEvent(event);
  if (event->type() == QEvent::EnabledChange && !isEnabled()) {
    complete();
  }
}

double EdgeSlider::pixelsPerStep() const {
  const auto* picture =
      marker_ == nullptr ? nullptr : qobject_cast<const PictureView*>(marker_->parentWidget());
  if (picture == nullptr) {
    return length() / static_cast<double>(std::max(1, maximum() - minimum()));
  }
  const QPointF step = picture->fromTwips(kTwipsPerStep, kTwipsPerStep);
  return orientation() == Qt::Vertical ? step.y() : step.x();
}

// The middle of the marker along the slider; a horizontal marker's left edge names its place.
double EdgeSlider::markerPosition() const {
  if (marker_ == nullptr) {
    return (value() - minimum()) * pixelsPerStep();
  }
  const QPointF middle = QRectF(marker_->geometry()).center();
  return along(mapFromGlobal(marker_->parentWidget()->mapToGlobal(middle)).toPoint());
}

int EdgeSlider::handlePosition() const {
  const double at = moving_ ? anchor_ + (value() - startValue_) * pixelsPerStep() : markerPosition();
  return static_cast<int>(std::lround(std::clamp(at, 0.0, static_cast<double>(length() - 1))));
}

QRectF EdgeSlider::handleRect() const {
  const double scale = (orientation() == Qt::Vertical ? width() : height()) / kAcross;
  const double half = kHandle * scale;
  const double at = std::clamp<double>(handlePosition(), half, length() - half);
  return orientation() == Qt::Vertical ? QRectF(1, at - half, width() - 2, 2 * half)
                                       : QRectF(at - half, 1, 2 * half, height() - 2);
}

void EdgeSlider::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = (orientation() == Qt::Vertical ? width() : height()) / kAcross;
  const double groove = kGroove * scale;
  const QRectF inside = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const QRectF line = orientation() == Qt::Vertical
                          ? QRectF(inside.center().x() - groove / 2, inside.top(), groove, inside.height())
                          : QRectF(inside.left(), inside.center().y() - groove / 2, inside.width(), groove);
  painter.setPen(Qt::NoPen);
  QColor grooveColor = palette().color(QPalette::WindowText);
  grooveColor.setAlphaF(0.3F);
  painter.setBrush(grooveColor);
  painter.drawRoundedRect(line, groove / 2, groove / 2);

  const QColor tint = property("tint").value<QColor>();
  const QColor face = !isEnabled()     ? palette().color(QPalette::Mid)
                      : tint.isValid() ? tint
                                       : palette().color(QPalette::Button);
  const QRectF handle = handleRect();
  painter.setPen(
      QPen(hasFocus() ? palette().color(QPalette::Highlight) : face.darker(170), hasFocus() ? 2 : 1));
  painter.setBrush(face);
  painter.drawRoundedRect(handle.adjusted(0.5, 0.5, -0.5, -0.5), 3 * scale, 3 * scale);
  painter.setPen(QPen(face.darker(220), 1));
  if (orientation() == Qt::Vertical) {
    painter.drawLine(QPointF(handle.left() + 4, handle.center().y()),
                     QPointF(handle.right() - 4, handle.center().y()));
  } else {
    painter.drawLine(QPointF(handle.center().x(), handle.top() + 4),
                     QPointF(handle.center().x(), handle.bottom() - 4));
  }
}

void EdgeSlider::begin() {
  if (!moving_) {
    anchor_ = handlePosition();
    startValue_ = value();
    moving_ = true;
  }
}

void EdgeSlider::complete() {
  settled_.stop();
  grabbed_ = false;
  if (!moving_) {
    return;
  }
  const bool overtaken = !isEnabled() || QApplication::activeModalWidget() != nullptr;
  if (overtaken) {
    setValue(startValue_);
  }
  moving_ = false;
  if (!overtaken) {
    Q_EMIT moveCompleted();
  }
  update();
}

void EdgeSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    event->ignore();
    return;
  }
  begin();
  const int at = along(event->pos());
  if (!handleRect().contains(event->position())) {
    setValue(value() + (at < anchor_ ? -pageStep() : pageStep()));
    complete();
    return;
  }
  grabbed_ = true;
  grabbedAt_ = at;
}

void EdgeSlider::mouseMoveEvent(QMouseEvent* event) {
  if (grabbed_) {
    const double moved = (along(event->pos()) - grabbedAt_) / pixelsPerStep();
    setValue(startValue_ + static_cast<int>(std::lround(moved)));
    update();
  }
}

void EdgeSlider::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && grabbed_) {
    complete();
  }
}

void EdgeSlider::wheelEvent(QWheelEvent* event) {
  begin();
  QSlider::wheelEvent(event);
  settled_.start(kSettled, this);
}

// A held key turns the value on and on; its release ends the move.
void EdgeSlider::keyPressEvent(QKeyEvent* event) {
  if (turnsValue(event->key())) {
    begin();
  }
  QSlider::keyPressEvent(event);
}

void EdgeSlider::keyReleaseEvent(QKeyEvent* event) {
  QSlider::keyReleaseEvent(event);
  if (turnsValue(event->key()) && !event->isAutoRepeat()) {
    complete();
  }
}

// A dragging pointer is released in its own time; a key that is held is not seen any more.
void EdgeSlider::focusOutEvent(QFocusEvent* event) {
  QSlider::focusOutEvent(event);
  if (moving_ && !grabbed_) {
    settled_.start(kSettled, this);
  }
}

void EdgeSlider::timerEvent(QTimerEvent* event) {
  if (event->timerId() == settled_.timerId()) {
    complete();
  } else {
    QSlider::timerEvent(event);
  }
}

}  // namespace vireon::adapters
