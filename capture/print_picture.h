#pragma once

#include "capture/capture.h"
#include "platform/message_box.h"
#include "platform/printer.h"

namespace vireon::capture {

// The largest size of the picture's proportions on the page; one of exactly the page's proportions takes its
// width. All sides are more than 0, those of one argument in one unit; the result is in the page's.
platform::PrintArea fitToPage(double pictureWidth, double pictureHeight, platform::PrintArea page);

// Tells that there is no picture.
void tellNoPicture(platform::MessageBoxes& messages);

// Draws the picture at the corner of the document's page, as large as it gets. False when the picture is
// empty: then the user knows and nothing is drawn.
bool prtPicFit(platform::PrintDocument& document, const Picture& picture, platform::MessageBoxes& messages);

}  // namespace vireon::capture
