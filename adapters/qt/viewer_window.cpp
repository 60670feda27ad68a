#include "adapters/qt/viewer_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QScreen>
#include <QWindow>

#include "adapters/qt/bitmap_image.h"
#include "platform/twips.h"

namespace vireon::adapters {
namespace {

double dotsPerInch(const QWidget& widget) {
  return widget.screen()->logicalDotsPerInchX();
}

platform::WindowSize twips(const QWidget& widget, const QSize& pixels) {
  const double scale = platform::kTwipsPerInch / dotsPerInch(widget);
  return {qRound(pixels.width() * scale), qRound(pixels.height() * scale)};
}

}  // namespace

QtViewerWindow::QtViewerWindow(const ModalGate& gate)
    : gate_(gate), snapper_(gate, [this] {
        if (isNormal() && onResize) {
          onResize();
        }
      }) {
  setObjectName(QStringLiteral("frmCapture"));
  setWindowTitle(QStringLiteral("Capture Window"));
  setAttribute(Qt::WA_QuitOnClose, false);
  picture_.setObjectName(QStringLiteral("Picture1"));
  picture_.setAccessibleName(tr("Captured picture"));
  picture_.resize(0, 0);
  area_.setFrameShape(QFrame::NoFrame);
  area_.setAlignment(Qt::AlignCenter);
  area_.setBackgroundRole(QPalette::Dark);
  area_.setWidget(&picture_);
  setCentralWidget(&area_);
  addMenus();
}

void QtViewerWindow::addMenus() {
  using platform::ViewerCommand;
  QMenu& file = *menuBar()->addMenu(tr("&File"));
  file.setObjectName(QStringLiteral("mnuFile"));
  addItem(file, "mnuOpen", tr("&Open ..."), QKeySequence::Open, ViewerCommand::kOpen);
  addItem(file, "mnuFileSave", tr("&Save ..."), QKeySequence::Save, ViewerCommand::kSave);
  addItem(file, "mnuPrint", tr("&Print"), QKeySequence::Print, ViewerCommand::kPrint);
  file.addSeparator();
  addItem(file, "mnuFileExit", tr("E&xit"), QKeySequence::Close, ViewerCommand::kExit);
  QMenu& tool = *menuBar()->addMenu(tr("&Tool"));
  tool.setObjectName(QStringLiteral("mnuTool"));
  addItem(tool, "mnuCopy", tr("&Copy"), QKeySequence::Copy, ViewerCommand::kCopy);
  addItem(tool, "mnuClear", tr("C&lear"), QKeySequence::Delete, ViewerCommand::kClear);
}

void QtViewerWindow::addItem(QMenu& menu, const char* name, const QString& caption, const QKeySequence& keys,
                             platform::ViewerCommand command) {
  QAction* const item = menu.addAction(caption, keys);
  item->setObjectName(QLatin1String(name));
  connect(item, &QAction::triggered, this, [this, command] {
    later([command](QtViewerWindow& window) {
      // A copy: the handler may destroy the window and with it the original.
      if (const auto handler = window.onCommand) {
        handler(command);
      }
    });
  });
}

// The window may be destroyed by what is done then, so no event of its own may be under way.
void QtViewerWindow::later(const std::function<void(QtViewerWindow&)>& action) {
  runLater(gate_, *this, [this, action] { action(*this); });
}

void QtViewerWindow::setPicture(const platform::Bitmap& bitmap) {
  if (bitmap.empty()) {
    picture_.clear();
    return;
  }
  QPixmap pixmap = QPixmap::fromImage(imageOf(bitmap));
  pixmap.setDevicePixelRatio(devicePixelRatio());
  picture_.setPixmap(pixmap);
  picture_.resize(pixmap.deviceIndependentSize().toSize());
  kept_.forget();
}

platform::WindowSize QtViewerWindow::pictureSize() const {
  return twips(*this, picture_.size());
}

platform::WindowSize QtViewerWindow::screenSize() const {
  return twips(*this, screen()->availableSize());
}

void QtViewerWindow::resize(platform::WindowSize outer) {
  if (isMaximized() || isMinimized() || isFullScreen()) {
    return;
  }
  const double scale = dotsPerInch(*this) / platform::kTwipsPerInch;
  const QSize whole(qRound(outer.width * scale), qRound(outer.height * scale));
  const QSize needed = picture_.size() + QSize(0, menuBar()->sizeHint().height());
  const QSize inner =
      whole.shrunkBy(frame()).expandedTo(needed).boundedTo(screen()->availableSize().shrunkBy(frame()));
  if (kept_.asks(size(), inner)) {
    QMainWindow::resize(inner);
  }
}

void QtViewerWindow::show() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  QMainWindow::show();
  raise();
  activateWindow();
}

bool QtViewerWindow::isNormal() const {
  return isVisible() && !isMaximized() && !isMinimized() && !isFullScreen();
}

QMargins QtViewerWindow::frame() const {
  return windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
}

void QtViewerWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  snapper_.start();
}

// The frame's size is known when the window manager has put the window into it, which moves the window.
void QtViewerWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  snapper_.start();
}

void QtViewerWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  snapper_.start();
}

void QtViewerWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) {
    snapper_.start();
  }
}

void QtViewerWindow::closeEvent(QCloseEvent* event) {
  if (gate_.closed()) {
    event->ignore();
    return;
  }
  event->accept();
  later([](QtViewerWindow& window) {
    if (const auto handler = window.onUnload) {
      handler();
    }
  });
}

std::unique_ptr<platform::ViewerWindow> QtViewerWindows::make() {
  auto window = std::make_unique<QtViewerWindow>(gate_);
  if (onNew) {
    onNew(*window);
  }
  return window;
}

}  // namespace vireon::adapters
