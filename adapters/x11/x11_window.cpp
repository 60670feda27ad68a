#include "adapters/x11/x11_window.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace vireon::adapters {
namespace {

constexpr std::uint32_t kMostNumbers = 16;

// Edges of a window in the order of these properties.
enum Edge : std::size_t { kLeft, kRight, kTop, kBottom, kEdges };

// Pixels; more than a window can have. What says so is another program.
constexpr std::uint32_t kWidestEdge = 65535;

// What a property says of the four edges, in pixels; all 0 where it is not there or cannot be.
std::array<int, kEdges> edgesOf(const X11Window& window, const char* property) {
  std::array<int, kEdges> edges{};
  const auto told = window.numbers(property);
  if (told.size() == kEdges &&
      std::all_of(told.begin(), told.end(), [](std::uint32_t edge) { return edge <= kWidestEdge; })) {
    std::transform(told.begin(), told.end(), edges.begin(),
                   [](std::uint32_t edge) { return static_cast<int>(edge); });
  }
  return edges;
}

}  // namespace

void FreeReply::operator()(void* reply) const {
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory): the library's way
  std::free(reply);
}

std::vector<std::uint32_t> X11Window::numbers(const char* property) const {
  const std::string_view name = property;
  const Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
      connection_, xcb_intern_atom(connection_, 1, static_cast<std::uint16_t>(name.size()), name.data()),
      nullptr));
  if (atom == nullptr || atom->atom == XCB_ATOM_NONE) {
    return {};
  }
  const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      connection_, xcb_get_property(connection_, 0, window_, atom->atom, XCB_ATOM_ANY, 0, kMostNumbers),
      nullptr));
  if (reply == nullptr || reply->format != 32) {
    return {};
  }
  const auto* const first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

xcb_window_t X11Window::topLevel() const {
  xcb_window_t window = window_;
  for (;;) {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr));
    if (tree == nullptr || tree->parent == XCB_WINDOW_NONE) {
      return XCB_WINDOW_NONE;
    }
    if (tree->parent == root_) {
      return window;
    }
    window = tree->parent;
  }
}

std::optional<platform::ScreenRectangle> X11Window::inside() const {
  const Reply<xcb_get_geometry_reply_t> size(
      xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window_), nullptr));
  const Reply<xcb_translate_coordinates_reply_t> corner(xcb_translate_coordinates_reply(
      connection_, xcb_translate_coordinates(connection_, window_, root_, 0, 0), nullptr));
  if (size == nullptr || corner == nullptr) {
    return std::nullopt;
  }
  return platform::ScreenRectangle{corner->dst_x, corner->dst_y, corner->dst_x + size->width,
                                   corner->dst_y + size->height};
}

std::optional<platform::ScreenRectangle> X11Window::outside() const {
  const xcb_window_t top = topLevel();
  const X11Window frame(connection_, root_, top);
  auto at = top == XCB_WINDOW_NONE ? std::nullopt : frame.inside();
  const Reply<xcb_get_geometry_reply_t> size(
      at ? xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, top), nullptr) : nullptr);
  if (size == nullptr) {
    return std::nullopt;
  }
  const int border = size->border_width;
  *at = {at->left - border, at->top - border, at->right + border, at->bottom + border};
  if (top != window_) {
    return at;
  }
  // A frame beside the window, by a window manager that does not put windows into frames; a shadow that the
  // program draws around its own frame inside the window.
  const auto frameEdges = edgesOf(*this, "_NET_FRAME_EXTENTS");
  const auto shadow = edgesOf(*this, "_GTK_FRAME_EXTENTS");
  *at = {at->left - frameEdges[kLeft] + shadow[kLeft], at->top - frameEdges[kTop] + shadow[kTop],
         at->right + frameEdges[kRight] - shadow[kRight], at->bottom + frameEdges[kBottom] - shadow[kBottom]};
  return at;
}

}  // namespace vireon::adapters
