#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "adapters/qt/printer.h"
#include "capture/print_picture.h"
#include "tests/desktop/print/print_service.h"
#include "tests/desktop/rig/pixmap_file.h"
#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_wall_clock.h"
#include "tests/files/list_print_rig.h"

namespace vireon::tests {
namespace {

constexpr int kDotsPerInch = 144;
constexpr double kDotsPerPoint = kDotsPerInch / 72.0;

// What the printer can print on, in dots from the upper left corner of the paper.
constexpr double kLeft = 36 * kDotsPerPoint;
constexpr double kTop = (842 - 770) * kDotsPerPoint;
constexpr double kWidth = (559 - 36) * kDotsPerPoint;
constexpr double kHeight = (770 - 72) * kDotsPerPoint;

struct Box {
  int left = 0;
  int top = 0;
  int right = 0;  // just outside
  int bottom = 0;
};

// What is not white.
Box inkOf(const platform::Bitmap& page) {
  Box box{page.width, page.height, 0, 0};
  for (int y = 0; y < page.height; ++y) {
    for (int x = 0; x < page.width; ++x) {
      if (page.at(x, y) != 0xFFFFFF) {
        box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
               std::max(box.bottom, y + 1)};
      }
    }
  }
  return box;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    std::istringstream words(line);
    std::string joined;
    for (std::string word; words >> word;) joined += (joined.empty() ? "" : " ") + word;
    if (!joined.empty()) lines.push_back(joined);
  }
  return lines;
}

class Printing : public testing::Test {
 protected:
  void SetUp() override {
    if (!PrintService::canStart()) GTEST_SKIP() << "without cups, cups-filters and poppler-utils";
    // One for all tests: the library remembers the first that it met.
    static PrintService only;
    service = &only;
    service->start();
  }

  void print(const platform::Bitmap& bitmap) {
    printOut.print(files::PrintOut::kPicture, messages, [&](platform::PrintDocument& document) {
      return capture::prtPicFit(document, capture::mkBmpPic(bitmap), messages);
    });
  }

  platform::Bitmap page() {
    return fromPixmapFile(
        outputOf({"pdftoppm", "-r", std::to_string(kDotsPerInch), "-singlefile", service->printed()})
            .value_or(""));
  }

  std::string text(int pageNumber) {
    const std::string number = std::to_string(pageNumber);
    return outputOf({"pdftotext", "-layout", "-f", number, "-l", number, service->printed(), "-"})
        .value_or("");
  }

  PrintService* service = nullptr;
  adapters::ModalGate gate;
  adapters::QtPrinter printer{gate};
  FakeFileStore files;
  FakeMessageBoxes messages;
  FakeWallClock clock{platform::CalendarTime{2007, 12, 21, 14, 5, 9}};
  files::PrintOut printOut{printer, files, clock, "folder"};
};

// A picture whose four quarters are of four colours.
platform::Bitmap quarters(int width, int height) {
  platform::Bitmap bitmap = platform::blackBitmap(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      bitmap.pixels[static_cast<std::size_t>(y * width + x)] =
          y < height / 2 ? (x < width / 2 ? 0xC02010 : 0x10A030) : (x < width / 2 ? 0x2030C0 : 0x101010);
    }
  }
  return bitmap;
}

void expectQuarters(const platform::Bitmap& page, const Box& box) {
  const auto at = [&](double right, double down) {
    return page.at(static_cast<int>(box.left + right * (box.right - box.left)),
                   static_cast<int>(box.top + down * (box.bottom - box.top)));
  };
  EXPECT_EQ(at(0.25, 0.25), 0xC02010U);
  EXPECT_EQ(at(0.75, 0.25), 0x10A030U);
  EXPECT_EQ(at(0.25, 0.75), 0x2030C0U);
  EXPECT_EQ(at(0.75, 0.75), 0x101010U);
}

TEST_F(Printing, AWidePictureFillsThePrintableWidthFromTheUpperLeftCorner) {
  service->addPrinter();
  print(quarters(800, 400));
  const platform::Bitmap paper = page();
  ASSERT_FALSE(paper.empty());
  const Box ink = inkOf(paper);
  EXPECT_NEAR(ink.left, kLeft, 2);
  EXPECT_NEAR(ink.top, kTop, 2);
  EXPECT_NEAR(ink.right - ink.left, kWidth, 3);
  EXPECT_NEAR(ink.bottom - ink.top, kWidth / 2, 3);
  expectQuarters(paper, ink);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(Printing, ATallPictureFillsThePrintableHeight) {
  service->addPrinter();
  print(quarters(200, 800));
  const platform::Bitmap paper = page();
  ASSERT_FALSE(paper.empty());
  const Box ink = inkOf(paper);
  EXPECT_NEAR(ink.left, kLeft, 2);
  EXPECT_NEAR(ink.top, kTop, 2);
  EXPECT_NEAR(ink.right - ink.left, kHeight / 4, 3);
  EXPECT_NEAR(ink.bottom - ink.top, kHeight, 3);
  expectQuarters(paper, ink);
}

TEST_F(Printing, APrinterThatRefusesIsTold) {
  service->addPrinter();
  service->refuse();
  print(quarters(8, 8));
  ASSERT_EQ(messages.count(), 1U);
  EXPECT_EQ(messages.lastText(), "The printer did not take the document.");
  EXPECT_TRUE(files.files.empty());
}

TEST_F(Printing, WithoutAPrinterThePictureBecomesAPdf) {
  print(quarters(800, 400));
  ASSERT_EQ(files.files.count("folder/Picture_071221_140509.pdf"), 1U);
  EXPECT_TRUE(files.files.begin()->second.starts_with("%PDF-"));
  EXPECT_EQ(messages.count(), 1U);
}

TEST_F(Printing, WithoutAServiceThePictureBecomesAPdf) {
  service->addPrinter();
  service->stop();
  print(quarters(8, 8));
  EXPECT_EQ(files.files.count("folder/Picture_071221_140509.pdf"), 1U);
}

class PrintingTheList : public Printing {
 protected:
  PrintingTheList() {
    form.grdLog.setRows(502);
    rig.setRow(0, {"No.", "Time", "Reading", "Remark"});
    for (int row = 1; row <= 500; ++row) {
      rig.setRow(row, {number(row), time(row), std::to_string(row) + ".5mV", remark(row)});
    }
  }

  static std::string number(int row) {
    const std::string digits = std::to_string(row);
    return std::string(5 - digits.size(), '0') + digits;
  }
  static std::string time(int row) {
    const std::string minute = std::to_string(row / 60);
    const std::string second = std::to_string(row % 60);
    return "12:" + std::string(2 - minute.size(), '0') + minute + ":" + std::string(2 - second.size(), '0') +
           second;
  }
  static std::string remark(int row) { return row % 3 == 0 ? "\u00B5A" : "DCV"; }
  static std::string printedRow(int row) {
    return number(row) + " " + time(row) + " " + std::to_string(row) + ".5mV " + remark(row);
  }

  ListPrintRig rig{messages, printOut};
  form::MainForm& form = rig.form;
};

TEST_F(PrintingTheList, FiveHundredRowsComeRowByRowOnSeveralPagesEachWithTheHeaderLine) {
  service->addPrinter();
  form.cmdLprt.click();
  const std::string told = outputOf({"pdfinfo", service->printed()}).value_or("");
  const std::size_t at = told.find("Pages:");
  ASSERT_NE(at, std::string::npos);
  const int pages = std::atoi(told.c_str() + at + 6);
  EXPECT_GE(pages, 5);
  int row = 1;
  for (int number = 1; number <= pages; ++number) {
    const std::vector<std::string> lines = linesOf(text(number));
    ASSERT_GE(lines.size(), 2U) << number;
    EXPECT_EQ(lines.front(), "No. Time Reading Remark") << number;
    for (std::size_t line = 1; line < lines.size(); ++line) EXPECT_EQ(lines[line], printedRow(row++));
  }
  EXPECT_EQ(row, 501);
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(PrintingTheList, TheTextStaysOnWhatThePrinterCanPrint) {
  service->addPrinter();
  form.grdLog.setText(7, 3, std::string(300, 'w'));
  form.cmdLprt.click();
  const platform::Bitmap paper = page();
  ASSERT_FALSE(paper.empty());
  const Box ink = inkOf(paper);
  EXPECT_GE(ink.left, kLeft - 2);
  EXPECT_GE(ink.top, kTop - 2);
  EXPECT_LE(ink.right, kLeft + kWidth + 2);
  EXPECT_LE(ink.bottom, kTop + kHeight + 2);
}

}  // namespace
}  // namespace vireon::tests
