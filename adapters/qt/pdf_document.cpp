#include "adapters/qt/pdf_document.h"

#include <QString>
#include <algorithm>

#include "adapters/qt/bitmap_image.h"
#include "platform/twips.h"

namespace vireon::adapters {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr int kLetterHeight = 200;  // twips: 10 points

QFont lettering() {
  QFont font;
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(kLetterHeight);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

// On one line.
QString lineOf(std::string_view text) {
  QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  std::replace_if(
      line.begin(), line.end(), [](QChar character) { return character.category() == QChar::Other_Control; },
      QLatin1Char(' '));
  return line;
}

}  // namespace

PdfDocument::PdfDocument(const QPageLayout& page) : font_(lettering()), metrics_(font_), writer_(&buffer_) {
  buffer_.open(QIODevice::WriteOnly);
  writer_.setPageLayout(page);
  writer_.setCreator(QStringLiteral("Vireon"));
  good_ = painter_.begin(&writer_);
  const double scale = writer_.resolution() / platform::kTwipsPerInch;
  painter_.scale(scale, scale);
  painter_.setRenderHint(QPainter::LosslessImageRendering);
  painter_.setFont(font_);
}

platform::PrintArea PdfDocument::area() const {
  const QRectF paper = writer_.pageLayout().paintRect(QPageLayout::Point);
  return {paper.width() * kTwipsPerPoint, paper.height() * kTwipsPerPoint};
}

double PdfDocument::textWidth(std::string_view text) const {
  return metrics_.horizontalAdvance(lineOf(text));
}

void PdfDocument::text(double x, double y, double width, std::string_view text) {
  QString line = lineOf(text);
  if (metrics_.horizontalAdvance(line) > width) {
    line = metrics_.elidedText(line, Qt::ElideRight, width);
  }
  painter_.drawText(QPointF(x, y + metrics_.ascent()), line);
}

void PdfDocument::picture(const platform::Bitmap& bitmap, double x, double y, double width, double height) {
  painter_.drawImage(QRectF(x, y, width, height), imageOf(bitmap));
}

std::string PdfDocument::finish() {
  good_ = painter_.end() && good_;
  return good_ ? buffer_.data().toStdString() : std::string();
}

}  // namespace vireon::adapters
