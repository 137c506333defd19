#include "Vantrel/interface/workbench/settings/SettingsActions.h"

#include "Vantrel/controller/SettingKey.h"
#include "Vantrel/interface/DayText.h"
#include "Vantrel/interface/SceneActions.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/workbench/settings/CrashReportFiles.h"
#include "VantrelCore/diagnostics/CrashReportNames.h"
#include "VantrelCore/diagnostics/DiagnosticReport.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"

#include <QStandardPaths>

#include <algorithm>

namespace vantrel {

namespace {

using Problem = SettingsActions::Problem;

constexpr const char* sectionKey = "settingsSelectedSection";

Problem store(AppController& controller, std::string_view name, const DefaultsValue& value) {
    const SettingKey* const key = SettingKeys::named(name);
    const auto stored = Settings(controller.defaults()).set(*key, value);
    return stored ? std::nullopt : Problem(stored.error());
}

Problem problemOf(const TriggerFlow::Result<void>& result) {
    return result ? std::nullopt : Problem(text(result.error()));
}

// Changes a stored trigger.
template <typename Change>
Problem edit(AppController& controller, const std::string& id, Change&& change) {
    const auto& triggers = controller.published().triggers;
    const auto found = std::ranges::find(triggers, id, &SceneTrigger::id);
    if (found == triggers.end()) {
        return text(TriggerProblem::notFound);
    }
    SceneTrigger edited = *found;
    change(edited);
    return problemOf(controller.triggers().update(edited));
}

void addShortcuts(SettingsActions& actions, AppController& controller) {
    actions.takenHotKeys = [&controller] { return controller.takenHotKeys(); };
    actions.setHotkey = [&controller](const HotKeySurface& surface, std::optional<HotKeyCombo> combo) {
        const auto stored = controller.setHotkey(surface, combo);
        return stored ? std::nullopt : Problem(stored.error());
    };
}

void addTriggers(SettingsActions& actions, AppController& controller,
                 const std::function<void(const std::string&, bool)>& tell) {
    actions.addTrigger = [&controller](const SceneTrigger::Kind& kind, const std::string& sceneID) {
        const auto added = controller.triggers().addTrigger(kind, {sceneID});
        return added ? std::nullopt : Problem(text(added.error()));
    };
    actions.setTriggerTime = [&controller](const std::string& id, const std::string& time) {
        const auto schedule = SceneTriggerFormatting::scheduleOf(time);
        return schedule ? edit(controller, id, [&](SceneTrigger& trigger) { trigger.kind = *schedule; })
                        : Problem(text(TriggerProblem::invalidTime));
    };
    actions.setTriggerScene = [&controller](const std::string& id, const std::string& sceneID) {
        return edit(controller, id, [&](SceneTrigger& trigger) { trigger.sceneID = sceneID; });
    };
    actions.setTriggerEnabled = [&controller](const std::string& id, bool isOn) {
        return problemOf(controller.triggers().setTriggerEnabled(id, isOn));
    };
    actions.deleteTrigger = [&controller, tell](const std::string& id) {
        if (const auto deleted = controller.triggers().deleteTrigger(id); !deleted) {
            tell(text(deleted.error()), true);
        }
    };
}

// Null when files cannot be opened.
std::function<void()> opener(const SettingsActions::Services& services, const std::filesystem::path& file,
                             const std::function<void(const std::string&, bool)>& tell) {
    if (!services.open) {
        return nullptr;
    }
    return [open = services.open, file, tell] {
        if (!open(file)) {
            tell(trf("No program opens {}.", file.string()), true);
        }
    };
}

using Tell = std::function<void(const std::string&, bool)>;

void addCrashReports(SettingsActions& actions, AppController& controller,
                     const SettingsActions::Services& services, const Tell& tell) {
    FileSystem* const files = services.files;
    if (files == nullptr) {
        return;
    }
    actions.crashReports = [&controller, files,
                            folder = services.supportDirectory / CrashReportNames::folder] {
        const TimeZone zone = controller.zone();
        std::vector<SettingsActions::CrashReport> shown;
        for (const auto& [file, date] : CrashReportFiles::in(*files, folder)) {
            shown.push_back(
                {file, DayText::day(date, controller.now(), zone) + " " + DayText::time(date, zone)});
        }
        return shown;
    };
    actions.deleteCrashReports = [&controller,
                                  files](const std::vector<SettingsActions::CrashReport>& reports) {
        std::vector<std::filesystem::path> paths;
        for (const auto& report : reports) {
            paths.push_back(report.file);
        }
        auto putBack = CrashReportFiles::remove(*files, paths);
        if (!putBack) {
            return Problem(putBack.error());
        }
        controller.deletions().add(reports.size() == 1 ? trf("the crash report from {}", reports.front().time)
                                                       : std::string(tr("every crash report")),
                                   std::move(*putBack));
        return Problem();
    };
    if (services.open) {
        actions.openCrashReport = [open = services.open, tell](const std::filesystem::path& file) {
            if (!open(file)) {
                tell(trf("No program opens {}.", file.string()), true);
            }
        };
    }
}

DiagnosticReport diagnosticReport(AppController& controller, const SettingsActions::Services& services) {
    const PublishedState& state = controller.published();
    const auto content = [&](const std::filesystem::path& file) {
        return services.files->read(file).value_or("");
    };
    DiagnosticReport report{.date = controller.now(),
                            .version = state.version,
                            .operatingSystem = services.operatingSystem,
                            .phase = StatusPhase::text(state.phase),
                            .displays = state.displays,
                            .settings = {},
                            .problems = {},
                            .crashReports = {},
                            .log = content(services.logFile)};
    if (const auto file = controller.defaults().file()) {
        report.settings = content(file->path);
    }
    for (const auto& incident : state.fileIncidents) {
        report.problems.push_back(FileIncidentText::sentence(incident));
    }
    for (const auto& mistake : state.settingMistakes) {
        report.problems.push_back(mistake.text());
    }
    for (const auto& crash :
         CrashReportFiles::in(*services.files, services.supportDirectory / CrashReportNames::folder)) {
        report.crashReports.push_back(content(crash.file));
    }
    return report;
}

std::filesystem::path folder(QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location).toStdString();
}

void writeReport(AppController& controller, const SettingsActions::Services& services, const Tell& tell) {
    const auto home = folder(QStandardPaths::HomeLocation);
    auto place = folder(QStandardPaths::DocumentsLocation);
    std::error_code error;
    if (!std::filesystem::is_directory(place, error)) {
        place = home;
    }
    const auto file = place / ("vantrel-report-" + iso8601Text(controller.now()).substr(0, 10) + ".txt");
    const auto failure =
        services.files->writeAtomically(file, diagnosticReport(controller, services).text(home.string()));
    if (failure && !isReplaced(failure)) {
        tell(trf("{} could not be written ({}).", file.string(), failure.message()), true);
        return;
    }
    if (services.open) {
        services.open(file);
    }
    tell(trf("Written to {}. Read it before you send it: it names your programs, displays and scenes.",
             file.string()),
         false);
}

SettingsActions::InstalledText installedText(const SettingsActions::Services& services, const char* name) {
    return [files = services.files, file = services.textsDirectory / name]() -> std::optional<std::string> {
        auto text = files == nullptr ? std::unexpected(std::error_code()) : files->read(file);
        return text ? std::optional(std::move(*text)) : std::nullopt;
    };
}

SettingsContent::MissionControl missionControlOf(AppController& controller,
                                                 const SettingsActions::Services& services) {
    using MissionControl = SettingsContent::MissionControl;
    const SettingKey* const key = SettingKeys::named("missionControlFixApplied");
    if (!controller.hasEffect(*key)) {
        return MissionControl::absent;
    }
    return services.missionControlFix()                                 ? MissionControl::losing
           : Settings(controller.defaults()).missionControlFixApplied() ? MissionControl::fixed
                                                                        : MissionControl::fine;
}

} // namespace

SettingsActions SettingsActions::of(AppController& controller, const Services& services,
                                    const std::weak_ptr<bool>& alive,
                                    const std::function<void(const std::string&, bool)>& tell) {
    SettingsActions actions;
    actions.context = [&controller, services, canSend = services.sendCrashReports != nullptr] {
        return SettingsContent::Context{.dateText =
                                            [&controller](Date date) {
                                                const TimeZone zone = controller.zone();
                                                return DayText::day(date, controller.now(), zone) + " " +
                                                       DayText::time(date, zone);
                                            },
                                        .hasEffect =
                                            [&controller, canSend](std::string_view name) {
                                                const SettingKey* const key = SettingKeys::named(name);
                                                return key != nullptr && controller.hasEffect(*key) &&
                                                       (canSend || name != "sendCrashReports");
                                            },
                                        .missionControl = missionControlOf(controller, services)};
    };
    actions.set = [&controller](std::string_view key, bool isOn) {
        if (key == "enabled") {
            controller.setEnabled(isOn);
            return Problem();
        }
        return store(controller, key, isOn);
    };
    actions.setSettleDelay = [&controller](double seconds) {
        return store(controller, Settings::settleDelayKey, seconds);
    };
    actions.keyCode = services.keyCode;
    addShortcuts(actions, controller);
    addTriggers(actions, controller, tell);
    actions.swapDisplays = [&controller, alive, tell] {
        if (const auto result = controller.displaySwap().swap("", "", tellRefusal(alive, tell)); !result) {
            tell(result.error(), true);
        }
    };
    actions.joinDesks = [&controller, tell] {
        const auto joining = controller.joinDesks("", "");
        tell(joining.text(), joining.kind != DeskJoining::Kind::done);
    };
    actions.fixMissionControl = [fix = services.missionControlFix] {
        if (const auto now = fix()) {
            now();
        }
    };
    addCrashReports(actions, controller, services, tell);
    actions.sendCrashReports = services.sendCrashReports;
    if (services.files != nullptr) {
        actions.exportReport = [&controller, services, tell] { writeReport(controller, services, tell); };
    }
    actions.whatChanged = installedText(services, "news.txt");
    actions.libraryLicenses = installedText(services, "licenses.txt");
    actions.openLog = opener(services, services.logFile, tell);
    actions.openFolder = opener(services, services.supportDirectory, tell);
    if (const auto file = controller.defaults().file()) {
        actions.openSettingsFile = opener(services, file->path, tell);
    }
    actions.activate = [&controller](const std::string& key, const Done& done) {
        controller.license().activate(key, [done](const std::expected<void, std::string>& result) {
            done(result ? std::nullopt : Problem(result.error()));
        });
    };
    actions.deactivate = [&controller](const Done& done) {
        controller.license().deactivate([done](const std::expected<void, std::string>& result) {
            done(result ? std::nullopt : Problem(result.error()));
        });
    };
    actions.purchase = services.purchase;
    actions.checkForUpdates = services.checkForUpdates;
    actions.showIntroduction = services.showIntroduction;
    actions.rememberedSection = [&controller] { return controller.defaults().text(sectionKey).value_or(""); };
    actions.rememberSection = [&controller](const std::string& name) {
        controller.defaults().set(sectionKey, name);
    };
    return actions;
}

} // namespace vantrel
