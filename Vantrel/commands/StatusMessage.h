// What the running program says of itself, as it goes over the session bus.
#pragma once

#include "Vantrel/commands/LicenseMessage.h"
#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/DisplayInfo.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct PhaseMessage {
    // "saved", "restoring", "restored", "off", "empty" or "needsPermission".
    std::string name;
    // With saved, restoring and restored.
    std::optional<std::int64_t> windows;
    // With restored: how long it took.
    std::optional<double> seconds;
    // The same for people.
    std::string text;

    bool operator==(const PhaseMessage&) const = default;
};

struct FileIncidentMessage {
    // As FileIncidentText::name has it.
    std::string kind;
    std::string file;
    // False when nothing is amiss any more.
    bool isTrouble = true;
    // Absent where nothing failed.
    std::optional<std::string> reason;
    // Where the content is; absent where it is in the file itself.
    std::optional<std::string> copy;
    // The same for people.
    std::string text;

    bool operator==(const FileIncidentMessage&) const = default;
};

struct StatusMessage {
    std::string version;
    PhaseMessage phase;
    // Learning and restoring are switched on.
    bool enabled = false;
    // The present desk; empty texts while no display is awake.
    std::string configID;
    std::string configName;
    std::string activeLayoutName;
    bool activePinned = false;
    // Why the pinned layout is left as the desk stands, and until when; absent while it is kept in place.
    std::optional<std::string> pinPause;
    // Of the active layout; absent without one.
    std::optional<std::int64_t> savedWindows;
    std::optional<Date> savedAt;
    // The present desk's layouts.
    std::vector<std::string> layoutNames;
    std::vector<DisplayInfo> displays;
    std::string supportDirectory;
    LicenseMessage license;
    // The last attempt to remember the desk failed.
    bool learningFailed = false;
    // What is the matter with the program's files.
    std::vector<FileIncidentMessage> fileIncidents;
    // The newer version on offer.
    std::optional<std::string> latestAvailable;
    // Written and not sent; absent without any.
    std::optional<std::int64_t> crashReports;

    bool operator==(const StatusMessage&) const = default;
};

void to_json(nlohmann::json& json, const PhaseMessage& phase);
void from_json(const nlohmann::json& json, PhaseMessage& phase);
void to_json(nlohmann::json& json, const FileIncidentMessage& incident);
void from_json(const nlohmann::json& json, FileIncidentMessage& incident);
void to_json(nlohmann::json& json, const StatusMessage& status);
void from_json(const nlohmann::json& json, StatusMessage& status);

} // namespace vantrel
