#include "Vantrel/platform/icons/InstalledApplications.h"

#include <gio/gdesktopappinfo.h>

#include <string_view>

namespace vantrel {

std::vector<std::pair<std::string, std::string>> installedApplications() {
    constexpr std::string_view extension = ".desktop";
    std::vector<std::pair<std::string, std::string>> found;
    GList* const entries = g_app_info_get_all();
    for (const GList* entry = entries; entry != nullptr; entry = entry->next) {
        auto* const application = G_APP_INFO(entry->data);
        const char* const file = g_app_info_get_id(application);
        const char* const name = g_app_info_get_display_name(application);
        std::string id = file == nullptr ? "" : file;
        if (id.ends_with(extension) && name != nullptr && g_app_info_should_show(application)) {
            id.erase(id.size() - extension.size());
            found.emplace_back(std::move(id), name);
        }
    }
    g_list_free_full(entries, g_object_unref);
    return found;
}

} // namespace vantrel
