#pragma once

#include "files/list_row.h"
#include "files/print_out.h"
#include "form/main_form.h"
#include "link/long_work.h"

namespace vireon::files {

// How many rows of the list are printed, the header row among them: those up to the first whose column 2 is
// empty, but none after one whose column 1 reads "--EOD---".
int printedRows(const form::Grid& list);

// What is printed of a row: its four columns, the time of day in column 1 as "hh:mm:ss".
ListRow printedLine(const form::Grid& list, int row);

// The button below the list: prints it, or clears the trend plot where that is shown.
class ListPrint {
 public:
  // With more rows than this the print-out shows its progress and can be cancelled.
  static constexpr int kLongPrint = 500;

  // All outlive this object.
  ListPrint(form::MainForm& form, link::LongWork& work, platform::MessageBoxes& messages, PrintOut& printOut)
      : form_(form), work_(work), messages_(messages), printOut_(printOut) {}

  // Makes cmdLprt call its handler.
  void connectEvents();

  // Prints the list, one line a row, with the header line on each page. A list without a row to print gives a
  // text on the status bar alone.
  void cmdLprt_Click();

 private:
  bool draw(platform::PrintDocument& document, int rows);

  form::MainForm& form_;
  link::LongWork& work_;
  platform::MessageBoxes& messages_;
  PrintOut& printOut_;
};

}  // namespace vireon::files
