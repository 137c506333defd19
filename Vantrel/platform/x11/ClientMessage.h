// Requests to the window manager, as messages to the root window.
#pragma once

#include "Vantrel/platform/x11/FrameArithmetic.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <array>
#include <cstdint>
#include <xcb/xcb.h>

// All are sent without being flushed.
namespace vantrel::ClientMessage {

void send(const X11Connection& connection, xcb_window_t window, xcb_atom_t type,
          const std::array<std::uint32_t, 5>& data);

void moveResize(const X11Connection& connection, xcb_window_t window, const MoveResize& request);

enum class Maximized : std::uint8_t { no, yes };

// Changes the given directions, both in one message.
void setMaximized(const X11Connection& connection, xcb_window_t window, Maximized maximized,
                  bool horizontally, bool vertically);

// The states of a managed window, with the protocol's numbers.
enum class WmState : std::uint8_t { normal = 1, iconic = 3 };

void changeState(const X11Connection& connection, xcb_window_t window, WmState state);

// To the top of its layer, the focus left where it is.
void restackOnTop(const X11Connection& connection, xcb_window_t window);

// The same by the older way that every window manager knows; both are clients.
void restackAbove(const X11Connection& connection, xcb_window_t window, xcb_window_t sibling);

} // namespace vantrel::ClientMessage
