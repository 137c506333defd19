// What is known about live windows, kept for one session so that a restart of this program does not lose it.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/model/WindowRecord.h"

#include <cstdint>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace vantrel {

struct SessionNotes {
    // Which live windows those of an arrangement are; see WindowNotes.
    struct Arrangement {
        // In whole seconds.
        Date capturedAt;
        std::map<std::int64_t, WindowID> windowByOrder;

        bool operator==(const Arrangement&) const = default;
    };

    // A window that a restore could not put in place; see StrayPlaces.
    struct Stray {
        std::string configID;
        WindowID window{};
        WindowRecord saved;
        // Where the restore left it.
        Rect left;

        bool operator==(const Stray&) const = default;
    };

    std::int64_t version = 1;
    // Desk::session(): the notes mean nothing in another one.
    std::string session;
    // The one used last comes first.
    std::vector<Arrangement> arrangements;
    std::vector<Stray> strays;
    // Where windows that are maximised or full screen return to; see NormalFrames.
    std::map<WindowID, Rect> normalFrames;

    bool operator==(const SessionNotes&) const = default;
};

void to_json(nlohmann::json& json, const SessionNotes& notes);
void from_json(const nlohmann::json& json, SessionNotes& notes);

} // namespace vantrel
