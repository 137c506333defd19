// Determines which application a window belongs to from its properties and the installed desktop files.
#pragma once

#include <compare>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// What a window's properties say about its application. Empty means unset.
struct ApplicationEvidence {
    std::string gtkApplicationId = {};
    // A desktop-file id, file name or path.
    std::string kdeDesktopFile = {};
    std::string wmInstance = {};
    std::string wmClass = {};

    auto operator<=>(const ApplicationEvidence&) const = default;
};

struct ApplicationIdentity {
    // The desktop-file id without ".desktop", or the lower-cased class if there is none.
    std::string bundleID;
    // The name to show to the user.
    std::string name;

    bool operator==(const ApplicationIdentity&) const = default;
};

struct DesktopEntry {
    // Without ".desktop".
    std::string id = {};
    std::string name = {};
    std::string startupWMClass = {};
    // Not shown in menus (NoDisplay). Visible entries are preferred.
    bool isHidden = false;
};

// The installed desktop files, indexed for looking up windows.
class DesktopEntryTable {
public:
    DesktopEntryTable() = default;
    explicit DesktopEntryTable(std::vector<DesktopEntry> entries);

    // Look-ups ignore case unless two entries differ only in case.
    [[nodiscard]] const DesktopEntry* withId(const std::string& id) const;
    [[nodiscard]] const DesktopEntry* withStartupClass(const std::string& wmClass) const;
    // Finds "org.example.Editor" for "editor". Null if several entries match.
    [[nodiscard]] const DesktopEntry* withLastComponent(const std::string& component) const;

private:
    using Index = std::map<std::string, std::vector<std::size_t>>;

    [[nodiscard]] const DesktopEntry* best(const Index& index, const std::string& key,
                                           std::string DesktopEntry::* field) const;

    std::vector<DesktopEntry> m_entries;
    Index m_byId;
    Index m_byStartupClass;
    Index m_byLastComponent;
};

namespace ApplicationIdentities {

// Prefers GTK's application id, then KDE's desktop file, then the desktop file whose StartupWMClass or name
// matches the window's class or instance, then the lower-cased class. Returns none if the window sets none of
// these.
[[nodiscard]] std::optional<ApplicationIdentity> identify(const ApplicationEvidence& evidence,
                                                          const DesktopEntryTable& entries);

} // namespace ApplicationIdentities

} // namespace vantrel
