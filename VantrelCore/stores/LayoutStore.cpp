#include "VantrelCore/stores/LayoutStore.h"

#include "VantrelCore/model/DeskRenaming.h"
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

// "Default 2" if "Default" is taken on that desk.
std::string freeName(const StoreFile& file, const std::string& configID, const std::string& layoutName) {
    std::string name = layoutName;
    for (int number = 2; std::ranges::any_of(file.layouts, isLayout(configID, name)); ++number) {
        name = layoutName + " " + std::to_string(number);
    }
    return name;
}

void moveActiveName(StoreFile& file, const std::string& from, const std::string& to) {
    const std::string name = activeName(file, from);
    setActiveName(file, to, name);
    file.activeLayouts->erase(from);
}

void moveRules(StoreFile& file, const std::map<std::string, std::string>& displays) {
    if (!file.rules) {
        return;
    }
    for (AppRule& rule : *file.rules) {
        auto* const forced = std::get_if<AppRule::ForceDisplay>(&rule.action);
        if (forced == nullptr) {
            continue;
        }
        const auto present = displays.find(forced->uuid);
        if (present != displays.end()) {
            forced->uuid = present->second;
        }
    }
}

void noteSameDesk(StoreFile& file, const std::string& from, const std::string& to) {
    auto& sameDesks = file.sameDesks ? *file.sameDesks : file.sameDesks.emplace();
    for (auto& [former, present] : sameDesks) {
        if (present == from) {
            present = to;
        }
    }
    sameDesks.insert_or_assign(from, to);
    sameDesks.erase(to);
}

void forget(StoreFile& file, const std::string& configID) {
    std::erase_if(file.layouts, [&](const Layout& layout) { return layout.configID == configID; });
    if (file.activeLayouts) {
        file.activeLayouts->erase(configID);
    }
    if (file.sameDesks) {
        std::erase_if(*file.sameDesks, [&](const auto& known) { return known.second == configID; });
    }
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

bool LayoutStore::moveDesk(const std::string& from, const std::string& to,
                           const std::vector<DisplayInfo>& displays, const Saving& saving) {
    StoreFile file = m_file.load();
    std::vector<Layout> moved;
    std::map<std::string, std::string> counterparts;
    for (const Layout& layout : file.layouts) {
        if (layout.configID == from) {
            counterparts = DeskRenaming::counterparts(layout.displays, displays);
            moved.push_back(DeskRenaming::renamed(layout, to, displays));
        }
    }
    if (moved.empty() || from == to) {
        return false;
    }
    std::erase_if(file.layouts, [&](const Layout& layout) { return layout.configID == from; });
    for (const Layout& layout : moved) {
        const auto taken = std::ranges::find_if(file.layouts, isLayout(to, layout.layoutName));
        if (taken != file.layouts.end() && taken->hasSamePlaces(layout)) {
            file.layouts.erase(taken);
        } else if (taken != file.layouts.end()) {
            taken->layoutName = freeName(file, to, layout.layoutName);
        }
        file.layouts.push_back(layout);
    }
    moveActiveName(file, from, to);
    moveRules(file, counterparts);
    noteSameDesk(file, from, to);
    return m_file.write(std::move(file), saving);
}

LayoutStore::DeskRecords LayoutStore::deskRecords(const std::string& configID) {
    const StoreFile& file = m_file.load();
    DeskRecords records;
    std::ranges::copy_if(file.layouts, std::back_inserter(records.layouts),
                         [&](const Layout& layout) { return layout.configID == configID; });
    if (file.activeLayouts && file.activeLayouts->contains(configID)) {
        records.activeLayout = file.activeLayouts->at(configID);
    }
    for (const auto& [former, present] : file.sameDesks.value_or(std::map<std::string, std::string>())) {
        if (present == configID) {
            records.formerIDs.push_back(former);
        }
    }
    return records;
}

bool LayoutStore::forgetDesk(const std::string& configID) {
    return m_file.update([&](StoreFile& file) { forget(file, configID); });
}

bool LayoutStore::putBackDesk(const std::string& configID, const DeskRecords& records) {
    return m_file.update([&](StoreFile& file) {
        forget(file, configID);
        std::ranges::copy(records.layouts, std::back_inserter(file.layouts));
        if (records.activeLayout) {
            setActiveName(file, configID, *records.activeLayout);
        }
        for (const std::string& former : records.formerIDs) {
            if (!file.sameDesks) {
                file.sameDesks.emplace();
            }
            file.sameDesks->try_emplace(former, configID);
        }
    });
}

std::optional<std::string> LayoutStore::presentDesk(const std::string& configID) {
    const auto& sameDesks = m_file.load().sameDesks;
    if (!sameDesks || !sameDesks->contains(configID)) {
        return std::nullopt;
    }
    return sameDesks->at(configID);
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
    JsonCoding::put(json, "sameDesks", file.sameDesks);
}

void from_json(const nlohmann::json& json, LayoutStore::StoreFile& file) {
    file = {.version = JsonCoding::required<std::int64_t>(json, "version"),
            .layouts = JsonCoding::required<std::vector<Layout>>(json, "layouts"),
            .activeLayouts = JsonCoding::optional<std::map<std::string, std::string>>(json, "activeLayouts"),
            .rules = JsonCoding::optional<std::vector<AppRule>>(json, "rules"),
            .sameDesks = JsonCoding::optional<std::map<std::string, std::string>>(json, "sameDesks")};
}

} // namespace vantrel
