// What the tab Scenes shows, as a value: the rail with the scenes of this and other desks, and everything
// about the chosen scene.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "Vantrel/interface/desk/DeskPicture.h"
#include "Vantrel/interface/lists/ListRow.h"
#include "Vantrel/interface/wallpaper/WallpaperContent.h"
#include "VantrelCore/model/RestoreLog.h"
#include "VantrelCore/model/TimeZone.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

struct ScenesContent {
    // What is not published.
    struct Context {
        Date now;
        TimeZone zone = TimeZone::utc();
        RestoreLog history{};
        // Only scenes whose name or applications contain this; empty for all.
        std::string search{};
        // The scene to show; if there is no such scene, the first of the rail.
        std::string chosen{};
    };

    // Something that can be done with the scene, and why not.
    struct Deed {
        bool isPossible = true;
        std::string reason{};

        bool operator==(const Deed&) const = default;
    };

    struct App {
        std::string bundleID;
        std::string name;

        bool operator==(const App&) const = default;
    };

    struct Trigger {
        std::string id;
        // "Every day at 9:00 AM".
        std::string text;
        bool isEnabled = true;
        // "Next: Tomorrow 9:00 AM"; empty when it is not known.
        std::string next{};

        bool operator==(const Trigger&) const = default;
    };

    struct Detail {
        std::string id;
        std::string name;
        std::string symbol;
        // The desk, and when the scene was saved.
        std::string subtitle;
        DeskPicture drawing;
        std::string windows;
        // Each once, in the order of the windows.
        std::vector<App> apps;
        // How the desk differs from the scene now.
        std::string now;
        bool hasMoved = false;
        // Empty while it was never applied, as far as is remembered.
        std::string lastApplied;
        // Empty without one.
        std::string shortcut;
        // The system has refused the shortcut.
        bool isShortcutRefused = false;
        std::vector<Trigger> triggers;
        std::vector<WallpaperContent::Fact> wallpapers;
        bool isPinned = false;
        bool opensMissingApps = false;
        // Says why it cannot be changed; empty if it can.
        std::string missingAppsReason;
        Deed apply;
        Deed update;
        Deed remove;

        bool operator==(const Detail&) const = default;
    };

    std::vector<ListRow> rail;
    // None when there are no scenes, or the search finds none.
    std::optional<Detail> detail;
    // There are no scenes at all.
    bool isEmpty = false;
    bool canSave = true;
    // "9 of 12"; empty while there is plenty of room.
    std::string room;

    bool operator==(const ScenesContent&) const = default;

    [[nodiscard]] static ScenesContent of(const PublishedState& state, const Context& context);
};

} // namespace vantrel
