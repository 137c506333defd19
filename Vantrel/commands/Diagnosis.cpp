#include "Vantrel/commands/Diagnosis.h"

#include "Vantrel/commands/terminal/TextColumns.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/stores/SetAside.h"
#include "VantrelCore/stores/StoreInspection.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <set>
#include <tuple>

namespace vantrel {

bool Diagnosis::isSound() const {
    return std::ranges::all_of(lines, &Line::isSound);
}

namespace {

using Lines = std::vector<Diagnosis::Line>;

constexpr const char* filesArea = marked("files");
constexpr const char* foldersArea = marked("folders");
constexpr const char* busArea = marked("bus");
constexpr const char* windowManagerArea = marked("window manager");

void examineFolder(const Doctor::Patient& patient, const std::filesystem::path& folder, Lines& lines) {
    const auto entries = patient.files.list(folder);
    if (!entries && entries.error() == std::errc::no_such_file_or_directory) {
        lines.push_back({foldersArea, true, trf("{} will be created when needed", folder.string())});
        return;
    }
    if (!entries) {
        lines.push_back(
            {foldersArea, false, trf("{} cannot be read ({})", folder.string(), entries.error().message())});
        return;
    }
    const auto probe = folder / ".doctor";
    const std::error_code error = patient.files.writeAtomically(probe, "Can this folder be written?\n");
    std::ignore = patient.files.remove(probe);
    lines.push_back({foldersArea, !error,
                     error ? trf("{} cannot be written ({})", folder.string(), error.message())
                           : trf("{} can be read and written", folder.string())});
}

Diagnosis::Line describeCopy(const Doctor::Patient& patient, const StoreInspection::Finding& copy,
                             bool isInUse) {
    const std::string name = copy.file.filename().string();
    const std::string what = trf("{} is a copy of {} from {}", name, copy.original.filename().string(),
                                 patient.localDate(copy.modified));
    if (!copy.problem.empty()) {
        return {filesArea, isInUse, trf("{}; it cannot be used ({})", what, copy.problem)};
    }
    return {filesArea, isInUse, trf("{}; it can be put back", what),
            fmt::format("vantrelctl doctor --put-back {}", name)};
}

void examineStores(const Doctor::Patient& patient, Lines& lines) {
    const auto findings =
        StoreInspection::inspect(patient.files, {patient.supportDirectory, patient.stateDirectory});
    std::set<std::filesystem::path> present;
    std::size_t sound = 0;
    for (const auto& finding : findings) {
        if (!finding.isCopy()) {
            present.insert(finding.file);
            sound += finding.problem.empty() ? 1 : 0;
        }
        if (!finding.isCopy() && !finding.problem.empty()) {
            lines.push_back(
                {filesArea, false,
                 trf("{} cannot be used ({})", finding.file.filename().string(), finding.problem)});
        }
    }
    lines.push_back(
        {filesArea, sound == present.size(), trf("{} of {} stores are sound", sound, present.size())});
    for (const auto& finding : findings) {
        if (finding.isCopy()) {
            // A copy is a problem only if the original file is missing.
            lines.push_back(describeCopy(patient, finding, present.contains(finding.original)));
        }
    }
}

void examineFile(const Doctor::Patient& patient, const std::filesystem::path& file, Lines& lines) {
    const auto content = patient.files.read(file);
    if (content || content.error() == std::errc::no_such_file_or_directory) {
        return;
    }
    lines.push_back(
        {filesArea, false, trf("{} cannot be read ({})", file.string(), content.error().message())});
}

// Copies of files other than stores are only listed.
void nameOtherCopies(const Doctor::Patient& patient, const std::filesystem::path& file, Lines& lines) {
    for (const auto& entry : patient.files.list(file.parent_path()).value_or(std::vector<FileEntry>())) {
        if (SetAside::original(entry.file) == file) {
            lines.push_back(
                {filesArea, true,
                 trf("{} is a copy from {}", entry.file.string(), patient.localDate(entry.modified))});
        }
    }
}

// Incidents reported by the running program.
void addIncidents(const StatusMessage& status, Lines& lines) {
    for (const auto& incident : status.fileIncidents) {
        lines.push_back({filesArea, !incident.isTrouble, incident.text});
    }
    for (const std::string& mistake : status.settingMistakes.value_or(std::vector<std::string>())) {
        lines.push_back({filesArea, false, mistake});
    }
    if (status.learningFailed) {
        lines.push_back({filesArea, false, tr("The last attempt to save the current desk failed.")});
    }
}

void examineProgram(const Doctor::Patient& patient, Lines& lines) {
    if (!patient.status) {
        lines.push_back({busArea, false, patient.status.error()});
        return;
    }
    lines.push_back({busArea, true, trf("vantrel {} responds", patient.status->version)});
    const bool hasPermission = patient.status->phase.name != "needsPermission";
    lines.push_back({windowManagerArea, hasPermission,
                     hasPermission ? tr("windows can be moved")
                                   : tr("no window manager that can move windows is running")});
}

} // namespace

namespace Doctor {

Diagnosis examine(const Patient& patient) {
    Diagnosis diagnosis;
    examineFolder(patient, patient.supportDirectory, diagnosis.lines);
    if (patient.stateDirectory != patient.supportDirectory) {
        examineFolder(patient, patient.stateDirectory, diagnosis.lines);
    }
    examineFolder(patient, patient.settingsFile.parent_path(), diagnosis.lines);
    examineStores(patient, diagnosis.lines);
    for (const auto& file : {patient.settingsFile, patient.supportDirectory / "license.json"}) {
        examineFile(patient, file, diagnosis.lines);
        nameOtherCopies(patient, file, diagnosis.lines);
    }
    if (patient.status) {
        addIncidents(*patient.status, diagnosis.lines);
    }
    examineProgram(patient, diagnosis.lines);
    return diagnosis;
}

std::string text(const Diagnosis& diagnosis) {
    constexpr std::array areas{filesArea, foldersArea, busArea, windowManagerArea};
    const int columns = TextColumns::widthOf(areas, 14);
    std::string text;
    for (const auto& line : diagnosis.lines) {
        text += fmt::format("{} {:<{}} {}\n", line.isSound ? "ok" : "! ", tr(line.area.c_str()), columns,
                            line.text);
        if (line.command) {
            text += fmt::format("   {:<{}} {}\n", "", columns, *line.command);
        }
    }
    return text;
}

} // namespace Doctor

void to_json(nlohmann::json& json, const Diagnosis& diagnosis) {
    json = {{"isSound", diagnosis.isSound()}, {"lines", nlohmann::json::array()}};
    for (const auto& line : diagnosis.lines) {
        nlohmann::json entry{{"area", line.area}, {"isSound", line.isSound}, {"text", line.text}};
        JsonCoding::put(entry, "command", line.command);
        json["lines"].push_back(std::move(entry));
    }
}

} // namespace vantrel
