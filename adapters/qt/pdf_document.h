#pragma once

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

#include "platform/printer.h"

namespace vireon::adapters {

// A document written as PDF in memory.
class PdfDocument : public platform::PrintDocument {
 public:
  explicit PdfDocument(const QPageLayout& page);

  platform::PrintArea area() const override;
  double lineHeight() const override { return metrics_.lineSpacing(); }
  double textWidth(std::string_view text) const override;
  void text(double x, double y, double width, std::string_view text) override;
  void picture(const platform::Bitmap& bitmap, double x, double y, double width, double height) override;
  void newPage() override { good_ = writer_.newPage() && good_; }
  std::string finish() override;

 private:
  QFont font_;
  QFontMetricsF metrics_;
  QBuffer buffer_;
  QPdfWriter writer_;
  QPainter painter_;
  bool good_ = false;
};

}  // namespace vireon::adapters
