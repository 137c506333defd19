#include "Vantrel/platform/x11/X11Atoms.h"

#include "Vantrel/platform/x11/XcbReply.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vantrel {

namespace {

struct Name {
    xcb_atom_t X11Atoms::* atom;
    std::string_view text;
};

constexpr auto names = std::to_array<Name>({
    {&X11Atoms::edid, "EDID"},
    {&X11Atoms::utf8String, "UTF8_STRING"},
    {&X11Atoms::wmProtocols, "WM_PROTOCOLS"},
    {&X11Atoms::wmChangeState, "WM_CHANGE_STATE"},
    {&X11Atoms::gtkApplicationId, "_GTK_APPLICATION_ID"},
    {&X11Atoms::gtkFrameExtents, "_GTK_FRAME_EXTENTS"},
    {&X11Atoms::kdeDesktopFile, "_KDE_NET_WM_DESKTOP_FILE"},
    {&X11Atoms::manager, "MANAGER"},
    {&X11Atoms::netSystemTray, "_NET_SYSTEM_TRAY_S0"},
    {&X11Atoms::netSupported, "_NET_SUPPORTED"},
    {&X11Atoms::netSupportingWmCheck, "_NET_SUPPORTING_WM_CHECK"},
    {&X11Atoms::netClientList, "_NET_CLIENT_LIST"},
    {&X11Atoms::netClientListStacking, "_NET_CLIENT_LIST_STACKING"},
    {&X11Atoms::netCurrentDesktop, "_NET_CURRENT_DESKTOP"},
    {&X11Atoms::netWorkarea, "_NET_WORKAREA"},
    {&X11Atoms::netMoveresizeWindow, "_NET_MOVERESIZE_WINDOW"},
    {&X11Atoms::netRestackWindow, "_NET_RESTACK_WINDOW"},
    {&X11Atoms::netRequestFrameExtents, "_NET_REQUEST_FRAME_EXTENTS"},
    {&X11Atoms::netWmName, "_NET_WM_NAME"},
    {&X11Atoms::netWmPid, "_NET_WM_PID"},
    {&X11Atoms::netWmDesktop, "_NET_WM_DESKTOP"},
    {&X11Atoms::netWmSyncRequest, "_NET_WM_SYNC_REQUEST"},
    {&X11Atoms::netFrameExtents, "_NET_FRAME_EXTENTS"},
    {&X11Atoms::netWmStrut, "_NET_WM_STRUT"},
    {&X11Atoms::netWmStrutPartial, "_NET_WM_STRUT_PARTIAL"},
    {&X11Atoms::netWmState, "_NET_WM_STATE"},
    {&X11Atoms::netWmStateHidden, "_NET_WM_STATE_HIDDEN"},
    {&X11Atoms::netWmStateShaded, "_NET_WM_STATE_SHADED"},
    {&X11Atoms::netWmStateAbove, "_NET_WM_STATE_ABOVE"},
    {&X11Atoms::netWmStateModal, "_NET_WM_STATE_MODAL"},
    {&X11Atoms::netWmStateFullscreen, "_NET_WM_STATE_FULLSCREEN"},
    {&X11Atoms::netWmStateMaximizedHorz, "_NET_WM_STATE_MAXIMIZED_HORZ"},
    {&X11Atoms::netWmStateMaximizedVert, "_NET_WM_STATE_MAXIMIZED_VERT"},
    {&X11Atoms::netWmStateSkipTaskbar, "_NET_WM_STATE_SKIP_TASKBAR"},
    {&X11Atoms::i3FloatingWindow, "I3_FLOATING_WINDOW"},
    {&X11Atoms::vantrelWindow, "_VANTREL_WINDOW"},
    {&X11Atoms::vantrelSession, "_VANTREL_SESSION"},
    {&X11Atoms::netWmWindowType, "_NET_WM_WINDOW_TYPE"},
    {&X11Atoms::netWmWindowTypeNormal, "_NET_WM_WINDOW_TYPE_NORMAL"},
    {&X11Atoms::netWmWindowTypeDialog, "_NET_WM_WINDOW_TYPE_DIALOG"},
    {&X11Atoms::netWmWindowTypeUtility, "_NET_WM_WINDOW_TYPE_UTILITY"},
    {&X11Atoms::netWmWindowTypeToolbar, "_NET_WM_WINDOW_TYPE_TOOLBAR"},
    {&X11Atoms::netWmWindowTypeSplash, "_NET_WM_WINDOW_TYPE_SPLASH"},
    {&X11Atoms::netWmWindowTypeDesktop, "_NET_WM_WINDOW_TYPE_DESKTOP"},
    {&X11Atoms::netWmWindowTypeDock, "_NET_WM_WINDOW_TYPE_DOCK"},
    {&X11Atoms::netWmWindowTypeMenu, "_NET_WM_WINDOW_TYPE_MENU"},
    {&X11Atoms::netWmWindowTypeDropdownMenu, "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU"},
    {&X11Atoms::netWmWindowTypePopupMenu, "_NET_WM_WINDOW_TYPE_POPUP_MENU"},
    {&X11Atoms::netWmWindowTypeTooltip, "_NET_WM_WINDOW_TYPE_TOOLTIP"},
    {&X11Atoms::netWmWindowTypeNotification, "_NET_WM_WINDOW_TYPE_NOTIFICATION"},
    {&X11Atoms::netWmWindowTypeCombo, "_NET_WM_WINDOW_TYPE_COMBO"},
    {&X11Atoms::netWmWindowTypeDnd, "_NET_WM_WINDOW_TYPE_DND"},
});

} // namespace

std::optional<X11Atoms> X11Atoms::intern(xcb_connection_t* connection) {
    std::array<xcb_intern_atom_cookie_t, names.size()> cookies{};
    for (std::size_t i = 0; i < names.size(); ++i) {
        cookies[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(names[i].text.size()),
                                     names[i].text.data());
    }
    X11Atoms atoms;
    bool complete = true;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto reply = ownReply(xcb_intern_atom_reply(connection, cookies[i], nullptr));
        if (reply) {
            atoms.*names[i].atom = reply->atom;
        } else {
            complete = false;
        }
    }
    return complete ? std::optional(atoms) : std::nullopt;
}

} // namespace vantrel
