// The atoms that the X11 adapters use, interned together.
#pragma once

#include <optional>
#include <xcb/xcb.h>

namespace vantrel {

struct X11Atoms {
    xcb_atom_t edid = XCB_ATOM_NONE;
    xcb_atom_t utf8String = XCB_ATOM_NONE;
    xcb_atom_t wmProtocols = XCB_ATOM_NONE;
    xcb_atom_t wmChangeState = XCB_ATOM_NONE;
    xcb_atom_t gtkApplicationId = XCB_ATOM_NONE;
    xcb_atom_t gtkFrameExtents = XCB_ATOM_NONE;
    xcb_atom_t kdeDesktopFile = XCB_ATOM_NONE;
    xcb_atom_t manager = XCB_ATOM_NONE;
    // For screen 0: today's servers have a single screen, however many monitors.
    xcb_atom_t netSystemTray = XCB_ATOM_NONE;

    xcb_atom_t netSupported = XCB_ATOM_NONE;
    xcb_atom_t netSupportingWmCheck = XCB_ATOM_NONE;
    xcb_atom_t netClientList = XCB_ATOM_NONE;
    xcb_atom_t netClientListStacking = XCB_ATOM_NONE;
    xcb_atom_t netCurrentDesktop = XCB_ATOM_NONE;
    xcb_atom_t netWorkarea = XCB_ATOM_NONE;

    xcb_atom_t netMoveresizeWindow = XCB_ATOM_NONE;
    xcb_atom_t netRestackWindow = XCB_ATOM_NONE;
    xcb_atom_t netRequestFrameExtents = XCB_ATOM_NONE;

    xcb_atom_t netWmName = XCB_ATOM_NONE;
    xcb_atom_t netWmPid = XCB_ATOM_NONE;
    xcb_atom_t netWmDesktop = XCB_ATOM_NONE;
    xcb_atom_t netWmSyncRequest = XCB_ATOM_NONE;
    xcb_atom_t netFrameExtents = XCB_ATOM_NONE;
    xcb_atom_t netWmStrut = XCB_ATOM_NONE;
    xcb_atom_t netWmStrutPartial = XCB_ATOM_NONE;

    xcb_atom_t netWmState = XCB_ATOM_NONE;
    xcb_atom_t netWmStateHidden = XCB_ATOM_NONE;
    xcb_atom_t netWmStateShaded = XCB_ATOM_NONE;
    xcb_atom_t netWmStateAbove = XCB_ATOM_NONE;
    xcb_atom_t netWmStateModal = XCB_ATOM_NONE;
    xcb_atom_t netWmStateFullscreen = XCB_ATOM_NONE;
    xcb_atom_t netWmStateMaximizedHorz = XCB_ATOM_NONE;
    xcb_atom_t netWmStateMaximizedVert = XCB_ATOM_NONE;
    xcb_atom_t netWmStateSkipTaskbar = XCB_ATOM_NONE;

    xcb_atom_t i3FloatingWindow = XCB_ATOM_NONE;
    // Our own properties; see LastingMarks.
    xcb_atom_t vantrelWindow = XCB_ATOM_NONE;
    xcb_atom_t vantrelSession = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowType = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeNormal = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDialog = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeUtility = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeToolbar = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeSplash = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDesktop = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDock = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeMenu = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDropdownMenu = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypePopupMenu = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeTooltip = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeNotification = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeCombo = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDnd = XCB_ATOM_NONE;

    // Takes one round trip. Returns none if the connection is lost.
    [[nodiscard]] static std::optional<X11Atoms> intern(xcb_connection_t* connection);
};

} // namespace vantrel
