#include "capture/viewer.h"

#include <algorithm>
#include <new>
#include <string>
#include <utility>

#include "capture/bmp_file.h"
#include "capture/print_picture.h"
#include "files/file_names.h"
#include "files/save_failure.h"

namespace vireon::capture {
namespace {

constexpr const char* kTitle = "Capture Window";
constexpr const char* kFilter = "Bitmap Image (*.bmp)|*.bmp";
constexpr const char* kExtension = ".BMP";

const char* reason(platform::FileReadError error) {
  switch (error) {
    case platform::FileReadError::kNotFound:
      return "There is no file of this name.";
    case platform::FileReadError::kNoPermission:
      return "This account may not read it.";
    case platform::FileReadError::kTooLarge:
      return "It is too large.";
    case platform::FileReadError::kFailed:
    case platform::FileReadError::kNone:
      break;
  }
  return "It cannot be read.";
}

const char* reason(BmpError error) {
  switch (error) {
    case BmpError::kNoBitmap:
      return "It is not a bitmap file.";
    case BmpError::kTooLarge:
      return "Its picture is too large.";
    case BmpError::kUnsupported:
      return "This kind of bitmap file cannot be shown.";
    case BmpError::kDamaged:
    case BmpError::kNone:
      break;
  }
  return "The file is damaged.";
}

}  // namespace

void Viewer::show(Picture picture) {
  if (picture.empty()) {
    ports_.messages.show({"Capture Active Window", "The active window's picture could not be taken.",
                          platform::MessageIcon::kExclamation});
    return;
  }
  if (!isOpen()) {
    Form_Load();
  }
  setPicture(std::move(picture));
  window_->show();
}

void Viewer::Form_Load() {
  window_ = ports_.windows.make();
  window_->onCommand = [this](platform::ViewerCommand command) {
    attend([this, command] { this->command(command); });
  };
  window_->onResize = [this] { attend([this] { Form_Resize(); }); };
  window_->onUnload = [this] { attend([this] { Form_Unload(); }); };
}

// Nothing is thrown into an event loop.
void Viewer::attend(const std::function<void()>& event) {
  try {
    event();
  } catch (const std::bad_alloc&) {
    if (onOutOfMemory) {
      onOutOfMemory();
    }
    outOfMemory_.tell(ports_.messages);
  }
}

void Viewer::command(platform::ViewerCommand command) {
  switch (command) {
    case platform::ViewerCommand::kOpen:
      return mnuOpen_Click();
    case platform::ViewerCommand::kSave:
      return mnuFileSave_Click();
    case platform::ViewerCommand::kPrint:
      return mnuPrint_Click();
    case platform::ViewerCommand::kExit:
      return mnuFileExit_Click();
    case platform::ViewerCommand::kCopy:
      return mnuCopy_Click();
    case platform::ViewerCommand::kClear:
      return mnuClear_Click();
  }
}

void Viewer::setPicture(Picture picture) {
  window_->setPicture(picture.bitmap);
  picture_ = std::move(picture);
  Form_Resize();
}

void Viewer::Form_Resize() {
  const platform::WindowSize picture = window_->pictureSize();
  const platform::WindowSize screen = window_->screenSize();
  window_->resize({std::min(picture.width + kBesideWidth, screen.width),
                   std::min(picture.height + kBesideHeight, screen.height)});
}

void Viewer::Form_Unload() {
  window_.reset();
  picture_ = {};
}

void Viewer::mnuOpen_Click() {
  const std::string path = ports_.dialogs.openName({kFilter, {}, kExtension});
  if (path.empty()) {
    return;
  }
  const auto tell = [&](const char* why) {
    ports_.messages.show(
        {kTitle, "The picture was not opened:\n" + path + "\n\n" + why, platform::MessageIcon::kExclamation});
  };
  const platform::FileReadResult file = ports_.files.read(path, kLongestBmpFile);
  if (file.error != platform::FileReadError::kNone) {
    return tell(reason(file.error));
  }
  BmpResult read = readBmp(file.bytes);
  if (read.error != BmpError::kNone) {
    return tell(reason(read.error));
  }
  setPicture(mkBmpPic(std::move(read.bitmap)));
}

void Viewer::mnuFileSave_Click() {
  if (!hasPicture()) {
    return;
  }
  const std::string path = ports_.dialogs.saveName({kFilter, {}, kExtension});
  if (path.empty()) {
    return;
  }
  const bool isPng = files::extensionOf(path) == ".png";
  const std::string bytes = isPng ? ports_.png.encode(picture_.bitmap) : bmpFile(picture_.bitmap);
  const auto result = bytes.empty() ? platform::FileReplace::kFailed : ports_.files.replace(path, bytes);
  if (result != platform::FileReplace::kDone) {
    ports_.messages.show(files::saveFailure(kTitle, path, result));
  }
}

void Viewer::mnuPrint_Click() {
  printOut_.print(files::PrintOut::kPicture, ports_.messages, [this](platform::PrintDocument& document) {
    return prtPicFit(document, picture_, ports_.messages);
  });
}

void Viewer::mnuFileExit_Click() {
  Form_Unload();
}

void Viewer::mnuCopy_Click() {
  if (hasPicture()) {
    ports_.clipboard.setPicture(picture_.bitmap);
  }
}

void Viewer::mnuClear_Click() {
  picture_ = {};
  window_->setPicture({});
}

bool Viewer::hasPicture() {
  if (picture_.empty()) {
    tellNoPicture(ports_.messages);
  }
  return !picture_.empty();
}

}  // namespace vireon::capture
