// What the tab Desks shows, as a value: a card for every remembered desk, and the chosen one with its
// layouts, its stashes and what restoring it now would do.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "Vantrel/interface/desk/DeskPicture.h"
#include "Vantrel/interface/lists/ListRow.h"
#include "Vantrel/interface/workbench/desks/DeskLibrary.h"
#include "VantrelCore/model/TimeZone.h"
#include "VantrelCore/windows/RestorePreview.h"

#include <expected>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct DesksContent {
    // The preview, or why there is none; none while it is being made.
    using Preview = std::optional<std::expected<RestorePreview, std::string>>;

    // What is not published.
    struct Context {
        Date now;
        TimeZone zone = TimeZone::utc();
        const DeskLibrary& library;
        // Empty for all desks.
        std::string search{};
        // The configID of the desk to show; if there is no such desk, the first.
        std::string chosen{};
        // Of that desk; empty, or unknown, for the active one. The present desk shows its active one.
        std::string layout{};
        Preview preview{};
        bool showsInPlace = false;
    };

    struct StashRow {
        std::string id;
        // "Stash of 11 windows".
        std::string title;
        // "Yesterday 6:20 PM · Kept for 7 days".
        std::string detail;

        bool operator==(const StashRow&) const = default;
    };

    // Something that can be done, and why not.
    struct Deed {
        bool isPossible = true;
        std::string reason{};

        bool operator==(const Deed&) const = default;
    };

    struct Detail {
        std::string configID;
        std::string name;
        // "Here now · 9 windows · learned 40s ago".
        std::string subtitle;
        bool isPresent = false;
        // Nothing is remembered for it yet.
        bool isEmpty = false;
        DeskPicture drawing;
        std::vector<RememberedDesk::LayoutInfo> layouts;
        // The one that is shown; empty without any.
        std::string layout;
        bool isPinned = false;
        std::vector<StashRow> stashes;
        // "If it were restored now", "If it were applied here now".
        std::string previewTitle;
        // The outcome for every window, problems first; or a sentence that says why there is no preview.
        std::vector<ListRow> lines;
        std::string previewText;
        // Which window of the drawing a line is about, by the line's id.
        std::map<std::string, std::size_t> drawn;
        // "7 windows are in place"; they are left out of the lines unless asked for.
        std::string inPlace;
        // "Not remembered: Chat, Terminal"; empty when there are none.
        std::string unremembered;
        Deed restore;

        bool operator==(const Detail&) const = default;
    };

    // One per desk, the present one first.
    std::vector<ListRow> cards;
    // None when no desk is remembered, or the search finds none.
    std::optional<Detail> detail;
    bool isEmpty = false;

    bool operator==(const DesksContent&) const = default;

    [[nodiscard]] static DesksContent of(const PublishedState& state, const Context& context);
};

} // namespace vantrel
