// Reads the Focus of a Linux desktop, that is, its "do not disturb" switch.
#pragma once

#include "Vantrel/platform/gio/GioHandle.h"
#include "VantrelCore/ports/FocusReader.h"
#include "VantrelCore/ports/MainQueue.h"

#include <memory>
#include <thread>

namespace vantrel {

// Listens on its own thread, which sleeps until a switch changes.
class DesktopFocusReader final : public FocusReader {
public:
    explicit DesktopFocusReader(MainQueue& queue);
    ~DesktopFocusReader() override;

    void setHandler(std::function<void(const std::string& name)> handler) override;

private:
    void listen();
    void reportTurnedOn();

    MainQueue& m_queue;
    // Used only on the main thread. Work posted before destruction does nothing after it.
    std::shared_ptr<std::function<void(const std::string&)>> m_handler;
    GLibHandle<GMainContext> m_context;
    GLibHandle<GMainLoop> m_loop;
    std::thread m_thread;
};

} // namespace vantrel
