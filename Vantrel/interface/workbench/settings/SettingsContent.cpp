#include "Vantrel/interface/workbench/settings/SettingsContent.h"

#include "Vantrel/interface/Text.h"
#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/commands/HotKeyText.h"
#include "VantrelCore/displays/DisplayIdentity.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/model/HotKeyCombo.h"
#include "VantrelCore/scenes/SceneIconography.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/text/NumberText.h"
#include "VantrelCore/updates/UpdateOffer.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <variant>

namespace vantrel {

namespace {

using Toggle = SettingsContent::Toggle;
using Context = SettingsContent::Context;
using Shortcut = SettingsContent::Shortcut;
using Kind = HotKeySurface::Kind;

struct Offered {
    std::string_view key;
    const char* title;
    const char* detail = "";
    bool isInverted = false;
    // For a setting whose absence has a meaning of its own.
    bool isOnUnlessSet = false;
};

bool isOn(const PublishedState& state, const Offered& offered) {
    const auto found = state.preferences.find(offered.key);
    const bool* const value = found == state.preferences.end() ? nullptr : std::get_if<bool>(&found->second);
    return value != nullptr ? *value : offered.isOnUnlessSet;
}

std::vector<Toggle> toggles(std::initializer_list<Offered> offered, const PublishedState& state,
                            const Context& context) {
    std::vector<Toggle> shown;
    for (const Offered& each : offered) {
        if (context.hasEffect(each.key)) {
            shown.push_back({.key = each.key,
                             .title = tr(each.title),
                             .detail = *each.detail == '\0' ? "" : tr(each.detail),
                             .isOn = isOn(state, each) != each.isInverted,
                             .isInverted = each.isInverted});
        }
    }
    return shown;
}

std::optional<HotKeyCombo> defaultOf(Kind kind) {
    return kind == Kind::fixedRestore ? std::optional(HotKeyDefaults::restore)
           : kind == Kind::fixedSave  ? std::optional(HotKeyDefaults::save)
           : kind == Kind::stash      ? std::optional(HotKeyDefaults::stash)
                                      : std::nullopt;
}

Shortcut shortcut(const HotKeySurface& surface, std::string symbol, std::string title,
                  const PublishedState& state) {
    Shortcut shown{.surface = surface,
                   .symbol = std::move(symbol),
                   .title = std::move(title),
                   .keys = {},
                   .problem = {}};
    const auto found = std::ranges::find_if(
        state.hotKeys, [&](const HotKeyStatus& status) { return status.taken.surface == surface; });
    if (found == state.hotKeys.end()) {
        return shown;
    }
    shown.keys = HotKeyText::text(found->taken.combo);
    if (found->state == HotKeyStatus::State::refused) {
        shown.problem = tr("Another program has taken this shortcut.");
    }
    const auto usual = defaultOf(surface.kind);
    shown.canBeReset = usual && *usual != found->taken.combo;
    return shown;
}

void addShortcuts(SettingsContent& content, const PublishedState& state) {
    const std::pair<Kind, const char*> fixed[] = {{Kind::fixedRestore, "restore"},
                                                  {Kind::fixedSave, "save"},
                                                  {Kind::stash, "stash"},
                                                  {Kind::undo, "undo"},
                                                  {Kind::quickSwitcher, "scenes"}};
    for (const auto& [kind, symbol] : fixed) {
        content.shortcuts.push_back(
            shortcut({kind, {}}, symbol, std::string(HotKeyRecording::commandLabel(kind)), state));
    }
    for (const Scene& scene : SceneRail::scenes(state.configID, state.scenes)) {
        auto& shown = content.sceneShortcuts.emplace_back(
            shortcut(HotKeySurface::scene(scene.id), std::string(SceneIconography::symbol(scene.name)),
                     scene.name, state));
        const auto combo = scene.hotkey();
        shown.keys = combo ? HotKeyText::text(*combo) : "";
    }
}

SettingsContent::Trigger trigger(const SceneTrigger& trigger, const PublishedState& state,
                                 const Context& context) {
    SettingsContent::Trigger shown{.id = trigger.id,
                                   .symbol = "clock",
                                   .title = SceneTriggerFormatting::title(trigger.kind),
                                   .time = {},
                                   .sceneID = trigger.sceneID,
                                   .detail = {},
                                   .isOn = trigger.enabled};
    if (std::holds_alternative<SceneTrigger::Schedule>(trigger.kind)) {
        shown.time = shown.title;
        shown.title = tr("Every day");
    } else {
        shown.symbol = std::holds_alternative<SceneTrigger::FocusMode>(trigger.kind) ? "moon" : "calendar";
    }
    const bool isSceneThere =
        std::ranges::find(state.scenes, trigger.sceneID, &Scene::id) != state.scenes.end();
    const auto next = state.nextFirings.find(trigger.id);
    if (!isSceneThere) {
        shown.detail = tr("Its scene no longer exists.");
        shown.isProblem = true;
    } else if (state.calendarAccessNeeded && shown.symbol == "calendar") {
        shown.detail = tr(SceneTriggerFormatting::calendarAccessNeeded);
        shown.isProblem = true;
    } else if (!trigger.enabled) {
        shown.detail = tr("Off");
    } else if (next != state.nextFirings.end()) {
        shown.detail = trf("Next: {}", context.dateText(next->second));
    } else if (trigger.lastFiredAt) {
        shown.detail = trf("Last: {}", context.dateText(*trigger.lastFiredAt));
    }
    return shown;
}

std::string detailOf(const DisplayInfo& display) {
    const auto whole = [](double length) { return static_cast<std::int64_t>(std::llround(length)); };
    std::string text = trf("{} × {} at {}, {}", whole(display.frame.width()), whole(display.frame.height()),
                           whole(display.frame.minX()), whole(display.frame.minY()));
    return display.isBuiltin ? text + " · " + tr("built in") : text;
}

// Why the display may be confused with another; empty if it cannot.
std::string confusionOf(const DisplayInfo& display, bool hasTwin,
                        const std::map<std::string, std::string>& diagnoses) {
    const auto found = diagnoses.find(display.uuid);
    std::string text = found == diagnoses.end() ? "" : found->second;
    if (hasTwin) {
        text += std::string(text.empty() ? "" : " ") +
                tr("There are several of this kind. They are told apart by what they "
                   "report of themselves, else by their connectors.");
    }
    return text;
}

void addDisplays(SettingsContent& content, const PublishedState& state) {
    const auto labels = DisplayLabels::of(state.displays);
    const auto diagnoses = DisplayIdentity::diagnoses(state.displays);
    for (const DisplayInfo& display : state.displays) {
        const auto twins = std::ranges::count(state.displays, display.name, &DisplayInfo::name);
        content.displays.push_back({.name = labels.at(display.uuid),
                                    .detail = detailOf(display),
                                    .note = confusionOf(display, twins > 1, diagnoses),
                                    .isBuiltin = display.isBuiltin});
        content.canSwapDisplays = content.canSwapDisplays || twins == 2;
    }
    content.sameDesk = state.sameDeskOffer ? state.sameDeskOffer->name : "";
}

std::string delayText(double seconds) {
    return seconds < 0.05 ? tr("Windows are put back as soon as the displays change.")
                          : trf("Windows are put back when the displays have been still for {} seconds.",
                                NumberText::oneDecimal(seconds));
}

} // namespace

SettingsContent SettingsContent::of(const PublishedState& state, const Context& context) {
    SettingsContent content;
    content.general = toggles(
        {{"launchAtLogin", marked("Start with the session")},
         {"showHUD", marked("Show what was done"), marked("A line over your windows for two seconds.")},
         {"quietNudgesEnabled", marked("Say when windows have moved away from the scene"),
          marked("Only in the panel.")},
         {"patternSuggestionsStopped", marked("Suggest scenes"),
          marked("When a desk was arranged the same way on three days."), true},
         {"showWindowPreviews", marked("Show what is in the windows"),
          marked(
              "Small pictures in the drawings, of the apps that are not left alone. They are never saved.")},
         {"showPanelWithoutTray", marked("Open the panel at start"),
          marked("On a desktop that shows no tray icons.")},
         {"showDockIcon", marked("Show an icon in the Dock"), marked("From the next start.")}},
        state, context);
    content.restoring = toggles(
        {{"enabled", marked("Learn and restore"),
          marked("Everything that was remembered is kept while this is off.")},
         {"autoRestore", marked("Put windows back by itself"), marked("When the displays have changed.")},
         {"restoreSizes", marked("Put sizes back too"), marked("Otherwise only places.")},
         {"placeNewAppsEnabled", marked("Place the windows of apps that start"),
          marked("Where they were when they were last open.")},
         {"hideOthersOnSceneSwitch", marked("Applying a scene hides the other apps")}},
        state, context);
    if (const auto delay = state.preferences.find("settleDelay"); delay != state.preferences.end()) {
        const double* const seconds = std::get_if<double>(&delay->second);
        content.settleDelay = seconds != nullptr ? *seconds : content.settleDelay;
    }
    content.settleDelayText = delayText(content.settleDelay);
    addShortcuts(content, state);
    for (const SceneTrigger& each : state.triggers) {
        content.triggers.push_back(trigger(each, state, context));
    }
    content.noTriggers = tr(SceneTriggerFormatting::noTriggers);
    for (const Scene& scene : state.scenes) {
        content.scenes.push_back({scene.id, scene.name});
    }
    addDisplays(content, state);
    content.missionControl = context.missionControl;
    content.privacy =
        toggles({{"sendCrashReports", marked("Send crash reports"),
                  marked("Only of Vantrel itself. They say where in it the fault was."), false, true}},
                state, context);
    content.license = state.entitlement.reason;
    content.isLicensed = state.entitlement.kind == Entitlement::Kind::licensed;
    content.canActivate = state.entitlement.kind != Entitlement::Kind::notNeeded && !content.isLicensed;
    content.version = state.version;
    content.update = state.latestAvailable ? UpdateOffer::caption(*state.latestAvailable) : "";
    return content;
}

const std::array<SettingsSections::Entry, 8>& SettingsSections::all() {
    using enum SettingsSection;
    static constexpr std::array<Entry, 8> entries{{
        {general, "general", marked("General"), "gear"},
        {restoring, "restoring", marked("Restoring"), "restore"},
        {shortcuts, "shortcuts", marked("Shortcuts"), "keyboard"},
        {triggers, "triggers", marked("Triggers"), "bolt"},
        {displays, "displays", marked("Displays"), "monitor"},
        {privacy, "privacy", marked("Privacy and diagnostics"), "shield"},
        {license, "license", marked("License"), "key"},
        {about, "about", marked("About"), "info"},
    }};
    return entries;
}

const SettingsSections::Entry& SettingsSections::entryOf(SettingsSection section) {
    return *std::ranges::find(all(), section, &Entry::section);
}

std::optional<SettingsSection> SettingsSections::named(std::string_view name) {
    const auto found = std::ranges::find(all(), name, &Entry::name);
    return found == all().end() ? std::nullopt : std::optional(found->section);
}

} // namespace vantrel
