#include "capture/print_picture.h"

namespace vireon::capture {

platform::PrintArea fitToPage(double pictureWidth, double pictureHeight, platform::PrintArea page) {
  const double pictureRatio = pictureWidth / pictureHeight;
  const double pageRatio = page.width / page.height;
  if (pictureRatio >= pageRatio) {
    return {page.width, page.width / pictureRatio};
  }
  return {page.height * pictureRatio, page.height};
}

void tellNoPicture(platform::MessageBoxes& messages) {
  messages.show({"Capture Active Window", "No Picture in Window.", platform::MessageIcon::kInformation});
}

bool prtPicFit(platform::PrintDocument& document, const Picture& picture, platform::MessageBoxes& messages) {
  if (picture.empty()) {
    tellNoPicture(messages);
    return false;
  }
  const platform::PrintArea size = fitToPage(picture.bitmap.width, picture.bitmap.height, document.area());
  document.picture(picture.bitmap, 0, 0, size.width, size.height);
  return true;
}

}  // namespace vireon::capture
