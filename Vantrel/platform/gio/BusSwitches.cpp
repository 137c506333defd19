#include "Vantrel/platform/gio/FocusSwitch.h"

#include <optional>
#include <string_view>
#include <utility>

namespace vantrel {

namespace {

// In milliseconds.
constexpr int replyTimeout = 2000;

struct BusObject {
    const char* service;
    const char* path;
    const char* interface;
};

// The boolean in a variant, which may be wrapped in further variants.
std::optional<bool> boolean(GVariant* variant) {
    if (g_variant_is_of_type(variant, G_VARIANT_TYPE_VARIANT) != FALSE) {
        const GLibHandle<GVariant> inner(g_variant_get_variant(variant));
        return boolean(inner.get());
    }
    if (g_variant_is_of_type(variant, G_VARIANT_TYPE_BOOLEAN) != FALSE) {
        return g_variant_get_boolean(variant) != FALSE;
    }
    return std::nullopt;
}

// A switch identified by two strings, read with a method call and watched with signals.
class BusSwitch : public FocusSwitch {
public:
    BusSwitch(GDBusConnection* bus, const BusObject& object, OnSwitched onSwitched)
        : m_bus(static_cast<GDBusConnection*>(g_object_ref(bus))), m_object(object),
          m_onSwitched(std::move(onSwitched)) {}

    ~BusSwitch() override {
        for (const guint subscription : m_subscriptions) {
            g_dbus_connection_signal_unsubscribe(m_bus.get(), subscription);
        }
    }

protected:
    void subscribe(const char* interface, const char* signal, const char* firstArgument,
                   GDBusSignalCallback callback) {
        m_subscriptions.push_back(g_dbus_connection_signal_subscribe(
            m_bus.get(), m_object.service, interface, signal, m_object.path, firstArgument,
            G_DBUS_SIGNAL_FLAGS_NONE, callback, this, nullptr));
    }

    // Does not start the service: if it is not running, the desktop does not use it.
    bool query(const char* interface, const char* method, const char* first, const char* second) {
        const GLibHandle<GVariant> reply(
            g_dbus_connection_call_sync(m_bus.get(), m_object.service, m_object.path, interface, method,
                                        g_variant_new("(ss)", first, second), G_VARIANT_TYPE("(v)"),
                                        G_DBUS_CALL_FLAGS_NO_AUTO_START, replyTimeout, nullptr, nullptr));
        if (!reply) {
            return false;
        }
        const GLibHandle<GVariant> value(g_variant_get_child_value(reply.get(), 0));
        return boolean(value.get()).value_or(false);
    }

    void report(bool isOn) const { m_onSwitched(isOn); }

private:
    // Our own reference, so that the bus outlives the subscriptions.
    GObjectHandle<GDBusConnection> m_bus;
    BusObject m_object;
    OnSwitched m_onSwitched;
    std::vector<guint> m_subscriptions;
};

constexpr const char* channel = "xfce4-notifyd";
constexpr const char* property = "/do-not-disturb";
constexpr BusObject xfconf{"org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf"};

class XfconfSwitch final : public BusSwitch {
public:
    XfconfSwitch(GDBusConnection* bus, OnSwitched onSwitched)
        : BusSwitch(bus, xfconf, std::move(onSwitched)) {
        subscribe(xfconf.interface, "PropertyChanged", channel, changed);
        subscribe(xfconf.interface, "PropertyRemoved", channel, changed);
    }

    bool isOn() override { return query(xfconf.interface, "GetProperty", channel, property); }

private:
    static void changed(GDBusConnection* /*bus*/, const char* /*sender*/, const char* /*path*/,
                        const char* /*interface*/, const char* /*signal*/, GVariant* arguments,
                        gpointer self) {
        if (g_variant_n_children(arguments) < 2) {
            return;
        }
        const GLibHandle<GVariant> name(g_variant_get_child_value(arguments, 1));
        if (g_variant_is_of_type(name.get(), G_VARIANT_TYPE_STRING) == FALSE ||
            std::string_view(g_variant_get_string(name.get(), nullptr)) != property) {
            return;
        }
        std::optional<bool> isOn;
        if (g_variant_n_children(arguments) > 2) {
            const GLibHandle<GVariant> value(g_variant_get_child_value(arguments, 2));
            isOn = boolean(value.get());
        }
        static_cast<XfconfSwitch*>(self)->report(isOn.value_or(false));
    }
};

constexpr BusObject notifications{"org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                                  "org.freedesktop.Notifications"};
constexpr const char* properties = "org.freedesktop.DBus.Properties";

class InhibitionSwitch final : public BusSwitch {
public:
    InhibitionSwitch(GDBusConnection* bus, OnSwitched onSwitched)
        : BusSwitch(bus, notifications, std::move(onSwitched)) {
        subscribe(properties, "PropertiesChanged", notifications.interface, changed);
    }

    bool isOn() override { return query(properties, "Get", notifications.interface, "Inhibited"); }

private:
    static void changed(GDBusConnection* /*bus*/, const char* /*sender*/, const char* /*path*/,
                        const char* /*interface*/, const char* /*signal*/, GVariant* arguments,
                        gpointer self) {
        if (g_variant_is_of_type(arguments, G_VARIANT_TYPE("(sa{sv}as)")) == FALSE) {
            return;
        }
        const GLibHandle<GVariant> values(g_variant_get_child_value(arguments, 1));
        const GLibHandle<GVariant> value(
            g_variant_lookup_value(values.get(), "Inhibited", G_VARIANT_TYPE_BOOLEAN));
        if (value) {
            static_cast<InhibitionSwitch*>(self)->report(g_variant_get_boolean(value.get()) != FALSE);
        }
    }
};

} // namespace

std::unique_ptr<FocusSwitch> makeXfconfSwitch(GDBusConnection* bus, FocusSwitch::OnSwitched onSwitched) {
    return std::make_unique<XfconfSwitch>(bus, std::move(onSwitched));
}

std::unique_ptr<FocusSwitch> makeInhibitionSwitch(GDBusConnection* bus, FocusSwitch::OnSwitched onSwitched) {
    return std::make_unique<InhibitionSwitch>(bus, std::move(onSwitched));
}

} // namespace vantrel
