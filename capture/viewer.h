#pragma once

#include <functional>
#include <memory>

#include "capture/capture.h"
#include "files/out_of_memory.h"
#include "files/print_out.h"
#include "platform/clipboard.h"
#include "platform/file_dialog.h"
#include "platform/file_store.h"
#include "platform/message_box.h"
#include "platform/png_encoder.h"
#include "platform/viewer_window.h"

namespace vireon::capture {

// What the viewer needs; each outlives it. `messages` stand over the viewer's window.
struct ViewerPorts {
  platform::ViewerWindows& windows;
  platform::FileDialogs& dialogs;
  platform::FileStore& files;
  platform::MessageBoxes& messages;
  platform::Clipboard& clipboard;
  platform::PngEncoder& png;
};

// The viewer, `frmCapture`: one window with one picture, made anew after it was closed.
class Viewer {
 public:
  // Room beside the picture for title bar, menu and frame, twips.
  static constexpr int kBesideWidth = 100;
  static constexpr int kBesideHeight = 800;

  // `printOut` outlives the viewer.
  Viewer(const ViewerPorts& ports, files::PrintOut& printOut) : ports_(ports), printOut_(printOut) {}

  // Puts the picture into Picture1 and shows the viewer in front. An empty picture gives a message instead.
  void show(Picture picture);

  bool isOpen() const { return window_ != nullptr; }
  const Picture& Picture1() const { return picture_; }

  // Makes the window, whose box takes each picture's size; not yet on the screen.
  void Form_Load();

  // Gives the window its picture's size with room beside it, bounded by the screen.
  void Form_Resize();

  // The window goes, and the picture with it.
  void Form_Unload();

  // What is done besides the message when memory runs out.
  std::function<void()> onOutOfMemory;

  void mnuOpen_Click();
  void mnuFileSave_Click();
  void mnuPrint_Click();
  void mnuFileExit_Click();
  void mnuCopy_Click();
  void mnuClear_Click();

 private:
  void attend(const std::function<void()>& event);
  void command(platform::ViewerCommand command);
  void setPicture(Picture picture);
  bool hasPicture();

  ViewerPorts ports_;
  files::PrintOut& printOut_;
  Picture picture_;
  std::unique_ptr<platform::ViewerWindow> window_;
  files::OutOfMemory outOfMemory_;
};

}  // namespace vireon::capture
