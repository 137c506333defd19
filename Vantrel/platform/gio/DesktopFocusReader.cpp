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

// A set of switches. Focus is on if any of them is on.
class Switches {
public:
    explicit Switches(std::function<void()> onTurnedOn) : m_onTurnedOn(std::move(onTurnedOn)) {}

    template <typename Make>
    void add(Make make) {
        const auto index = m_switches.size();
        m_switches.emplace_back();
        m_isOn.push_back(false);
        m_switches[index] = make([this, index](bool isOn) { switched(index, isOn); });
        if (m_switches[index]) {
            // A switch that is already on does not count as turned on.
            m_isOn[index] = m_switches[index]->isOn();
        }
    }

    [[nodiscard]] std::size_t count() const { return m_switches.size(); }

    // Keeps only the first `count` switches.
    void shrink(std::size_t count) {
        m_switches.resize(count);
        m_isOn.resize(count);
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
    // Null if this machine has no such switch.
    std::vector<std::unique_ptr<FocusSwitch>> m_switches;
};

// Returns a private connection to the session bus. A shared one might already be closed. Returns null if
// there is no bus.
GObjectHandle<GDBusConnection> connectToBus() {
    const std::unique_ptr<gchar, decltype(&g_free)> address(
        g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr), &g_free);
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): a set of flags
    constexpr auto asClient = static_cast<GDBusConnectionFlags>(
        G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    return GObjectHandle<GDBusConnection>(
        address ? g_dbus_connection_new_for_address_sync(address.get(), asClient, nullptr, nullptr, nullptr)
                : nullptr);
}

// The switches on the session bus, recreated on each reconnect. Use only on the thread that runs `context`.
class BusSwitches {
public:
    BusSwitches(Switches& switches, GMainContext* context)
        : m_switches(switches), m_context(context), m_others(switches.count()) {
        join();
    }

    ~BusSwitches() {
        leave();
        if (m_nextAttempt) {
            g_source_destroy(m_nextAttempt.get());
        }
    }

    BusSwitches(const BusSwitches&) = delete;
    BusSwitches& operator=(const BusSwitches&) = delete;

private:
    static constexpr guint pauseSeconds = 5;

    void join() {
        m_bus = connectToBus();
        if (!m_bus) {
            tryLater();
            return;
        }
        m_closed =
            g_signal_connect(m_bus.get(), "closed",
                             G_CALLBACK(+[](GDBusConnection* /*bus*/, gboolean /*byPeer*/, GError* /*error*/,
                                            gpointer self) { static_cast<BusSwitches*>(self)->tryLater(); }),
                             this);
        for (auto* const make : {makeXfconfSwitch, makeInhibitionSwitch}) {
            m_switches.add(
                [&](FocusSwitch::OnSwitched onSwitched) { return make(m_bus.get(), std::move(onSwitched)); });
        }
    }

    void leave() {
        m_switches.shrink(m_others);
        if (m_bus) {
            g_signal_handler_disconnect(m_bus.get(), m_closed);
            m_bus.reset();
        }
    }

    void tryLater() {
        m_nextAttempt.reset(g_timeout_source_new_seconds(pauseSeconds));
        g_source_set_callback(
            m_nextAttempt.get(),
            [](gpointer self) -> gboolean {
                auto* const own = static_cast<BusSwitches*>(self);
                own->leave();
                own->join();
                return G_SOURCE_REMOVE;
            },
            this, nullptr);
        g_source_attach(m_nextAttempt.get(), m_context);
    }

    Switches& m_switches;
    GMainContext* m_context;
    // The number of switches that others added before us.
    std::size_t m_others;
    GObjectHandle<GDBusConnection> m_bus;
    gulong m_closed = 0;
    GLibHandle<GSource> m_nextAttempt;
};

} // namespace

DesktopFocusReader::DesktopFocusReader(MainQueue& queue)
    : m_queue(queue), m_handler(std::make_shared<std::function<void(const std::string&)>>()),
      m_context(g_main_context_new()), m_loop(g_main_loop_new(m_context.get(), FALSE)),
      m_thread([this] { listen(); }) {}

DesktopFocusReader::~DesktopFocusReader() {
    // Quit from within the loop, so that this works even if the loop has not started yet.
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

void DesktopFocusReader::reportTurnedOn() {
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
        Switches switches([this] { reportTurnedOn(); });
        for (const FocusSetting& setting : settings) {
            switches.add([&](FocusSwitch::OnSwitched onSwitched) {
                return makeSettingSwitch(setting, std::move(onSwitched));
            });
        }
        const BusSwitches busSwitches(switches, m_context.get());
        g_main_loop_run(m_loop.get());
    }
    g_main_context_pop_thread_default(m_context.get());
}

} // namespace vantrel
