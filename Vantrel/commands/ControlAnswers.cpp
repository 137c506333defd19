#include "Vantrel/commands/ControlAnswers.h"

#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <tuple>

namespace vantrel::ControlAnswers {

namespace {

struct PhaseParts {
    PhaseMessage operator()(const Phase::Empty&) const { return named("empty"); }

    PhaseMessage operator()(const Phase::Saved& saved) const { return named("saved", saved.windows); }

    PhaseMessage operator()(const Phase::Restoring& restoring) const {
        return named("restoring", restoring.windows);
    }

    PhaseMessage operator()(const Phase::Restored& restored) const {
        return named("restored", restored.windows, restored.seconds);
    }

    PhaseMessage operator()(const Phase::Off&) const { return named("off"); }

    PhaseMessage operator()(const Phase::NeedsPermission&) const { return named("needsPermission"); }

    static PhaseMessage named(const char* name, std::optional<std::int64_t> windows = {},
                              std::optional<double> seconds = {}) {
        return {.name = name, .windows = windows, .seconds = seconds, .text = {}};
    }
};

FileIncidentMessage fileIncident(const FileIncident& incident) {
    const auto ifAny = [](const std::string& text) {
        return text.empty() ? std::nullopt : std::optional(text);
    };
    return {.kind = FileIncidentText::name(incident.kind),
            .file = incident.file.string(),
            .isTrouble = incident.isTrouble(),
            .reason = ifAny(incident.reason),
            .copy = ifAny(incident.copy.string()),
            .text = FileIncidentText::sentence(incident)};
}

} // namespace

ControlAnswer refused(std::string sentence) {
    return std::unexpected(ControlRefusal{ControlNames::refused, std::move(sentence)});
}

std::expected<Scene, std::string> sceneCalled(const PublishedState& state, const std::string& called) {
    const std::string wanted = Unicode::lowercased(Unicode::trimmed(called));
    const auto found = std::ranges::find_if(state.scenes, [&](const Scene& scene) {
        return Unicode::lowercased(scene.name) == wanted || Unicode::lowercased(scene.id) == wanted;
    });
    if (found != state.scenes.end()) {
        return *found;
    }
    return std::unexpected(
        state.scenes.empty()
            ? std::string(tr("There are no scenes yet. Save one with: vantrelctl save-scene NAME"))
            : trf("There is no scene \"{}\".", called));
}

std::expected<RememberedDesk, std::string> deskCalled(const PublishedState& state,
                                                      const std::string& called) {
    const auto& desks = state.desks;
    if (called.empty() && state.configID.empty()) {
        return std::unexpected(tr("No display is awake."));
    }
    if (called.empty()) {
        return RememberedDesk{
            .configID = state.configID, .name = state.deskName(), .displays = state.displays, .layouts = {}};
    }
    if (const auto found = std::ranges::find(desks, called, &RememberedDesk::configID);
        found != desks.end()) {
        return *found;
    }
    const std::string wanted = Unicode::lowercased(Unicode::trimmed(called));
    const auto isCalled = [&](const RememberedDesk& desk) {
        return Unicode::lowercased(desk.name) == wanted;
    };
    const auto found = std::ranges::find_if(desks, isCalled);
    if (found == desks.end()) {
        return std::unexpected(trf("There is no remembered desk \"{}\". See: vantrelctl desks", called));
    }
    if (std::ranges::count_if(desks, isCalled) > 1) {
        return std::unexpected(trf("More than one desk is called \"{}\". To list the desks with their "
                                   "IDs: vantrelctl desks --json",
                                   called));
    }
    return *found;
}

PhaseMessage phase(const Phase& phase) {
    auto message = std::visit(PhaseParts{}, phase.value);
    message.text = StatusPhase::text(phase);
    return message;
}

StatusMessage status(const PublishedState& state, const std::filesystem::path& supportDirectory) {
    StatusMessage message;
    message.version = state.version;
    message.phase = phase(state.phase);
    message.enabled = state.enabled;
    message.configID = state.configID;
    message.configName = state.deskName();
    message.activeLayoutName = state.activeLayoutName;
    message.activePinned = state.activePinned;
    if (state.pinPause) {
        message.pinPause = state.pinPause->text();
    }
    if (const auto* const layout = state.activeLayout()) {
        message.savedWindows = static_cast<std::int64_t>(layout->windows.size());
        message.savedAt = layout->savedAt;
    }
    for (const auto& layout : state.currentLayouts) {
        message.layoutNames.push_back(layout.layoutName);
    }
    message.displays = state.displays;
    message.supportDirectory = supportDirectory.string();
    message.license = LicenseMessage::of(state.entitlement);
    message.learningFailed = state.learningFailed;
    for (const auto& incident : state.fileIncidents) {
        message.fileIncidents.push_back(fileIncident(incident));
    }
    if (!state.settingMistakes.empty()) {
        message.settingMistakes = SettingMistakes::texts(state.settingMistakes);
    }
    if (state.sameDeskOffer) {
        message.sameDeskOffer = state.sameDeskOffer->name;
    }
    message.latestAvailable = state.latestAvailable;
    return message;
}

DesksMessage desks(const PublishedState& state, const std::vector<Layout>& layouts,
                   const std::function<std::string(const std::string&)>& activeLayoutName) {
    DesksMessage message;
    if (!state.configID.empty()) {
        message.desks.push_back({.configID = state.configID,
                                 .name = state.deskName(),
                                 .isCurrent = true,
                                 .activeLayoutName = state.activeLayoutName,
                                 .layouts = {}});
    }
    for (const auto& layout : layouts) {
        auto desk = std::ranges::find(message.desks, layout.configID, &DeskMessage::configID);
        if (desk == message.desks.end()) {
            desk = message.desks.insert(desk, {.configID = layout.configID,
                                               .name = layout.name,
                                               .activeLayoutName = activeLayoutName(layout.configID),
                                               .layouts = {}});
        }
        if (desk->isCurrent && desk->layouts.empty()) {
            // The name that the user gave it.
            desk->name = layout.name;
        }
        desk->layouts.push_back(layout);
    }
    for (auto& desk : message.desks) {
        std::ranges::stable_sort(desk.layouts, {}, [](const Layout& layout) {
            return std::tuple(layout.layoutName != Layout::defaultName, layout.layoutName);
        });
    }
    std::ranges::stable_sort(message.desks, {},
                             [](const DeskMessage& desk) { return std::tuple(!desk.isCurrent, desk.name); });
    return message;
}

DesksMessage desks(AppController& controller) {
    const PublishedState& state = controller.published();
    auto message = desks(state, controller.allLayouts(),
                         [&controller](const auto& desk) { return controller.activeLayoutName(desk); });
    for (DeskMessage& desk : message.desks) {
        const auto known = std::ranges::find(state.desks, desk.configID, &RememberedDesk::configID);
        if (known != state.desks.end()) {
            desk.stashes = static_cast<std::int64_t>(known->stashes);
            desk.lastSeen = known->lastSeen;
        }
    }
    return message;
}

nlohmann::json history(const RestoreLog& log, const RestoreReceipts& receipts, Date now) {
    nlohmann::json answer = log;
    answer["windowsLast7Days"] = receipts.windowsLast7Days(now);
    return answer;
}

std::function<void(const RestoreOutcome&)> restoreReply(const ControlReply& reply) {
    return [reply](const RestoreOutcome& outcome) {
        if (outcome.kind == RestoreOutcome::Kind::finished) {
            reply(nlohmann::json(outcome.report));
        } else {
            reply(std::unexpected(ControlRefusal{outcome.kind == RestoreOutcome::Kind::superseded
                                                     ? ControlNames::superseded
                                                     : ControlNames::refused,
                                                 outcome.text()}));
        }
    };
}

std::function<void(const SaveOutcome&)> saveReply(const PublishedState& state, const ControlReply& reply) {
    return [&state, reply](const SaveOutcome& outcome) {
        if (outcome.kind != SaveOutcome::Kind::saved) {
            reply(std::unexpected(ControlRefusal{ControlNames::refused, outcome.text()}));
            return;
        }
        reply(nlohmann::json{{"windows", outcome.windows},
                             {"configID", state.configID},
                             {"configName", state.deskName()},
                             {"layoutName", state.activeLayoutName}});
    };
}

} // namespace vantrel::ControlAnswers
