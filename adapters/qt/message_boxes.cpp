#include "adapters/qt/message_boxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QObjectCleanupHandler>
#include <memory>

namespace vireon::adapters {
namespace {

QMessageBox::Icon iconOf(platform::MessageIcon icon) {
  switch (icon) {
    case platform::MessageIcon::kCritical:
      return QMessageBox::Critical;
    case platform::MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case platform::MessageIcon::kInformation:
      return QMessageBox::Information;
    case platform::MessageIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

platform::MessageAnswer QtMessageBoxes::show(const platform::Message& message) {
  const bool question = message.buttons == platform::MessageButtons::kYesNo;
  auto made =
      std::make_unique<QMessageBox>(iconOf(message.icon), QString::fromStdString(message.title),
                                    QString::fromStdString(message.text).remove(QLatin1Char('\r')),
                                    question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, window_);
  QObjectCleanupHandler owned;  // but where the window ends the box
  QMessageBox& box = *made;
  owned.add(made.release());
  box.setTextFormat(Qt::PlainText);
  if (question) {
    box.setEscapeButton(QMessageBox::No);
  }
  const ModalGate::Hold hold(gate_);
  const int answer = box.exec();
  if (!question) {
    return platform::MessageAnswer::kOk;
  }
  return answer == QMessageBox::Yes ? platform::MessageAnswer::kYes : platform::MessageAnswer::kNo;
}

void QtBeeper::beep() {
  QApplication::beep();
}

}  // namespace vireon::adapters
