// What the tab History shows, as a value: the restores of the last days or the applications in the list, the
// chosen one opened, and how much was put back day by day.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "Vantrel/interface/desk/DeskPicture.h"
#include "Vantrel/interface/lists/ListRow.h"
#include "VantrelCore/model/AppReliability.h"
#include "VantrelCore/model/RestoreLog.h"
#include "VantrelCore/model/TimeZone.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct HistoryContent {
    enum class List : std::uint8_t { restores, apps };

    // A desk that entries are about.
    struct Desk {
        std::string name;
        std::vector<DisplayInfo> displays;
    };

    // What is not published.
    struct Context {
        Date now;
        TimeZone zone = TimeZone::utc();
        RestoreLog log{};
        // Worst first.
        std::vector<AppReliability> apps{};
        // By configID.
        std::map<std::string, Desk> desks{};
        List list = List::restores;
        // Only what is about such an application or desk; empty for all.
        std::string search{};
        bool hasProblemsOnly = false;
        // The row to open; if there is no such row, the first.
        std::string chosen{};
        bool showsInPlace = false;
    };

    // A restore or an application, opened.
    struct Detail {
        std::string id;
        std::string title;
        std::string subtitle;
        // None for applications, and where nothing is known of the places.
        std::optional<DeskPicture> drawing{};
        // Problems first.
        std::vector<ListRow> lines{};
        // Which window of the drawing a line is about, by the line's id.
        std::map<std::string, std::size_t> drawn{};
        // "2 were in place"; they are left out of the lines unless asked for. Empty without any.
        std::string inPlace{};
        // It can be undone: it is the newest, and nothing has happened since.
        bool canUndo = false;
        // The same as plain text.
        std::string text{};

        bool operator==(const Detail&) const = default;
    };

    std::vector<ListRow> rows;
    std::optional<Detail> detail;
    // Nothing was restored in the days that are kept.
    bool isEmpty = false;
    // Windows put back per day of the last thirty, today last.
    std::vector<std::int64_t> days;
    // "162 windows put back in 30 days".
    std::string daysText;
    // The usage sentence; empty before there is something to say.
    std::string usage;

    bool operator==(const HistoryContent&) const = default;

    [[nodiscard]] static HistoryContent of(const PublishedState& state, const Context& context);
};

} // namespace vantrel
