#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/file_store.h"
#include "platform/message_box.h"
#include "platform/printer.h"
#include "platform/wall_clock.h"

namespace vireon::files {

// Prints documents. Without a printer a document becomes a PDF file in the program's folder.
class PrintOut {
 public:
  // What is printed, for the queue, and how the name of its PDF begins.
  struct Kind {
    const char* title;
    const char* prefix;
  };
  static constexpr Kind kList{"Logger list", "List_"};
  static constexpr Kind kPicture{"Captured window", "Picture_"};

  PrintOut(platform::Printer& printer, platform::FileStore& files, const platform::WallClock& clock,
           std::string folder)
      : printer_(printer), files_(files), clock_(clock), folder_(std::move(folder)) {}

  // Lays a document out by `draw` and prints it; nothing where that returns False. The user gets one message
  // where a PDF was written instead, or where neither could be done.
  void print(const Kind& kind, platform::MessageBoxes& messages,
             const std::function<bool(platform::PrintDocument&)>& draw);

 private:
  void savePdf(const Kind& kind, platform::MessageBoxes& messages, const std::string& document);

  platform::Printer& printer_;
  platform::FileStore& files_;
  const platform::WallClock& clock_;
  std::string folder_;
};

}  // namespace vireon::files
