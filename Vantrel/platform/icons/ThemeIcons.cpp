#include "Vantrel/platform/icons/ThemeIcons.h"

#include "Vantrel/platform/gio/GioHandle.h"

#include <gio/gdesktopappinfo.h>

#include <algorithm>

namespace vantrel {

namespace {

QIcon iconOf(GIcon* icon) {
    if (icon == nullptr) {
        return {};
    }
    if (G_IS_FILE_ICON(icon)) {
        const std::unique_ptr<char, decltype(&g_free)> path(
            g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))), g_free);
        return path ? QIcon(QString::fromUtf8(path.get())) : QIcon();
    }
    if (G_IS_THEMED_ICON(icon)) {
        for (const char* const* name = g_themed_icon_get_names(G_THEMED_ICON(icon)); *name != nullptr;
             ++name) {
            if (const QIcon found = QIcon::fromTheme(QString::fromUtf8(*name)); !found.isNull()) {
                return found;
            }
        }
    }
    return {};
}

QIcon iconOfEntry(const std::string& identifier) {
    const GObjectHandle<GDesktopAppInfo> entry(g_desktop_app_info_new((identifier + ".desktop").c_str()));
    return entry ? iconOf(g_app_info_get_icon(G_APP_INFO(entry.get()))) : QIcon();
}

std::string lowered(std::string text) {
    std::ranges::transform(text, text.begin(), g_ascii_tolower);
    return text;
}

std::map<std::string, std::string> identifiers() {
    std::map<std::string, std::string> found;
    GList* const entries = g_app_info_get_all();
    for (const GList* entry = entries; entry != nullptr; entry = entry->next) {
        const char* const file = g_app_info_get_id(G_APP_INFO(entry->data));
        const std::string name = file != nullptr ? file : "";
        constexpr std::string_view extension = ".desktop";
        if (name.ends_with(extension)) {
            const std::string identifier = name.substr(0, name.size() - extension.size());
            found.emplace(lowered(identifier), identifier);
        }
    }
    g_list_free_full(entries, g_object_unref);
    return found;
}

} // namespace

QIcon ThemeIcons::icon(const std::string& bundleID) {
    if (const QIcon found = iconOfEntry(bundleID); !found.isNull()) {
        return found;
    }
    if (m_identifiers.empty()) {
        m_identifiers = identifiers();
    }
    if (const auto known = m_identifiers.find(lowered(bundleID)); known != m_identifiers.end()) {
        if (const QIcon found = iconOfEntry(known->second); !found.isNull()) {
            return found;
        }
    }
    return QIcon::fromTheme(QString::fromStdString(bundleID));
}

} // namespace vantrel
