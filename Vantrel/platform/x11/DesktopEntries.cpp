#include "Vantrel/platform/x11/DesktopEntries.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel {

namespace {

// How long the files are assumed to be unchanged.
constexpr std::chrono::seconds validity(60);

// Bounds the cache in case a program uses a new class for every window.
constexpr std::size_t maxKnown = 4096;

std::string text(const char* value) {
    return value == nullptr ? std::string() : std::string(value);
}

DesktopEntryTable readAll() {
    constexpr std::string_view suffix = ".desktop";
    std::vector<DesktopEntry> entries;
    GList* const infos = g_app_info_get_all();
    for (const GList* item = infos; item != nullptr; item = item->next) {
        GDesktopAppInfo* const info = G_DESKTOP_APP_INFO(item->data);
        GAppInfo* const app = G_APP_INFO(info);
        DesktopEntry entry{.id = text(g_app_info_get_id(app)),
                           .name = text(g_app_info_get_name(app)),
                           .startupWMClass = text(g_desktop_app_info_get_startup_wm_class(info)),
                           .isHidden = g_desktop_app_info_get_nodisplay(info) != 0};
        if (entry.id.ends_with(suffix)) {
            entry.id.resize(entry.id.size() - suffix.size());
        }
        if (!entry.id.empty()) {
            entries.push_back(std::move(entry));
        }
    }
    g_list_free_full(infos, g_object_unref);
    return DesktopEntryTable(std::move(entries));
}

} // namespace

std::optional<ApplicationIdentity> DesktopEntries::identify(const ApplicationEvidence& evidence) {
    const std::lock_guard lock(m_mutex);
    if (const auto known = m_known.find(evidence); known != m_known.end()) {
        return known->second;
    }
    readWhenOld();
    return m_known.emplace(evidence, ApplicationIdentities::identify(evidence, m_table)).first->second;
}

std::optional<DesktopEntry> DesktopEntries::entry(const std::string& id) {
    const std::lock_guard lock(m_mutex);
    const DesktopEntry* found = m_table.withId(id);
    if (found == nullptr) {
        readWhenOld();
        found = m_table.withId(id);
    }
    return found != nullptr ? std::optional(*found) : std::nullopt;
}

void DesktopEntries::readWhenOld() {
    const auto now = std::chrono::steady_clock::now();
    if (!m_readAt || now - *m_readAt > validity || m_known.size() >= maxKnown) {
        m_table = readAll();
        m_readAt = now;
        m_known.clear();
    }
}

} // namespace vantrel
