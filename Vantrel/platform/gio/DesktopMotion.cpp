#include "Vantrel/platform/gio/DesktopMotion.h"

#include "Vantrel/platform/gio/GioHandle.h"

#include <gio/gio.h>

namespace vantrel::DesktopMotion {

// GNOME's setting, which Xfce's and MATE's programs follow too.
bool isWanted() {
    constexpr const char* schemaName = "org.gnome.desktop.interface";
    constexpr const char* key = "enable-animations";
    GSettingsSchemaSource* const source = g_settings_schema_source_get_default();
    if (source == nullptr) {
        return true;
    }
    const GLibHandle<GSettingsSchema> schema(g_settings_schema_source_lookup(source, schemaName, TRUE));
    if (!schema || g_settings_schema_has_key(schema.get(), key) == FALSE) {
        return true;
    }
    const GObjectHandle<GSettings> settings(g_settings_new(schemaName));
    return g_settings_get_boolean(settings.get(), key) != FALSE;
}

} // namespace vantrel::DesktopMotion
