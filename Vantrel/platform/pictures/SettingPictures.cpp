#include "Vantrel/platform/pictures/SettingPictures.h"

#include "Vantrel/platform/gio/GioHandle.h"
#include "Vantrel/platform/pictures/PictureFile.h"

#include <array>
#include <gio/gio.h>
#include <utility>
#include <vector>

namespace vantrel {

namespace {

struct Desktop {
    // As it appears in XDG_CURRENT_DESKTOP.
    std::string_view name;
    const char* schema;
    // Reads the first key and writes all, skipping keys that the schema lacks.
    std::vector<const char*> keys;
    bool takesPath = false;
};

const std::array<Desktop, 3>& desktops() {
    static const std::array<Desktop, 3> table{
        {{"GNOME", "org.gnome.desktop.background", {"picture-uri", "picture-uri-dark"}},
         {"Cinnamon", "org.cinnamon.desktop.background", {"picture-uri"}},
         {"MATE", "org.mate.background", {"picture-filename"}, true}}};
    return table;
}

class SettingPictures final : public DesktopPictures {
public:
    SettingPictures(GSettings* settings, std::vector<const char*> keys, bool takesPath)
        : m_settings(settings), m_keys(std::move(keys)), m_takesPath(takesPath) {}

    [[nodiscard]] std::optional<std::string> picture(const DisplayInfo& /*all the same*/) override {
        char* const text = g_settings_get_string(m_settings.get(), m_keys.front());
        const std::string picture = text;
        g_free(text);
        return picture.empty() ? std::nullopt : std::optional(PictureFile::url(picture));
    }

    bool setPicture(const DisplayInfo& /*all the same*/, const std::string& picture) override {
        if (!PictureFile::isReadable(picture)) {
            return false;
        }
        const std::string text = m_takesPath ? PictureFile::path(picture) : PictureFile::url(picture);
        bool isSet = true;
        for (const char* key : m_keys) {
            isSet = g_settings_set_string(m_settings.get(), key, text.c_str()) != FALSE && isSet;
        }
        g_settings_sync();
        return isSet;
    }

private:
    GObjectHandle<GSettings> m_settings;
    std::vector<const char*> m_keys;
    bool m_takesPath;
};

} // namespace

std::unique_ptr<DesktopPictures> settingPictures(std::string_view currentDesktop) {
    auto* const source = g_settings_schema_source_get_default();
    for (const Desktop& desktop : desktops()) {
        if (source == nullptr || currentDesktop.find(desktop.name) == std::string_view::npos) {
            continue;
        }
        const GLibHandle<GSettingsSchema> schema(
            g_settings_schema_source_lookup(source, desktop.schema, TRUE));
        if (!schema) {
            return nullptr;
        }
        // GLib aborts the program if a key is missing from the schema.
        std::vector<const char*> keys = desktop.keys;
        std::erase_if(keys,
                      [&](const char* key) { return g_settings_schema_has_key(schema.get(), key) == FALSE; });
        return keys.empty() ? nullptr
                            : std::make_unique<SettingPictures>(g_settings_new(desktop.schema), keys,
                                                                desktop.takesPath);
    }
    return nullptr;
}

} // namespace vantrel
