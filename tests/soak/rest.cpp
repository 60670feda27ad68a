#include "tests/soak/rest.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QPalette>
#include <vector>

#include "tests/soak/dialog_acts.h"
#include "tests/soak/resources.h"
#include "tests/soak/strange_files.h"

namespace vireon::soak {
namespace {

constexpr int kTurn = 20;      // milliseconds
constexpr int kSettling = 10;  // turns with nothing to do
constexpr std::chrono::seconds kPatience{40};
constexpr std::size_t kMostFileDialogs = 4;  // the window's and the viewer's, bound to a folder and free

}  // namespace

void Rest::begin() {
  stage_.act("rest");
  stage_.steps.clear();
  trouble_.heal();
  next(Goal::kCalm);
}

void Rest::next(Goal goal) {
  goal_ = goal;
  since_ = std::chrono::steady_clock::now();
  messagesThen_ = stage_.messages.messages();
  clicks_ = 0;
  settled_ = 0;
}

int Rest::turn() {
  if (std::chrono::steady_clock::now() - since_ > kPatience) {
    stage_.log.finding("no rest: stuck at step " + std::to_string(static_cast<int>(goal_)));
    next(Goal::kTidy);
  }
  return reach();
}

int Rest::reach() {
  const bool connected = stage_.program().connection.connected();
  if (!calm()) {
    settled_ = 0;
    return kTurn;
  }
  switch (goal_) {
    case Goal::kCalm:
      if (++settled_ > kSettling) {
        next(Goal::kLeft);
      }
      break;
    case Goal::kLeft:  // with a message perhaps, where a fault had not been noticed yet
      if (connected) {
        clickConnect("leave");
      } else {
        next(Goal::kConnected);
      }
      break;
    case Goal::kConnected:
      if (!connected && ++clicks_ <= 3) {
        clickConnect("connect again");
      } else {
        if (!connected) {
          stage_.log.finding("does not connect after a fault");
        } else if (stage_.program().link.onUsb() && stage_.messages.messages() != messagesThen_) {
          stage_.log.finding("a message when connecting with nothing wrong");
        }
        next(Goal::kDisconnected);
      }
      break;
    case Goal::kDisconnected:
      if (connected) {
        clickConnect("disconnect");
      } else {
        if (stage_.messages.messages() != messagesThen_) {
          stage_.log.finding("a message when disconnecting with nothing wrong");
        }
        tidy();
        next(Goal::kTidy);
      }
      break;
    case Goal::kTidy:
      if (++settled_ > kSettling) {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return kReached;
      }
      break;
  }
  return kTurn;
}

// True when nothing wants to be ended first.
bool Rest::calm() {
  if (QWidget* const front = inFront()) {
    auto* const box = qobject_cast<QMessageBox*>(front);
    if (box != nullptr && box->text().contains(QLatin1String("Re-search"))) {
      QWidget* const yes = box->button(QMessageBox::Yes);
      stage_.hands.click(*yes, yes->rect().center());
    } else if (front->objectName() != QLatin1String("searchWindow")) {
      dismiss(stage_, *front);
    }
    return false;
  }
  if (stage_.program().longWork.running()) {
    stage_.program().longWork.cancel();
    return false;
  }
  if (QWidget* const viewer = viewerOf()) {
    viewer->close();
    return false;
  }
  if (stage_.window().isMinimized() || stage_.window().isMaximized()) {
    stage_.window().showNormal();
    return false;
  }
  return linkIsIdle() && stage_.form().cmdSprint.enabled();
}

bool Rest::linkIsIdle() const {
  return !stage_.program().connection.operations().running() && !stage_.gate.paintingOnly();
}

void Rest::clickConnect(const std::string& why) {
  stage_.act(why);
  if (auto* const button = stage_.window().findChild<QWidget*>(QStringLiteral("cmdBttn_0"))) {
    stage_.hands.click(*button, button->rect().center());
  }
}

// The program keeps one for each kind of question from its first use on: no growth, but so many and no more.
void Rest::endFileDialogs() {
  std::vector<QFileDialog*> dialogs;
  for (QWidget* const top : QApplication::topLevelWidgets()) {
    if (auto* const dialog = qobject_cast<QFileDialog*>(top)) {
      dialogs.push_back(dialog);
    }
  }
  if (dialogs.size() > kMostFileDialogs) {
    stage_.log.finding("file dialogs are left over: " + std::to_string(dialogs.size()));
  }
  for (QFileDialog* const dialog : dialogs) {
    delete dialog;
  }
}

void Rest::tidy() {
  const PaintWatch::OwnWork own(stage_.paints);
  if (std::filesystem::exists(stage_.folder.string() + ".away")) {
    stage_.log.finding("the folder was made anew while it was away");
  } else {
    stage_.files.checkAll();
    clearFolder(stage_);
  }
  endFileDialogs();
  stage_.form().grdLog.clear();
  stage_.form().grdLog.setRows(13);
  QApplication::setPalette(QPalette());
  emptyCaches(false);
}

}  // namespace vireon::soak
