// The Focus of a Linux desktop, which is its "do not disturb" wherever the desktop keeps that.
#pragma once

#include "Vantrel/platform/gio/GioHandle.h"
#include "VantrelCore/ports/FocusReader.h"
#include "VantrelCore/ports/MainQueue.h"

#include <memory>
#include <thread>

namespace vantrel {

// Listens on a thread of its own, which sleeps while nothing is switched.
class DesktopFocusReader final : public FocusReader {
public:
    explicit DesktopFocusReader(MainQueue& queue);
    ~DesktopFocusReader() override;

    void setHandler(std::function<void(const std::string& name)> handler) override;

private:
    void listen();
    void tellTurnedOn();

    MainQueue& m_queue;
    // Only touched on the main thread; what was posted finds nobody after the end.
    std::shared_ptr<std::function<void(const std::string&)>> m_handler;
    GLibHandle<GMainContext> m_context;
    GLibHandle<GMainLoop> m_loop;
    std::thread m_thread;
};

} // namespace vantrel
