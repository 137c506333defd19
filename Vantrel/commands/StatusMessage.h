// The running program's status, as sent over the session bus.
#pragma once

#include "Vantrel/commands/LicenseMessage.h"
#include "Vantrel/commands/MessageFields.h"
#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/DisplayInfo.h"

#include <cstdint>
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

    template <typename Self, typename Field>
    static void fields(Self& self, Field&& field) {
        field("name", self.name);
        field("windows", self.windows);
        field("seconds", self.seconds);
        field("text", self.text);
    }
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

    template <typename Self, typename Field>
    static void fields(Self& self, Field&& field) {
        field("kind", self.kind);
        field("file", self.file);
        field("isTrouble", self.isTrouble);
        field("reason", self.reason);
        field("copy", self.copy);
        field("text", self.text);
    }
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
    // The lines of the settings file that are ignored, one sentence each; absent if none.
    std::optional<std::vector<std::string>> settingMistakes;
    // The name of a remembered desk that the current one may be, on other connectors.
    std::optional<std::string> sameDeskOffer;
    // The newer version on offer.
    std::optional<std::string> latestAvailable;
    // The number of reports not sent yet; absent if none.
    std::optional<std::int64_t> crashReports;

    bool operator==(const StatusMessage&) const = default;

    template <typename Self, typename Field>
    static void fields(Self& self, Field&& field) {
        field("version", self.version);
        field("phase", self.phase);
        field("enabled", self.enabled);
        field("configID", self.configID);
        field("configName", self.configName);
        field("activeLayoutName", self.activeLayoutName);
        field("activePinned", self.activePinned);
        field("pinPause", self.pinPause);
        field("savedWindows", self.savedWindows);
        field("savedAt", self.savedAt);
        field("layoutNames", self.layoutNames);
        field("displays", self.displays);
        field("supportDirectory", self.supportDirectory);
        field("license", self.license);
        field("learningFailed", self.learningFailed);
        field("fileIncidents", self.fileIncidents);
        field("settingMistakes", self.settingMistakes);
        field("sameDeskOffer", self.sameDeskOffer);
        field("latestAvailable", self.latestAvailable);
        field("crashReports", self.crashReports);
    }
};

} // namespace vantrel
