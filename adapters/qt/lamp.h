#pragma once

#include <QWidget>

#include "form/color.h"

namespace vireon::adapters {

// A round lamp with a thin rim.
class Lamp : public QWidget {
  Q_OBJECT

 public:
  explicit Lamp(QWidget* parent = nullptr) : QWidget(parent) {}

  form::Color color() const { return color_; }
  void setColor(form::Color color);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  form::Color color_ = form::kWhite;
};

}  // namespace vireon::adapters
