#include "Vantrel/platform/gio/FocusSwitch.h"

#include <utility>

namespace vantrel {

namespace {

class SettingSwitch final : public FocusSwitch {
public:
    SettingSwitch(GSettingsSchema* schema, const FocusSetting& setting, OnSwitched onSwitched)
        : m_setting(setting), m_onSwitched(std::move(onSwitched)),
          m_settings(g_settings_new_full(schema, nullptr, nullptr)) {
        const std::string signal = std::string("changed::") + setting.key;
        m_handler = g_signal_connect(m_settings.get(), signal.c_str(), G_CALLBACK(changed), this);
    }

    ~SettingSwitch() override { g_signal_handler_disconnect(m_settings.get(), m_handler); }

    bool isOn() override {
        return (g_settings_get_boolean(m_settings.get(), m_setting.key) != FALSE) == m_setting.valueWhenOn;
    }

private:
    static void changed(GSettings* /*settings*/, const char* /*key*/, gpointer self) {
        auto* const own = static_cast<SettingSwitch*>(self);
        own->m_onSwitched(own->isOn());
    }

    FocusSetting m_setting;
    OnSwitched m_onSwitched;
    GObjectHandle<GSettings> m_settings;
    gulong m_handler = 0;
};

} // namespace

std::unique_ptr<FocusSwitch> makeSettingSwitch(const FocusSetting& setting,
                                               FocusSwitch::OnSwitched onSwitched) {
    auto* const source = g_settings_schema_source_get_default();
    const GLibHandle<GSettingsSchema> schema(
        source != nullptr ? g_settings_schema_source_lookup(source, setting.schema, TRUE) : nullptr);
    // GLib aborts the program if the key is missing.
    if (!schema || g_settings_schema_has_key(schema.get(), setting.key) == FALSE) {
        return nullptr;
    }
    return std::make_unique<SettingSwitch>(schema.get(), setting, std::move(onSwitched));
}

} // namespace vantrel
