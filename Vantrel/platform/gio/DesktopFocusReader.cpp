#include "Vantrel/platform/gio/DesktopFocusReader.h"

#include "Vantrel/platform/gio/FocusSwitch.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace vantrel {

namespace {

constexpr std::array<FocusSetting, 3> settings{{
    {"org.gnome.desktop.notifications", "show-banners", false},
    {"org.cinnamon.desktop.notifications", "display-notifications", false},
    {"org.mate.NotificationDaemon", "do-not-disturb", true},
}};

// Several switches, of which any keeps notifications away.
class Switches {
public:
    explicit Switches(std::function<void()> onTurnedOn) : m_onTurnedOn(std::move(onTurnedOn)) {}

    template <typename Make>
    void add(Make make) {
        const auto index = m_isOn.size();
        m_isOn.push_back(false);
        if (auto made = make([this, index](bool isOn) { switched(index, isOn); })) {
            // What is on already does not turn on.
            m_isOn[index] = made->isOn();
            m_switches.push_back(std::move(made));
        }
    }

private:
    void switched(std::size_t index, bool isOn) {
        const bool wasAnyOn = std::ranges::find(m_isOn, true) != m_isOn.end();
        m_isOn[index] = isOn;
        if (isOn && !wasAnyOn) {
            m_onTurnedOn();
        }
    }

    std::function<void()> m_onTurnedOn;
    std::vector<bool> m_isOn;
    std::vector<std::unique_ptr<FocusSwitch>> m_switches;
};

} // namespace

DesktopFocusReader::DesktopFocusReader(MainQueue& queue)
    : m_queue(queue), m_handler(std::make_shared<std::function<void(const std::string&)>>()),
      m_context(g_main_context_new()), m_loop(g_main_loop_new(m_context.get(), FALSE)),
      m_thread([this] { listen(); }) {}

DesktopFocusReader::~DesktopFocusReader() {
    // In the loop's own turn, so that it also ends when it has not begun yet.
    GSource* const end = g_idle_source_new();
    g_source_set_callback(
        end,
        [](gpointer loop) -> gboolean {
            g_main_loop_quit(static_cast<GMainLoop*>(loop));
            return G_SOURCE_REMOVE;
        },
        m_loop.get(), nullptr);
    g_source_attach(end, m_context.get());
    g_source_unref(end);
    m_thread.join();
}

void DesktopFocusReader::setHandler(std::function<void(const std::string& name)> handler) {
    *m_handler = std::move(handler);
}

void DesktopFocusReader::tellTurnedOn() {
    m_queue.post([handler = std::weak_ptr(m_handler)] {
        const auto alive = handler.lock();
        if (alive && *alive) {
            (*alive)(unnamed);
        }
    });
}

void DesktopFocusReader::listen() {
    g_main_context_push_thread_default(m_context.get());
    {
        Switches switches([this] { tellTurnedOn(); });
        for (const FocusSetting& setting : settings) {
            switches.add([&](FocusSwitch::OnSwitched onSwitched) {
                return makeSettingSwitch(setting, std::move(onSwitched));
            });
        }
        const GObjectHandle<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
        if (bus) {
            // By default GLib ends the program when the bus goes away.
            g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
            for (auto* const make : {makeXfconfSwitch, makeInhibitionSwitch}) {
                switches.add([&](FocusSwitch::OnSwitched onSwitched) {
                    return make(bus.get(), std::move(onSwitched));
                });
            }
        }
        g_main_loop_run(m_loop.get());
    }
    g_main_context_pop_thread_default(m_context.get());
}

} // namespace vantrel
