// The running program's status, as sent over the session bus.
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
    // Only with saved, restoring and restored.
    std::optional<std::int64_t> windows;
    // Only with restored: how long it took.
    std::optional<double> seconds;
    // A description for people.
    std::string text;

    bool operator==(const PhaseMessage&) const = default;
};

struct FileIncidentMessage {
    // As returned by FileIncidentText::name.
    std::string kind;
    std::string file;
    // False once the problem is solved.
    bool isTrouble = true;
    // Absent when nothing failed.
    std::optional<std::string> reason;
    // The file that has the content; absent when that is the original file.
    std::optional<std::string> copy;
    // A description for people.
    std::string text;

    bool operator==(const FileIncidentMessage&) const = default;
};

struct StatusMessage {
    std::string version;
    PhaseMessage phase;
    // Learning and restoring are switched on.
    bool enabled = false;
    // The current desk; empty strings while no display is awake.
    std::string configID;
    std::string configName;
    std::string activeLayoutName;
    bool activePinned = false;
    // Why and until when the pinned layout is not enforced; absent while it is enforced.
    std::optional<std::string> pinPause;
    // For the active layout; absent if there is none.
    std::optional<std::int64_t> savedWindows;
    std::optional<Date> savedAt;
    // The current desk's layouts.
    std::vector<std::string> layoutNames;
    std::vector<DisplayInfo> displays;
    std::string supportDirectory;
    LicenseMessage license;
    // The last attempt to save the desk failed.
    bool learningFailed = false;
    // Problems with the program's files.
    std::vector<FileIncidentMessage> fileIncidents;
    // The newer version on offer.
    std::optional<std::string> latestAvailable;
    // The number of reports not sent yet; absent if none.
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
