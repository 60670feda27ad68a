#include "adapters/qt/main_window.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScreen>
#include <QUrl>
#include <QWindow>
#include <QtMath>
#include <algorithm>
#include <chrono>

#include "adapters/qt/colors.h"
#include "adapters/qt/lamp.h"
#include "adapters/qt/text.h"
#include "platform/twips.h"
#include "ui_logger_panel.h"
#include "ui_main_window.h"
#include "ui_scope_panel.h"
#include "ui_screen_panel.h"

namespace vireon::adapters {
namespace {

constexpr int kPanelWidth = 720;  // of the form file, pixels at 96 dpi
constexpr int kPanelHeight = 352;
constexpr double kFontHeight = 11.0;  // pixels at 96 dpi

struct Lettering {
  const char* name;
  double scale;
  bool bold;
};

// The widgets whose letters differ from the panel's.
constexpr Lettering kLetterings[] = {
    {"dmmMrdg", 6.2, true}, {"dmmMrge", 2.4, true}, {"lblDmm", 2.0, true},   {"lblVd_0", 1.2, true},
    {"lblVd_1", 1.2, true}, {"lblHd", 1.2, true},   {"posDV_0", 0.9, true},  {"posDV_1", 0.9, true},
    {"posT", 0.9, true},    {"markT", 0.9, true},   {"signAuto", 1.1, true}, {"signHold", 1.1, true},
};

// Panels that stay dark like the instrument's screen, in every palette.
constexpr const char* kScreens[] = {"settingsLine", "readingDisplay", "lblDmm", "lblVd_0",
                                    "lblVd_1",      "lblHd",          "picTrd"};

// Where the Tab key goes on behind the last panel's last widget: what stands below the panels.
constexpr const char* kBelowThePanels[] = {"cmdSet_1", "optFmt_0",  "optFmt_1",  "cmdLprt",
                                           "grdLog",   "txtFn_0",   "cmdSave_0", "cmdLoad_0",
                                           "txtFn_1",  "cmdSave_1", "cmdLoad_1"};

// The first file of this computer that a drag carries; empty where there is none.
QString fileIn(const QMimeData& data) {
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) {
      return url.toLocalFile();
    }
  }
  return {};
}

// Until a close request is made again under an open message.
constexpr std::chrono::milliseconds kMessageRetry{50};

}  // namespace

MainWindow::MainWindow(form::MainForm& form, const ModalGate& gate)
    : form_(form),
      closer_(gate, [this] { closeAsWanted(); }),
      dropTaker_(gate,
                 [this] {
                   if (takesFiles() && openDropped) {
                     openDropped(dropped_);
                   }
                 }),
      gate_(gate) {
  setUpForms();
  dress();
  remember();
  binder_ = std::make_unique<ControlBinder>(form, *this, gate);
  setWindowTitle(shown(form.caption()));
  form.onCaptionChanged = [this] { setWindowTitle(shown(form_.caption())); };
  snapper_.setSingleShot(true);
  snapper_.setInterval(0);
  connect(&snapper_, &QTimer::timeout, this, [this] {
    if (isNormal()) {
      Form_Resize();
    }
  });
  takeFiles();
  Form_Resize();
  scalePanel();
}

MainWindow::~MainWindow() {
  form_.onCaptionChanged = nullptr;
}

void MainWindow::setUpForms() {
  Ui::frmMain ui;
  ui.setupUi(this);
  Ui::picMscope().setupUi(ui.picMscope);
  Ui::panScon().setupUi(ui.panScon);
  Ui::panDlog().setupUi(ui.panDlog);
  for (std::size_t i = 1; i < std::size(kBelowThePanels); ++i) {
    setTabOrder(findChild<QWidget*>(QLatin1String(kBelowThePanels[i - 1])),
                findChild<QWidget*>(QLatin1String(kBelowThePanels[i])));
  }
}

void MainWindow::dress() {
  for (const char* name : kScreens) {
    auto* screen = findChild<QWidget*>(QLatin1String(name));
    QPalette palette = screen->palette();
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::gray);
    screen->setPalette(palette);
    screen->setAutoFillBackground(true);
  }
  findChild<Lamp*>(QStringLiteral("captionTraceA"))->setColor(form::kRed);
  findChild<Lamp*>(QStringLiteral("captionTraceB"))->setColor(form::kGreen);
}

void MainWindow::remember() {
  for (QWidget* widget : findChildren<QWidget*>()) {
    if (widget->objectName().isEmpty() || widget->objectName().startsWith(QLatin1String("qt_"))) {
      continue;
    }
    const auto* lettering =
        std::find_if(std::begin(kLetterings), std::end(kLetterings),
                     [&](const auto& entry) { return widget->objectName() == QLatin1String(entry.name); });
    const bool own = lettering != std::end(kLetterings);
    placed_.push_back({widget, widget->geometry(), own ? lettering->scale : 0.0, own && lettering->bold});
  }
}

void MainWindow::Form_Resize() {
  const QMargins frame = windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
  const double dpi = screen()->logicalDotsPerInchX();
  const QSize outer(qRound(kOuterWidth * dpi / platform::kTwipsPerInch),
                    qRound(kOuterHeight * dpi / platform::kTwipsPerInch));
  const QSize inner = outer.shrunkBy(frame);
  if (kept_.asks(size(), inner)) {
    resize(inner);
  }
}

bool MainWindow::isNormal() const {
  return isVisible() && !isMaximized() && !isMinimized() && !isFullScreen();
}

void MainWindow::scalePanel() {
  const double scaleX = width() / static_cast<double>(kPanelWidth);
  const double scaleY = height() / static_cast<double>(kPanelHeight);
  const double letterHeight = kFontHeight * std::min(scaleX, scaleY);
  QFont letters = font();
  letters.setPixelSize(std::max(6, static_cast<int>(letterHeight)));
  setFont(letters);
  for (const Placed& placed : placed_) {
    // Rounded down at both corners: so a widget never reaches beyond the panel that holds it.
    const QRect& at = placed.geometry;
    const QPoint corner(qFloor(at.x() * scaleX), qFloor(at.y() * scaleY));
    const QPoint opposite(qFloor((at.x() + at.width()) * scaleX), qFloor((at.y() + at.height()) * scaleY));
    placed.widget->setGeometry(QRect(corner, QSize(opposite.x() - corner.x(), opposite.y() - corner.y())));
    if (placed.fontScale > 0) {
      QFont own = letters;
      own.setPixelSize(std::max(6, static_cast<int>(letterHeight * placed.fontScale)));
      own.setBold(placed.bold);
      placed.widget->setFont(own);
    }
  }
  if (binder_ != nullptr) {
    binder_->showAll();
  }
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  snapper_.start();
  scalePanel();
}

// The frame's size is known when the window manager has put the window into it, which moves the window.
void MainWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  snapper_.start();
}

void MainWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  snapper_.start();
}

void MainWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) {
    snapper_.start();
  }
}

void MainWindow::takeFiles() {
  setAcceptDrops(true);
  // A file dropped on a box is for the window.
  for (QLineEdit* box : findChildren<QLineEdit*>()) {
    box->setAcceptDrops(false);
  }
}

bool MainWindow::takesFiles() const {
  return !gate_.closed() && !gate_.paintingOnly() && (!mayOpen || mayOpen());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (takesFiles() && fileIn(*event->mimeData()) != QString()) {
    event->acceptProposedAction();
  }
}

// The drag's source may wait for the end of this; a message box would hold it up.
void MainWindow::dropEvent(QDropEvent* event) {
  const QString file = fileIn(*event->mimeData());
  if (!takesFiles() || file.isEmpty()) {
    return;
  }
  event->acceptProposedAction();
  dropped_ = file.toStdString();
  dropTaker_.start();
}

void MainWindow::closeAsWanted() {
  if (gate_.closed()) {
    closer_.start(kMessageRetry);
  } else {
    close();
  }
}

// A request that comes while the window only paints is made again after the work under way, and after the
// message that may end it.
void MainWindow::closeEvent(QCloseEvent* event) {
  if (gate_.closed() || gate_.paintingOnly()) {
    event->ignore();
    if (gate_.paintingOnly()) {
      closer_.start();
    }
    return;
  }
  closing_ = closing_ || !mayClose || mayClose();
  event->setAccepted(closing_);
}

}  // namespace vireon::adapters
