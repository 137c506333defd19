// Requests to the window manager, sent as messages to the root window.
#pragma once

#include "Vantrel/platform/x11/FrameArithmetic.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <array>
#include <cstdint>
#include <xcb/xcb.h>

// None of these flushes.
namespace vantrel::ClientMessage {

void send(const X11Connection& connection, xcb_window_t window, xcb_atom_t type,
          const std::array<std::uint32_t, 5>& data);

void moveResize(const X11Connection& connection, xcb_window_t window, const MoveResize& request);

enum class Setting : std::uint8_t { remove, add };

// Changes one of the states of _NET_WM_STATE.
void setState(const X11Connection& connection, xcb_window_t window, Setting setting, xcb_atom_t state);

// Changes the given directions in a single message, if any.
void setMaximized(const X11Connection& connection, xcb_window_t window, Setting setting, bool horizontally,
                  bool vertically);

// Numbered from 0; allDesktops for all.
void setDesktop(const X11Connection& connection, xcb_window_t window, std::uint32_t desktop);

// The states of a managed window. The values are ICCCM's.
enum class WmState : std::uint8_t { normal = 1, iconic = 3 };

void changeState(const X11Connection& connection, xcb_window_t window, WmState state);

// Shows a minimised window. openbox 3.6 does so without focusing it; xfwm4 4.18 focuses it.
void show(const X11Connection& connection, xcb_window_t window);

// Raises the window to the top of its layer without changing the focus.
void restackOnTop(const X11Connection& connection, xcb_window_t window);

// Does the same with an older request that every window manager supports. Both windows are clients.
void restackAbove(const X11Connection& connection, xcb_window_t window, xcb_window_t sibling);

} // namespace vantrel::ClientMessage
