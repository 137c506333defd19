#include "Vantrel/interface/workbench/settings/SettingsActions.h"

#include "Vantrel/controller/SettingKey.h"
#include "Vantrel/interface/DayText.h"
#include "Vantrel/interface/SceneActions.h"
#include "Vantrel/interface/Text.h"
#include "VantrelCore/diagnostics/CrashReportNames.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"

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

} // namespace

SettingsActions SettingsActions::of(AppController& controller, const Services& services,
                                    const std::weak_ptr<bool>& alive,
                                    const std::function<void(const std::string&, bool)>& tell) {
    SettingsActions actions;
    actions.context = [&controller, canSend = services.sendCrashReports != nullptr] {
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
                                            }};
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
    actions.crashReports = services.crashReports;
    actions.sendCrashReports = services.sendCrashReports;
    actions.openCrashReports = opener(services, services.supportDirectory / CrashReportNames::folder, tell);
    actions.openLog = opener(services, services.supportDirectory / "app.log", tell);
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
