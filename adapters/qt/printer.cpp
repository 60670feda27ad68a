#include "adapters/qt/printer.h"

#include <QLocale>
#include <QPageLayout>
#include <QPrinter>
#include <QPrinterInfo>

#include "adapters/cups/cups_queue.h"
#include "adapters/qt/pdf_document.h"

namespace vireon::adapters {
namespace {

constexpr double kMargin = 15;  // millimetres, where no printer says what it needs

// Empty where none is installed.
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

std::unique_ptr<platform::PrintDocument> QtPrinter::begin() {
  const QString name = systemPrinter();
  return std::make_unique<PdfDocument>(
      name.isEmpty() ? usualPaper() : QPrinter(QPrinterInfo::printerInfo(name)).pageLayout());
}

platform::PrintResult QtPrinter::print(const std::string& title, std::string_view document) {
  const std::string name = systemPrinter().toStdString();
  if (name.empty()) {
    return platform::PrintResult::kNoPrinter;
  }
  auto result = platform::PrintResult::kRefused;
  worker_.run([&] { result = printOnQueue(name, title, document); });
  return result;
}

}  // namespace vireon::adapters
