#include "Vantrel/platform/x11/ApplicationIdentity.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace vantrel {

namespace {

// Desktop-file ids and window classes are ASCII by convention; leaves other characters alone.
std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

std::string desktopFileId(std::string_view fileNameOrPath) {
    constexpr std::string_view suffix = ".desktop";
    fileNameOrPath.remove_prefix(std::min(fileNameOrPath.size(), fileNameOrPath.rfind('/') + 1));
    if (fileNameOrPath.ends_with(suffix)) {
        fileNameOrPath.remove_suffix(suffix.size());
    }
    return std::string(fileNameOrPath);
}

const DesktopEntry* entryOfClass(const ApplicationEvidence& evidence, const DesktopEntryTable& entries) {
    using Lookup = const DesktopEntry* (DesktopEntryTable::*)(const std::string&) const;
    for (const Lookup lookup : {&DesktopEntryTable::withStartupClass, &DesktopEntryTable::withId,
                                &DesktopEntryTable::withLastComponent}) {
        for (const auto* name : {&evidence.wmClass, &evidence.wmInstance}) {
            if (const auto* entry = name->empty() ? nullptr : (entries.*lookup)(*name)) {
                return entry;
            }
        }
    }
    return nullptr;
}

} // namespace

DesktopEntryTable::DesktopEntryTable(std::vector<DesktopEntry> entries) : m_entries(std::move(entries)) {
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const auto& entry = m_entries[i];
        m_byId[lowerCase(entry.id)].push_back(i);
        if (!entry.startupWMClass.empty()) {
            m_byStartupClass[lowerCase(entry.startupWMClass)].push_back(i);
        }
        if (const auto dot = entry.id.rfind('.'); dot != std::string::npos) {
            m_byLastComponent[lowerCase(entry.id.substr(dot + 1))].push_back(i);
        }
    }
}

const DesktopEntry* DesktopEntryTable::best(const Index& index, const std::string& key,
                                            std::string DesktopEntry::* field) const {
    const auto found = index.find(lowerCase(key));
    if (found == index.end()) {
        return nullptr;
    }
    // Exact case first, then visible before hidden, then by id. The result does not depend on the folder
    // order.
    const auto rank = [&](std::size_t i) {
        const auto& entry = m_entries[i];
        return std::tuple(entry.*field != key, entry.isHidden, std::string_view(entry.id));
    };
    return &m_entries[*std::ranges::min_element(found->second, {}, rank)];
}

const DesktopEntry* DesktopEntryTable::withId(const std::string& id) const {
    return best(m_byId, id, &DesktopEntry::id);
}

const DesktopEntry* DesktopEntryTable::withStartupClass(const std::string& wmClass) const {
    return best(m_byStartupClass, wmClass, &DesktopEntry::startupWMClass);
}

const DesktopEntry* DesktopEntryTable::withLastComponent(const std::string& component) const {
    const auto found = m_byLastComponent.find(lowerCase(component));
    return found != m_byLastComponent.end() && found->second.size() == 1 ? &m_entries[found->second.front()]
                                                                         : nullptr;
}

std::optional<ApplicationIdentity> ApplicationIdentities::identify(const ApplicationEvidence& evidence,
                                                                   const DesktopEntryTable& entries) {
    const std::string& className = evidence.wmClass.empty() ? evidence.wmInstance : evidence.wmClass;
    std::string stated = evidence.gtkApplicationId;
    if (stated.empty()) {
        stated = desktopFileId(evidence.kdeDesktopFile);
    }
    const DesktopEntry* entry = stated.empty() ? entryOfClass(evidence, entries) : entries.withId(stated);
    if (stated.empty() && entry == nullptr && className.empty()) {
        return std::nullopt;
    }
    ApplicationIdentity identity;
    if (!stated.empty()) {
        identity.bundleID = stated;
    } else {
        identity.bundleID = entry != nullptr ? entry->id : lowerCase(className);
    }
    identity.name = entry != nullptr ? entry->name : className;
    if (identity.name.empty()) {
        identity.name = identity.bundleID;
    }
    return identity;
}

} // namespace vantrel
