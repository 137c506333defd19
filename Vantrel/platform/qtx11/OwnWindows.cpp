#include "Vantrel/platform/qtx11/OwnWindows.h"

#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <QWindow>

#include <cstdlib>
#include <memory>
#include <utility>
#include <xcb/xcb.h>

namespace vantrel {

namespace {

// Qt's own, so that the property follows the creation of the window.
xcb_connection_t* connection() {
    const auto* const native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native != nullptr ? native->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* xcb, const std::string& name) {
    const auto length = static_cast<std::uint16_t>(name.size());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(xcb, xcb_intern_atom(xcb, 0, length, name.c_str()), nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

OwnWindows::OwnWindows(std::string desktopFile) : m_desktopFile(std::move(desktopFile)) {
    if (xcb_connection_t* const xcb = connection()) {
        m_property = atom(xcb, "_KDE_NET_WM_DESKTOP_FILE");
        m_type = atom(xcb, "UTF8_STRING");
        qGuiApp->installEventFilter(this);
    }
}

bool OwnWindows::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::PlatformSurface &&
        static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
            QPlatformSurfaceEvent::SurfaceCreated) {
        if (const auto* const window = qobject_cast<QWindow*>(watched)) {
            constexpr std::uint8_t bits = 8;
            xcb_change_property(connection(), XCB_PROP_MODE_REPLACE,
                                static_cast<xcb_window_t>(window->winId()), m_property, m_type, bits,
                                static_cast<std::uint32_t>(m_desktopFile.size()), m_desktopFile.data());
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vantrel
