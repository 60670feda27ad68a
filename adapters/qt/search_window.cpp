#include "adapters/qt/search_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

namespace vireon::adapters {

SearchWindow::SearchWindow() {
  setObjectName(QStringLiteral("searchWindow"));
  setWindowTitle(QStringLiteral("Vireon"));
  setAttribute(Qt::WA_QuitOnClose, false);
  heading_.setText(tr("Looking for the instrument"));
  QFont larger = heading_.font();
  larger.setPointSizeF(larger.pointSizeF() * 1.3);
  larger.setBold(true);
  heading_.setFont(larger);
  step_.setObjectName(QStringLiteral("searchStep"));
  progress_.setRange(0, kSteps);
  progress_.setTextVisible(false);
  progress_.setAccessibleName(tr("Progress of the search"));
  advice_.setObjectName(QStringLiteral("searchAdvice"));
  advice_.setWordWrap(true);
  advice_.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  advice_.setTextFormat(Qt::PlainText);
  cancel_.setObjectName(QStringLiteral("searchCancel"));
  cancel_.setText(tr("Cancel"));
  cancel_.setToolTip(tr("End the search"));
  connect(&cancel_, &QPushButton::clicked, this, &SearchWindow::cancel);

  // The layouts pass to this window; the widgets are members of it.
  auto* column = std::make_unique<QVBoxLayout>(this).release();
  column->setContentsMargins(20, 18, 20, 16);
  column->setSpacing(10);
  column->addWidget(&heading_);
  column->addWidget(&step_);
  column->addWidget(&progress_);
  column->addWidget(&advice_);
  column->addStretch();
  auto row = std::make_unique<QHBoxLayout>();
  row->addStretch();
  row->addWidget(&cancel_);
  column->addLayout(row.release());
  setMinimumWidth(fontMetrics().averageCharWidth() * 62);
}

void SearchWindow::standOver(QWidget* window) {
  over_ = window;
}

void SearchWindow::begin() {
  if (depth_++ > 0) {
    return;
  }
  setParent(over_, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setWindowModality(over_ == nullptr ? Qt::NonModal : Qt::WindowModal);
  step_.setText(tr("Trying USB ..."));
  progress_.setValue(0);
  advice_.clear();
  advice_.hide();
  cancelled_ = false;
  cancel_.setEnabled(true);
  adjustSize();
  show();
}

void SearchWindow::trying(int com, std::string_view baudRate, int step) {
  progress_.setValue(step);
  if (cancelled_) {
    return;
  }
  const QString rate = QString::fromLatin1(baudRate.data(), static_cast<qsizetype>(baudRate.size()));
  step_.setText(tr("Trying COM%1 at %2 baud ...").arg(com).arg(rate));
}

void SearchWindow::advise(const std::string& /*line*/, const std::string& text) {
  advice_.setText(QString::fromStdString(text));
  advice_.show();
  adjustSize();
}

void SearchWindow::end() {
  if (--depth_ == 0) {
    hide();
    setParent(nullptr);
  }
}

void SearchWindow::cancel() {
  if (std::exchange(cancelled_, true)) {
    return;
  }
  cancel_.setEnabled(false);
  step_.setText(tr("Ending the search ..."));
  if (onCancel) {
    onCancel();
  }
}

void SearchWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  cancel();
}

void SearchWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    cancel();
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace vireon::adapters
