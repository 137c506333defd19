#include "Vantrel/commands/StatusMessage.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

using namespace JsonCoding;

void to_json(nlohmann::json& json, const PhaseMessage& phase) {
    json = {{"name", phase.name}, {"text", phase.text}};
    put(json, "windows", phase.windows);
    put(json, "seconds", phase.seconds);
}

void from_json(const nlohmann::json& json, PhaseMessage& phase) {
    phase.name = required<std::string>(json, "name");
    phase.windows = optional<std::int64_t>(json, "windows");
    phase.seconds = optional<double>(json, "seconds");
    phase.text = required<std::string>(json, "text");
}

void to_json(nlohmann::json& json, const FileIncidentMessage& incident) {
    json = {{"kind", incident.kind},
            {"file", incident.file},
            {"isTrouble", incident.isTrouble},
            {"text", incident.text}};
    put(json, "reason", incident.reason);
    put(json, "copy", incident.copy);
}

void from_json(const nlohmann::json& json, FileIncidentMessage& incident) {
    incident.kind = required<std::string>(json, "kind");
    incident.file = required<std::string>(json, "file");
    incident.isTrouble = required<bool>(json, "isTrouble");
    incident.reason = optional<std::string>(json, "reason");
    incident.copy = optional<std::string>(json, "copy");
    incident.text = required<std::string>(json, "text");
}

void to_json(nlohmann::json& json, const StatusMessage& status) {
    json = {{"version", status.version},
            {"phase", status.phase},
            {"enabled", status.enabled},
            {"configID", status.configID},
            {"configName", status.configName},
            {"activeLayoutName", status.activeLayoutName},
            {"activePinned", status.activePinned},
            {"layoutNames", status.layoutNames},
            {"displays", status.displays},
            {"supportDirectory", status.supportDirectory},
            {"license", status.license},
            {"learningFailed", status.learningFailed},
            {"fileIncidents", status.fileIncidents}};
    put(json, "savedWindows", status.savedWindows);
    put(json, "savedAt", status.savedAt);
    put(json, "pinPause", status.pinPause);
    put(json, "latestAvailable", status.latestAvailable);
    put(json, "crashReports", status.crashReports);
}

void from_json(const nlohmann::json& json, StatusMessage& status) {
    status.version = required<std::string>(json, "version");
    status.phase = required<PhaseMessage>(json, "phase");
    status.enabled = required<bool>(json, "enabled");
    status.configID = required<std::string>(json, "configID");
    status.configName = required<std::string>(json, "configName");
    status.activeLayoutName = required<std::string>(json, "activeLayoutName");
    status.activePinned = required<bool>(json, "activePinned");
    status.layoutNames = required<std::vector<std::string>>(json, "layoutNames");
    status.displays = required<std::vector<DisplayInfo>>(json, "displays");
    status.supportDirectory = required<std::string>(json, "supportDirectory");
    status.license = required<LicenseMessage>(json, "license");
    status.learningFailed = optional<bool>(json, "learningFailed").value_or(false);
    status.fileIncidents = optional<std::vector<FileIncidentMessage>>(json, "fileIncidents")
                               .value_or(std::vector<FileIncidentMessage>());
    status.latestAvailable = optional<std::string>(json, "latestAvailable");
    status.crashReports = optional<std::int64_t>(json, "crashReports");
    status.savedWindows = optional<std::int64_t>(json, "savedWindows");
    status.savedAt = optional<Date>(json, "savedAt");
    status.pinPause = optional<std::string>(json, "pinPause");
}

} // namespace vantrel
