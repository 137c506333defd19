// The restore history: the outcome for each window of every restore, scene switch and stash return.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct RestoreLog {
    static constexpr std::size_t maxEntries = 20;
    static constexpr double retentionSeconds = 7 * 86'400;

    enum class Outcome { restored, retried, failed, skipped };

    // What happened to a live window.
    struct Move {
        // How the window was identified: "known", "sameTitle", "nearTitle" or "order".
        std::string pairedBy;
        // Where it was, should be, and was when last looked at.
        Rect from;
        Rect target;
        std::optional<Rect> achieved;

        bool operator==(const Move&) const = default;
    };

    // The outcome for one saved window.
    struct Item {
        std::string appName;
        std::string bundleID;
        std::string title;
        Outcome outcome = Outcome::restored;
        // Why it failed or was skipped.
        std::optional<std::string> reason;
        // Additional information.
        std::optional<std::string> note = std::nullopt;
        // None when no live window was found, and in entries written by older versions.
        std::optional<Move> move = std::nullopt;

        bool operator==(const Item&) const = default;
    };

    // One restore.
    struct Entry {
        Date date;
        // What triggered it.
        std::string reason;
        std::optional<std::string> sceneName;
        std::string configID;
        // In seconds.
        double elapsed = 0;
        std::vector<Item> items;

        bool operator==(const Entry&) const = default;
    };

    // Newest first.
    std::vector<Entry> entries;

    bool operator==(const RestoreLog&) const = default;

    // Drops entries older than seven days (exactly seven days is kept), then all but the newest twenty.
    // Returns how many were too old.
    std::size_t prune(Date now);
};

// An outcome is stored as its name; any other string fails to decode.
void to_json(nlohmann::json& json, RestoreLog::Outcome outcome);
void from_json(const nlohmann::json& json, RestoreLog::Outcome& outcome);
void to_json(nlohmann::json& json, const RestoreLog::Move& move);
void from_json(const nlohmann::json& json, RestoreLog::Move& move);
void to_json(nlohmann::json& json, const RestoreLog::Item& item);
void from_json(const nlohmann::json& json, RestoreLog::Item& item);
void to_json(nlohmann::json& json, const RestoreLog::Entry& entry);
void from_json(const nlohmann::json& json, RestoreLog::Entry& entry);
void to_json(nlohmann::json& json, const RestoreLog& log);
void from_json(const nlohmann::json& json, RestoreLog& log);

} // namespace vantrel
