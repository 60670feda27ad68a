#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/bitmap.h"

namespace vireon::platform {

enum class PrintResult {
  kDone,       // the system has taken the document over
  kNoPrinter,  // none is installed
  kRefused,    // there is one but it, or the service behind it, took nothing
};

// Twips.
struct PrintArea {
  double width = 0;
  double height = 0;
};

// A document being laid out, page by page; it starts with its first page. All measures are twips from the top
// left corner of the page's printable area, y downwards; texts are UTF-8 in the printer's own font, one line
// each.
class PrintDocument {
 public:
  PrintDocument() = default;
  PrintDocument(const PrintDocument&) = delete;
  PrintDocument& operator=(const PrintDocument&) = delete;
  virtual ~PrintDocument() = default;

  // The printable area, the same on each page.
  virtual PrintArea area() const = 0;

  // Distance from one line to the next.
  virtual double lineHeight() const = 0;
  virtual double textWidth(std::string_view text) const = 0;

  // Draws a line of text below `y`; what would be wider than `width` is cut and ends in an ellipsis.
  virtual void text(double x, double y, double width, std::string_view text) = 0;

  // Draws the bitmap over this rectangle, every pixel kept.
  virtual void picture(const Bitmap& bitmap, double x, double y, double width, double height) = 0;

  virtual void newPage() = 0;

  // Ends the document; nothing may be drawn any more. Its bytes are a PDF file; empty when it could not be
  // made.
  virtual std::string finish() = 0;
};

// The system printer: the user's default one, else the first.
class Printer {
 public:
  Printer() = default;
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;
  virtual ~Printer() = default;

  // A new document on the system printer's paper with its margins, or where no printer is installed on the
  // paper that is usual here. Nothing is printed by it.
  virtual std::unique_ptr<PrintDocument> begin() = 0;

  // Hands a finished document over for printing; `title` is its name in the queue, UTF-8. Returns when the
  // system has taken all of it; printing itself comes later.
  virtual PrintResult print(const std::string& title, std::string_view document) = 0;
};

}  // namespace vireon::platform
