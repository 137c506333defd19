// Which application a window belongs to, by what it says of itself and the installed desktop files.
#pragma once

#include <compare>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// What a window says of its application; empty where it says nothing.
struct ApplicationEvidence {
    std::string gtkApplicationId = {};
    // A desktop-file id, file name or path.
    std::string kdeDesktopFile = {};
    std::string wmInstance = {};
    std::string wmClass = {};

    auto operator<=>(const ApplicationEvidence&) const = default;
};

struct ApplicationIdentity {
    // The desktop-file id without ".desktop", or what stands in for it.
    std::string bundleID;
    // For people.
    std::string name;

    bool operator==(const ApplicationIdentity&) const = default;
};

struct DesktopEntry {
    // Without ".desktop".
    std::string id = {};
    std::string name = {};
    std::string startupWMClass = {};
    // Not shown in menus (NoDisplay): yields to one that is.
    bool isHidden = false;
};

// The installed desktop files, prepared for looking windows up in them.
class DesktopEntryTable {
public:
    DesktopEntryTable() = default;
    explicit DesktopEntryTable(std::vector<DesktopEntry> entries);

    // Upper and lower case count only where two entries differ in nothing else.
    [[nodiscard]] const DesktopEntry* withId(const std::string& id) const;
    [[nodiscard]] const DesktopEntry* withStartupClass(const std::string& wmClass) const;
    // "org.example.Editor" for "editor", when only one entry ends like this.
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

// GTK's application id, else KDE's desktop file, else the desktop file whose StartupWMClass or name is the
// window's class or instance, else the lower-cased class. None when the window says nothing at all.
[[nodiscard]] std::optional<ApplicationIdentity> identify(const ApplicationEvidence& evidence,
                                                          const DesktopEntryTable& entries);

} // namespace ApplicationIdentities

} // namespace vantrel
