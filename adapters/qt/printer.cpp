#include "adapters/qt/printer.h"

#include <QLocale>
#include <QPageLayout>
#include <QPrinter>
#include <QPrinterInfo>

#include "adapters/cups/cups_queue.h"
#include "adapters/cups/cups_thread.h"
#include "adapters/qt/pdf_document.h"

namespace vireon::adapters {
namespace {

constexpr double kMargin = 15;  // millimetres, where no printer says what it needs

// Empty where none is installed. Waits for the print service, as does all that asks for the printer found.
QString systemPrinter() {
  const QString chosen = QPrinterInfo::defaultPrinterName();
  return chosen.isEmpty() ? QPrinterInfo::availablePrinterNames().value(0) : chosen;
}

QPageLayout usualPaper() {
  const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return {QPageSize(letter ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait,
          QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter};
}

}  // namespace

void QtPrinter::ask(const std::function<void()>& question) {
  worker_.run([&] {
    if (!loaded_) {
      loadPrintSupport([] { QPrinterInfo::defaultPrinterName(); });
      loaded_ = true;
    }
    question();
  });
}

std::unique_ptr<platform::PrintDocument> QtPrinter::begin() {
  QPageLayout paper = usualPaper();
  ask([&] {
    if (const QString name = systemPrinter(); !name.isEmpty()) {
      paper = QPrinter(QPrinterInfo::printerInfo(name)).pageLayout();
    }
  });
  return std::make_unique<PdfDocument>(paper);
}

platform::PrintResult QtPrinter::print(const std::string& title, std::string_view document) {
  auto result = platform::PrintResult::kNoPrinter;
  ask([&] {
    if (const QString name = systemPrinter(); !name.isEmpty()) {
      result = printOnQueue(name.toStdString(), title, document);
    }
  });
  return result;
}

}  // namespace vireon::adapters
