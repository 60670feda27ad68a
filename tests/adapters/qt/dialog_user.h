#pragma once

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <functional>
#include <utility>

namespace vireon::tests {

// Runs once in the next file dialog, as its user.
class DialogUser : public QObject {
 public:
  explicit DialogUser(std::function<void(QFileDialog&)> act) : act_(std::move(act)) {
    qApp->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* const dialog = qobject_cast<QFileDialog*>(object);
    if (dialog != nullptr && event->type() == QEvent::Show && act_) {
      QMetaObject::invokeMethod(
          dialog, [dialog, act = std::exchange(act_, nullptr)] { act(*dialog); }, Qt::QueuedConnection);
    }
    return QObject::eventFilter(object, event);
  }

 private:
  std::function<void(QFileDialog&)> act_;
};

// As typed.
inline void enterName(QFileDialog& dialog, const QString& file) {
  dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
}

// What its button does.
inline void accept(QFileDialog& dialog) {
  static_cast<QDialog&>(dialog).accept();
}

}  // namespace vireon::tests
