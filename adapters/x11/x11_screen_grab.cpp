#include "adapters/x11/x11_screen_grab.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <bit>

#include "adapters/x11/x11_window.h"

namespace vireon::adapters {
namespace {

constexpr std::int64_t kMostPixels = 1LL << 26U;  // of a window; another program may have made it of any size

xcb_window_t idOf(platform::WindowHandle window) {
  return static_cast<xcb_window_t>(window);
}

const xcb_setup_t* setupOf(xcb_connection_t* connection) {
  return xcb_get_setup(connection);
}

// How the server lays a picture of this depth out: bits of a pixel and of a row's unit.
const xcb_format_t* formatOf(xcb_connection_t* connection, std::uint8_t depth) {
  const xcb_setup_t* const setup = setupOf(connection);
  const xcb_format_t* const first = xcb_setup_pixmap_formats(setup);
  const xcb_format_t* const last = first + xcb_setup_pixmap_formats_length(setup);
  const auto* const format =
      std::find_if(first, last, [&](const auto& entry) { return entry.depth == depth; });
  return format == last ? nullptr : format;
}

// The root's kind of pixels; nothing where its colours come from a table.
const xcb_visualtype_t* visualOf(xcb_connection_t* connection) {
  const xcb_screen_t* const screen = xcb_setup_roots_iterator(setupOf(connection)).data;
  for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem > 0; xcb_depth_next(&depth)) {
    for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0; xcb_visualtype_next(&visual)) {
      if (visual.data->visual_id == screen->root_visual) {
        return visual.data->_class == XCB_VISUAL_CLASS_TRUE_COLOR ||
                       visual.data->_class == XCB_VISUAL_CLASS_DIRECT_COLOR
                   ? visual.data
                   : nullptr;
      }
    }
  }
  return nullptr;
}

// A field of a pixel as 0 to 255.
std::uint32_t field(std::uint32_t pixel, std::uint32_t mask) {
  if (mask == 0) {
    return 0;
  }
  const auto shift = static_cast<unsigned>(std::countr_zero(mask));
  return static_cast<std::uint32_t>(((pixel & mask) >> shift) * std::uint64_t{255} / (mask >> shift));
}

// Pixels of 16 or 32 bits, in the server's byte order.
class PixelReader {
 public:
  PixelReader(const xcb_setup_t& setup, unsigned bits)
      : bytes_(bits / 8), lowFirst_(setup.image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST) {}

  std::uint32_t operator()(const std::uint8_t* pixel) const {
    std::uint32_t value = 0;
    for (unsigned byte = 0; byte < bytes_; ++byte) {
      value |= std::uint32_t{pixel[byte]} << 8U * (lowFirst_ ? byte : bytes_ - 1 - byte);
    }
    return value;
  }

 private:
  unsigned bytes_;
  bool lowFirst_;
};

// A part of the screen as the server sent it.
struct Image {
  Reply<xcb_get_image_reply_t> reply;  // null when it cannot be read
  unsigned bits = 0;                   // of a pixel, a multiple of 8
  std::size_t stride = 0;              // bytes from a row to the next
};

Image imageOf(xcb_connection_t* connection, const platform::ScreenRectangle& at) {
  const auto width = static_cast<std::uint16_t>(at.right - at.left);
  const auto height = static_cast<std::uint16_t>(at.bottom - at.top);
  Image image;
  image.reply.reset(xcb_get_image_reply(
      connection,
      xcb_get_image(
          connection, XCB_IMAGE_FORMAT_Z_PIXMAP, xcb_setup_roots_iterator(setupOf(connection)).data->root,
          static_cast<std::int16_t>(at.left), static_cast<std::int16_t>(at.top), width, height, ~0U),
      nullptr));
  const xcb_format_t* const format =
      image.reply == nullptr ? nullptr : formatOf(connection, image.reply->depth);
  if (format == nullptr || format->bits_per_pixel % 8 != 0) {
    return {};
  }
  image.bits = format->bits_per_pixel;
  const unsigned pad = format->scanline_pad;
  image.stride = (width * image.bits + pad - 1) / pad * pad / 8;
  if (static_cast<std::size_t>(xcb_get_image_data_length(image.reply.get())) < image.stride * height) {
    return {};
  }
  return image;
}

// The part of the screen that lies in `at`; the rest of the bitmap stays black. Empty when it cannot be read.
platform::Bitmap screenPart(xcb_connection_t* connection, const platform::ScreenRectangle& at) {
  if ((std::int64_t{at.right} - at.left) * (std::int64_t{at.bottom} - at.top) > kMostPixels) {
    return {};
  }
  const xcb_screen_t& screen = *xcb_setup_roots_iterator(setupOf(connection)).data;
  const platform::ScreenRectangle seen{std::max(at.left, 0), std::max(at.top, 0),
                                       std::min<int>(at.right, screen.width_in_pixels),
                                       std::min<int>(at.bottom, screen.height_in_pixels)};
  const xcb_visualtype_t* const visual = visualOf(connection);
  if (visual == nullptr || seen.left >= seen.right || seen.top >= seen.bottom) {
    return {};
  }
  const Image image = imageOf(connection, seen);
  if (image.reply == nullptr) {
    return {};
  }
  const PixelReader read(*setupOf(connection), image.bits);
  const std::uint8_t* row = xcb_get_image_data(image.reply.get());
  platform::Bitmap bitmap = platform::blackBitmap(at.right - at.left, at.bottom - at.top);
  for (int y = seen.top; y < seen.bottom; ++y, row += image.stride) {
    const std::uint8_t* pixel = row;
    auto to = bitmap.pixels.begin() + std::ptrdiff_t{y - at.top} * bitmap.width + seen.left - at.left;
    for (int x = seen.left; x < seen.right; ++x, pixel += image.bits / 8, ++to) {
      const std::uint32_t value = read(pixel);
      *to = field(value, visual->red_mask) << 16U | field(value, visual->green_mask) << 8U |
            field(value, visual->blue_mask);
    }
  }
  return bitmap;
}

}  // namespace

void X11ScreenGrab::Disconnect::operator()(xcb_connection_t* connection) const {
  xcb_disconnect(connection);
}

X11ScreenGrab::X11ScreenGrab() : connection_(xcb_connect(nullptr, nullptr)) {
  if (xcb_connection_has_error(connection_.get()) == 0) {
    root_ = xcb_setup_roots_iterator(setupOf(connection_.get())).data->root;
  }
}

platform::WindowHandle X11ScreenGrab::foregroundWindow() {
  if (root_ == 0) {
    return platform::kNoWindow;
  }
  xcb_connection_t* const connection = connection_.get();
  const auto active = X11Window(connection, root_, root_).numbers("_NET_ACTIVE_WINDOW");
  if (!active.empty() && active.front() != 0) {
    return active.front();
  }
  // Without a window manager that tells, the window that the keys go to.
  const Reply<xcb_get_input_focus_reply_t> focus(
      xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
  if (focus == nullptr || focus->focus <= XCB_INPUT_FOCUS_POINTER_ROOT || focus->focus == root_) {
    return platform::kNoWindow;
  }
  return X11Window(connection, root_, focus->focus).topLevel();
}

std::optional<platform::ScreenRectangle> X11ScreenGrab::windowRectangle(platform::WindowHandle window) {
  return root_ == 0 ? std::nullopt : X11Window(connection_.get(), root_, idOf(window)).outside();
}

platform::Bitmap X11ScreenGrab::grab(platform::WindowHandle window, bool clientArea, int left, int top,
                                     int width, int height) {
  if (root_ == 0) {
    return {};
  }
  const X11Window asked(connection_.get(), root_, idOf(window));
  const auto area = clientArea ? asked.inside() : asked.outside();
  if (!area) {
    return {};
  }
  const int x = area->left + left;
  const int y = area->top + top;
  return screenPart(connection_.get(), {x, y, x + width, y + height});
}

}  // namespace vireon::adapters
