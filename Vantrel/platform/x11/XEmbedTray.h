// Reports when the desktop can show XEmbed icons, that is, when a program owns the system tray selection.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/MainQueue.h"

#include <functional>
#include <memory>

namespace vantrel {

// Lives on the main thread; the queue outlives it.
class XEmbedTray {
public:
    // Calls `appeared` on the main thread, never from the constructor, for the current tray and for each new
    // one. The call is delayed by a second, because a panel with both kinds of tray takes a moment to offer
    // the newer one.
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
    // Expires with this object. Checked only on the main thread.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    Registration m_rootEvents;
    // Last, so that no event finds a half-destroyed object.
    Registration m_messages;
};

} // namespace vantrel
