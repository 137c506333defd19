#include "VantrelCore/stores/LayoutStore.h"

#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/text/LocalizedComparison.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

using StoreFile = LayoutStore::StoreFile;

auto isLayout(const std::string& configID, const std::string& layoutName) {
    return
        [&](const Layout& layout) { return layout.configID == configID && layout.layoutName == layoutName; };
}

auto isRuleFor(const std::string& bundleID) {
    return [&](const AppRule& rule) { return rule.bundleID == bundleID; };
}

std::string activeName(const StoreFile& file, const std::string& configID) {
    if (file.activeLayouts) {
        if (const auto entry = file.activeLayouts->find(configID); entry != file.activeLayouts->end()) {
            return entry->second;
        }
    }
    return Layout::defaultName;
}

void setActiveName(StoreFile& file, const std::string& configID, const std::string& layoutName) {
    if (!file.activeLayouts) {
        file.activeLayouts.emplace();
    }
    file.activeLayouts->insert_or_assign(configID, layoutName);
}

void replaceLayout(StoreFile& file, const Layout& layout) {
    std::erase_if(file.layouts, isLayout(layout.configID, layout.layoutName));
    file.layouts.push_back(layout);
}

// Never empty: "Default" if nothing is left.
std::string firstRemainingName(const StoreFile& file, const std::string& configID) {
    std::optional<std::string> first;
    for (const auto& layout : file.layouts) {
        if (layout.configID != configID) {
            continue;
        }
        if (layout.layoutName == Layout::defaultName) {
            return Layout::defaultName;
        }
        if (!first || layout.layoutName < *first) {
            first = layout.layoutName;
        }
    }
    return first.value_or(Layout::defaultName);
}

} // namespace

LayoutStore::LayoutStore(JsonStore<StoreFile> file) : m_file(std::move(file)) {}

std::expected<LayoutStore, std::error_code> LayoutStore::open(const std::filesystem::path& directory,
                                                              const StoreFiles& files) {
    auto file = JsonStore<StoreFile>::open(directory, "layouts.json", files);
    if (!file) {
        return std::unexpected(file.error());
    }
    return LayoutStore(std::move(*file));
}

std::vector<Layout> LayoutStore::allLayouts() {
    return m_file.load().layouts;
}

std::vector<Layout> LayoutStore::layouts(const std::string& configID) {
    std::vector<Layout> found;
    std::ranges::copy_if(m_file.load().layouts, std::back_inserter(found),
                         [&](const Layout& layout) { return layout.configID == configID; });
    std::ranges::stable_sort(found, {}, [](const Layout& layout) {
        return std::pair(layout.layoutName != Layout::defaultName, std::string_view(layout.layoutName));
    });
    return found;
}

std::optional<Layout> LayoutStore::layout(const std::string& configID, const std::string& layoutName) {
    const auto& layouts = m_file.load().layouts;
    const auto found = std::ranges::find_if(layouts, isLayout(configID, layoutName));
    return found == layouts.end() ? std::nullopt : std::optional(*found);
}

bool LayoutStore::save(const Layout& layout, const Saving& saving) {
    return m_file.update([&](StoreFile& file) { replaceLayout(file, layout); }, saving);
}

bool LayoutStore::saveAsActive(const Layout& layout) {
    return m_file.update([&](StoreFile& file) {
        replaceLayout(file, layout);
        setActiveName(file, layout.configID, layout.layoutName);
    });
}

void LayoutStore::deleteLayout(const std::string& configID, const std::string& layoutName) {
    // After a failed write the layout is simply still there; there is nothing to report.
    std::ignore = m_file.update([&](StoreFile& file) {
        std::erase_if(file.layouts, isLayout(configID, layoutName));
        if (activeName(file, configID) == layoutName) {
            setActiveName(file, configID, firstRemainingName(file, configID));
        }
    });
}

void LayoutStore::rename(const std::string& configID, const std::string& /*layoutName*/,
                         const std::string& name) {
    StoreFile file = m_file.load();
    const auto found = std::ranges::find(file.layouts, configID, &Layout::configID);
    if (found == file.layouts.end()) {
        return;
    }
    found->name = name;
    std::ignore = m_file.write(std::move(file));
}

bool LayoutStore::renameDesk(const std::string& configID, const std::string& name) {
    StoreFile file = m_file.load();
    bool isAny = false;
    for (Layout& layout : file.layouts) {
        if (layout.configID == configID) {
            layout.name = name;
            isAny = true;
        }
    }
    return isAny && m_file.write(std::move(file));
}

bool LayoutStore::renameLayout(const std::string& configID, const std::string& layoutName,
                               const std::string& newName) {
    StoreFile file = m_file.load();
    const auto found = std::ranges::find_if(file.layouts, isLayout(configID, layoutName));
    if (found == file.layouts.end() || std::ranges::any_of(file.layouts, isLayout(configID, newName))) {
        return false;
    }
    found->layoutName = newName;
    if (activeName(file, configID) == layoutName) {
        setActiveName(file, configID, newName);
    }
    return m_file.write(std::move(file));
}

std::string LayoutStore::activeLayoutName(const std::string& configID) {
    return activeName(m_file.load(), configID);
}

bool LayoutStore::setActiveLayout(const std::string& layoutName, const std::string& configID,
                                  const Saving& saving) {
    return m_file.update([&](StoreFile& file) { setActiveName(file, configID, layoutName); }, saving);
}

bool LayoutStore::setPinned(bool pinned, const std::string& configID, const std::string& layoutName) {
    StoreFile file = m_file.load();
    const auto found = std::ranges::find_if(file.layouts, isLayout(configID, layoutName));
    if (found == file.layouts.end()) {
        return false;
    }
    found->pinned = pinned;
    return m_file.write(std::move(file));
}

std::vector<AppRule> LayoutStore::rules() {
    return m_file.load().rules.value_or(std::vector<AppRule>());
}

bool LayoutStore::setRule(const AppRule& rule) {
    return m_file.update([&](StoreFile& file) {
        auto& rules = file.rules ? *file.rules : file.rules.emplace();
        std::erase_if(rules, isRuleFor(rule.bundleID));
        rules.push_back(rule);
        std::ranges::stable_sort(rules, [](const AppRule& a, const AppRule& b) {
            return LocalizedComparison::caseInsensitive(a.appName, b.appName) < 0;
        });
    });
}

bool LayoutStore::removeRule(const std::string& bundleID) {
    return m_file.update([&](StoreFile& file) {
        if (file.rules) {
            std::erase_if(*file.rules, isRuleFor(bundleID));
        }
    });
}

void to_json(nlohmann::json& json, const LayoutStore::StoreFile& file) {
    json = {{"version", file.version}, {"layouts", file.layouts}};
    JsonCoding::put(json, "activeLayouts", file.activeLayouts);
    JsonCoding::put(json, "rules", file.rules);
}

void from_json(const nlohmann::json& json, LayoutStore::StoreFile& file) {
    file = {.version = JsonCoding::required<std::int64_t>(json, "version"),
            .layouts = JsonCoding::required<std::vector<Layout>>(json, "layouts"),
            .activeLayouts = JsonCoding::optional<std::map<std::string, std::string>>(json, "activeLayouts"),
            .rules = JsonCoding::optional<std::vector<AppRule>>(json, "rules")};
}

} // namespace vantrel
