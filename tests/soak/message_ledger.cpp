#include "tests/soak/message_ledger.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>

namespace vireon::soak {
namespace {

constexpr const char* kLinkTitles[] = {"Connection Error", "Communication Error"};
constexpr const char* kClaims[] = {"Complete Text file: ", "Complete Excel file: "};

std::string oneLine(QString text) {
  return text.replace(QLatin1Char('\n'), QLatin1String(" / ")).toStdString();
}

}  // namespace

MessageLedger::MessageLedger(ActLog& log) : log_(log) {
  qApp->installEventFilter(this);
}

bool MessageLedger::eventFilter(QObject* object, QEvent* event) {
  const auto* const box = event->type() == QEvent::Show ? qobject_cast<QMessageBox*>(object) : nullptr;
  if (box == nullptr) {
    return QObject::eventFilter(object, event);
  }
  const std::string title = box->windowTitle().toStdString();
  const std::string text = box->text().toStdString();
  ++messages_;
  log_.count("message: " + title);
  log_.note("message \"" + title + "\": " + oneLine(box->text()));
  const bool question = box->text().contains(QLatin1String("Re-search"));
  if (!question &&
      std::find(std::begin(kLinkTitles), std::end(kLinkTitles), title) != std::end(kLinkTitles)) {
    ++linkMessages_;
  }
  const auto tops = QApplication::topLevelWidgets();
  const auto open = std::count_if(tops.begin(), tops.end(), [](QWidget* top) {
    return top->isVisible() && qobject_cast<QMessageBox*>(top) != nullptr;
  });
  if (open > 1) {
    log_.finding("two messages at a time, the second: " + text);
  }
  for (const char* const claim : kClaims) {
    if (text.starts_with(claim) && onClaim) {
      const std::size_t start = text.find('/');
      onClaim(start == std::string::npos ? std::string() : text.substr(start));
    }
  }
  return QObject::eventFilter(object, event);
}

// Each loss is told once. Several acts may have come between two looks, each with its own fault.
void MessageLedger::look(bool connected, std::uint64_t farewells, std::uint64_t inputs) {
  const std::uint64_t told = linkMessages_ - linkMessagesThen_;
  const std::uint64_t acts = inputs - inputsThen_;
  if (known_ && told > acts + 1) {
    log_.finding(std::to_string(told) + " messages of the link after " + std::to_string(acts) + " acts");
  }
  if (known_ && connected_ && !connected && farewells == farewellsThen_) {
    ++losses_;
    if (told == 0) {
      log_.finding("the link was lost without a message");
    }
  }
  known_ = true;
  connected_ = connected;
  linkMessagesThen_ = linkMessages_;
  farewellsThen_ = farewells;
  inputsThen_ = inputs;
}

}  // namespace vireon::soak
