#pragma once

#include <QBasicTimer>
#include <QColor>
#include <QSlider>

namespace vireon::adapters {

// A slider at the edge of a picture. Its handle stands beside a marker on the picture and moves with it as
// the picture's scale says, stopping at the picture's ends; keys and wheel reach the values beyond. Dragging,
// keys and the wheel change the value as they go; moveCompleted tells when the move is over. A move that a
// message or the slider's disabling overtakes is taken back.
// Dynamic properties from the form file: marker, the object name of its marker on the picture; tint, its
// colour.
class EdgeSlider : public QSlider {
  Q_OBJECT

 public:
  static constexpr int kTwipsPerStep = 30;
  static constexpr int kSettled = 150;  // milliseconds without a turn of the wheel that end its move

  explicit EdgeSlider(QWidget* parent = nullptr);

  // Whether the user is moving it; the value is not to be changed from elsewhere meanwhile.
  bool moving() const { return moving_; }

  // Where the middle of the handle stands along the slider, in its own pixels.
  int handlePosition() const;

 Q_SIGNALS:
  void moveCompleted();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  int along(const QPoint& point) const { return orientation() == Qt::Vertical ? point.y() : point.x(); }
  int length() const { return orientation() == Qt::Vertical ? height() : width(); }
  double pixelsPerStep() const;
  double markerPosition() const;
  QRectF handleRect() const;
  void begin();
  void complete();

  QWidget* marker_ = nullptr;
  QBasicTimer settled_;
  bool moving_ = false;
  bool grabbed_ = false;
  int grabbedAt_ = 0;   // pixels along
  double anchor_ = 0;   // where the handle stood when the move began
  int startValue_ = 0;  // and the value then
};

}  // namespace vireon::adapters
