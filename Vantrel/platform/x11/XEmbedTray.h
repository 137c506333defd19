// Tells when the desktop shows XEmbed icons: when a program owns the selection of the system tray.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/MainQueue.h"

#include <functional>
#include <memory>

namespace vantrel {

// Lives on the main thread; the queue outlives it.
class XEmbedTray {
public:
    // Calls `appeared` on the main thread, never from here, for the tray that is there and for each that
    // comes. A panel with both kinds of tray takes a moment to offer the newer one: the call waits for that.
    XEmbedTray(std::shared_ptr<X11Connection> connection, MainQueue& queue, std::function<void()> appeared);
    XEmbedTray(const XEmbedTray&) = delete;
    XEmbedTray& operator=(const XEmbedTray&) = delete;
    ~XEmbedTray() = default;

private:
    void look();

    std::shared_ptr<X11Connection> m_connection;
    MainQueue& m_queue;
    std::function<void()> m_appeared;
    std::unique_ptr<ScheduledWork> m_wait;
    // Expires with this object; only asked for on the main thread.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    Registration m_rootEvents;
    // Last, so that no event finds a half-destroyed object.
    Registration m_messages;
};

} // namespace vantrel
