#pragma once

#include <poll.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace vireon::bench {

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using XReply = std::unique_ptr<Reply, FreeReply>;
using XEvent = XReply<xcb_generic_event_t>;

// A client of the X server in DISPLAY that sees where other programs' windows are painted. Throws
// std::runtime_error where there is no such server.
class X11Watch {
 public:
  X11Watch() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_.get()) != 0) throw std::runtime_error("no X server");
    const auto* damage = xcb_get_extension_data(connection_.get(), &xcb_damage_id);
    const XReply<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
        connection_.get(), xcb_damage_query_version(connection_.get(), 1, 1), nullptr));
    if (damage == nullptr || damage->present == 0 || !version)
      throw std::runtime_error("a server without DAMAGE");
    damageEvent_ = static_cast<std::uint8_t>(damage->first_event + XCB_DAMAGE_NOTIFY);
  }

  xcb_window_t root() const { return xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root; }

  void select(xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_.get());
  }

  // Has what is painted into the window told; returns the name of that.
  xcb_damage_damage_t watchPainting(xcb_window_t window, xcb_damage_report_level_t level) {
    const xcb_damage_damage_t name = xcb_generate_id(connection_.get());
    xcb_damage_create(connection_.get(), name, window, static_cast<std::uint8_t>(level));
    xcb_flush(connection_.get());
    return name;
  }

  // From now on the next painting is told.
  void takeDamage(xcb_damage_damage_t name) {
    xcb_damage_subtract(connection_.get(), name, XCB_NONE, XCB_NONE);
    xcb_flush(connection_.get());
  }

  // The next event; null when none came in time.
  XEvent next(std::chrono::milliseconds patience) {
    XEvent event(xcb_poll_for_event(connection_.get()));
    if (!event) {
      pollfd state{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
      ::poll(&state, 1, static_cast<int>(patience.count()));
      event.reset(xcb_poll_for_event(connection_.get()));
    }
    return event;
  }

  static std::uint8_t kindOf(const XEvent& event) { return event->response_type & 0x7f; }
  bool isPainting(const XEvent& event) const { return kindOf(event) == damageEvent_; }

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  std::uint8_t damageEvent_ = 0;
};

}  // namespace vireon::bench
