#include "files/print_out.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_printer.h"
#include "tests/fakes/fake_wall_clock.h"

namespace vireon::tests {
namespace {

using files::PrintOut;

class PrintOutTest : public testing::Test {
 protected:
  void print(const PrintOut::Kind& kind = PrintOut::kList, bool drawn = true) {
    out.print(kind, messages, [drawn](platform::PrintDocument&) { return drawn; });
  }

  FakePrinter printer;
  FakeFileStore files;
  FakeMessageBoxes messages;
  FakeWallClock clock{platform::CalendarTime{2026, 1, 2, 3, 4, 5}};
  PrintOut out{printer, files, clock, "folder"};
};

TEST_F(PrintOutTest, GoesToThePrinterWithItsTitleAndWithoutAWord) {
  print();
  print(PrintOut::kPicture);
  ASSERT_EQ(printer.jobs.size(), 2U);
  EXPECT_EQ(printer.jobs[0].title, "Logger list");
  EXPECT_EQ(printer.jobs[0].document, "PDF1");
  EXPECT_EQ(printer.jobs[1].title, "Captured window");
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_TRUE(files.files.empty());
}

TEST_F(PrintOutTest, WhatWasNotDrawnIsNotPrinted) {
  print(PrintOut::kList, false);
  EXPECT_TRUE(printer.jobs.empty());
  printer.installed = false;
  print(PrintOut::kList, false);
  EXPECT_TRUE(files.files.empty());
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(PrintOutTest, WithoutAPrinterItBecomesAPdfOfItsKindAndTime) {
  printer.installed = false;
  print();
  print(PrintOut::kPicture);
  ASSERT_EQ(files.files.size(), 2U);
  EXPECT_EQ(files.files.at("folder/List_260102_030405.pdf"), "PDF1");
  EXPECT_EQ(files.files.at("folder/Picture_260102_030405.pdf"), "PDF2");
  ASSERT_EQ(messages.count(), 2U);
  EXPECT_EQ(messages.shown[0].text,
            "No printer is installed. The document was saved as\nfolder/List_260102_030405.pdf");
}

TEST_F(PrintOutTest, ThePdfReplacesNothing) {
  printer.installed = false;
  files.files = {{"folder/List_260102_030405.pdf", "a"}, {"folder/List_260102_030405_2.pdf", "b"}};
  print();
  EXPECT_EQ(files.files.at("folder/List_260102_030405.pdf"), "a");
  EXPECT_EQ(files.files.at("folder/List_260102_030405_2.pdf"), "b");
  EXPECT_EQ(files.files.at("folder/List_260102_030405_3.pdf"), "PDF1");
  EXPECT_NE(messages.lastText().find("folder/List_260102_030405_3.pdf"), std::string::npos);
}

TEST_F(PrintOutTest, APdfThatCannotBeWrittenGivesOneMessage) {
  printer.installed = false;
  files.replaceErrors[1] = platform::FileReplace::kNoSpace;
  print();
  ASSERT_EQ(messages.count(), 1U);
  EXPECT_EQ(messages.lastText(),
            "The file was not saved:\nfolder/List_260102_030405.pdf\n\nThere is no space left.");
}

TEST_F(PrintOutTest, APrinterThatRefusesGivesOneMessageAndNoFile) {
  printer.takesDocuments = false;
  print();
  ASSERT_EQ(messages.count(), 1U);
  EXPECT_EQ(messages.lastText(), "The printer did not take the document.");
  EXPECT_TRUE(files.files.empty());
}

TEST_F(PrintOutTest, ADocumentThatCannotBeMadeIsNotPrinted) {
  printer.makesDocuments = false;
  print();
  EXPECT_TRUE(printer.jobs.empty());
  printer.installed = false;
  print();
  EXPECT_TRUE(files.files.empty());
  EXPECT_EQ(messages.count(), 2U);
}

}  // namespace
}  // namespace vireon::tests
