#include "Vantrel/interface/panel/PanelMessages.h"

#include "Vantrel/interface/Text.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/updates/UpdateOffer.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel::PanelMessages {

namespace {

using Message = PanelContent::Message;
using Deed = Message::Deed;
using Kind = Message::Kind;
using Tone = Message::Tone;

// Earlier the trial is nobody's concern.
constexpr std::int64_t lastDaysOfTrial = 7;

class Collector {
public:
    Collector(const PublishedState& state, const PanelContent::Context& context)
        : m_state(state), m_context(context) {}

    std::vector<Message> all(std::size_t moved) {
        permission();
        session();
        license();
        files();
        settings();
        if (m_state.learningFailed) {
            add({.kind = Kind::learning,
                 .tone = Tone::warning,
                 .symbol = "warn",
                 .title = tr("This desk could not be remembered"),
                 .detail = tr("What was remembered before is kept. The next change is tried again.")});
        }
        missionControl();
        drift(moved);
        sameDesk();
        suggestion();
        calendar();
        switcherTip();
        crashReports();
        update();
        return std::move(m_messages);
    }

private:
    void add(Message message) {
        if (!message.isDismissible || !m_context.dismissed.contains(message.kind)) {
            m_messages.push_back(std::move(message));
        }
    }

    void permission() {
        if (!m_state.hasPermission) {
            add({.kind = Kind::permission,
                 .tone = Tone::warning,
                 .symbol = "warn",
                 .title = m_context.permissionTitle,
                 .detail = m_context.permissionDetail,
                 .actions = {m_context.hasPermissionSettings
                                 ? Message::Action{Deed::openPermissionSettings, tr("Open System Settings")}
                                 : Message::Action{Deed::checkAgain, tr("Check again")}},
                 .isDismissible = false});
        }
    }

    void session() {
        for (const auto& note : m_context.sessionNotes) {
            add({.kind = note.kind,
                 .tone = Tone::warning,
                 .symbol = "info",
                 .title = note.title,
                 .detail = note.detail});
        }
        if (m_context.opensWithoutTray) {
            add({.kind = Kind::tray,
                 .symbol = "info",
                 .title = tr("No tray on this desktop"),
                 .detail = tr("So Vantrel opens this window when it starts. Start it again to see it again."),
                 .actions = {{Deed::stayClosed, tr("Not at start")}}});
        }
    }

    void license() {
        Message message{.kind = Kind::license, .symbol = "key", .title = ""};
        if (m_context.offersPurchase) {
            message.actions.push_back({Deed::purchase, tr("Get Vantrel")});
        }
        message.actions.push_back({Deed::enterKey, tr("Enter key…")});
        const Entitlement& entitlement = m_state.entitlement;
        switch (entitlement.kind) {
        case Entitlement::Kind::trial:
            if (!entitlement.trialDaysLeft || *entitlement.trialDaysLeft > lastDaysOfTrial) {
                return;
            }
            message.title =
                trn("{} day left of your trial", "{} days left of your trial", *entitlement.trialDaysLeft);
            break;
        case Entitlement::Kind::trialOver:
            message.title = tr("Your trial is over");
            message.detail = tr("Vantrel no longer learns or restores. Everything it remembered is kept.");
            message.isDismissible = false;
            break;
        case Entitlement::Kind::refused:
            message.tone = Tone::warning;
            message.title = tr("The license is not valid");
            message.detail = entitlement.reason;
            message.isDismissible = false;
            break;
        case Entitlement::Kind::notNeeded:
        case Entitlement::Kind::licensed:
            return;
        }
        add(std::move(message));
    }

    void files() {
        for (const FileIncident& incident : m_state.fileIncidents) {
            if (!incident.isTrouble()) {
                continue;
            }
            Message message{.kind = Kind::files,
                            .tone = Tone::warning,
                            .symbol = "warn",
                            .title = FileIncidentText::headline(incident),
                            .detail = FileIncidentText::sentence(incident)};
            if (incident.kind == FileIncident::Kind::unreadable) {
                message.actions.push_back({Deed::retryFiles, tr("Try again")});
            }
            add(std::move(message));
        }
    }

    void settings() {
        const auto& mistakes = m_state.settingMistakes;
        if (mistakes.empty()) {
            return;
        }
        const auto more = mistakes.size() - 1;
        add({.kind = Kind::settings,
             .tone = Tone::warning,
             .symbol = "warn",
             .title = tr("The settings file has a mistake"),
             .detail = mistakes.front().text() +
                       (more == 0 ? ""
                                  : " " + trn("{} more line is ignored.", "{} more lines are ignored.",
                                              static_cast<std::int64_t>(more))),
             .actions = {{Deed::openSettingsFile, tr("Open file")}}});
    }

    void missionControl() {
        if (m_context.offersMissionControlFix) {
            add({.kind = Kind::missionControl,
                 .tone = Tone::warning,
                 .symbol = "warn",
                 .title = tr("Mission Control moves windows"),
                 .detail = tr("Two of its settings let windows leave their places."),
                 .actions = {{Deed::fixMissionControl, tr("Keep Spaces in place")}}});
        }
    }

    void drift(std::size_t moved) {
        if (m_state.phase.is<Phase::Restoring>() || !m_state.hasPermission ||
            !m_state.entitlement.isEntitled() || !m_state.enabled) {
            return;
        }
        if (const auto& nudge = m_state.driftNudge) {
            add({.kind = Kind::drift,
                 .tone = Tone::accent,
                 .symbol = "move",
                 .title = trn("{0} window has moved since “{1}”", "{0} windows have moved since “{1}”",
                              nudge->movedCount, nudge->sceneName),
                 .actions = {{Deed::reapplyScene, tr("Put back")}}});
        } else if (moved > 0) {
            add({.kind = Kind::drift,
                 .tone = Tone::accent,
                 .symbol = "move",
                 .title =
                     trn("{} window has moved", "{} windows have moved", static_cast<std::int64_t>(moved)),
                 .actions = {{Deed::putBack, tr("Put back")}}});
        }
    }

    void sameDesk() {
        if (const auto& offer = m_state.sameDeskOffer) {
            add({.kind = Kind::sameDesk,
                 .tone = Tone::accent,
                 .symbol = "monitor",
                 .title = trf("Is this “{}”?", offer->name),
                 .detail = tr("The displays look the same, but are connected differently."),
                 .actions = {{Deed::joinDesks, tr("It is the same")}}});
        }
    }

    void suggestion() {
        if (m_state.patternSuggestion && m_state.patternSuggestion->configID == m_state.configID) {
            add({.kind = Kind::suggestion,
                 .tone = Tone::accent,
                 .symbol = "scenes",
                 .title = tr("You often arrange windows like this"),
                 .detail = tr("As a scene it is one key away."),
                 .actions = {{Deed::saveAsScene, tr("Save as scene")},
                             {Deed::stopSuggesting, tr("Stop suggesting scenes")}}});
        }
    }

    void calendar() {
        if (m_state.calendarAccessNeeded) {
            add({.kind = Kind::calendar,
                 .tone = Tone::warning,
                 .symbol = "calendar",
                 .title = tr("The calendar cannot be read"),
                 .detail = tr("Scenes that wait for a video call are not applied.")});
        }
    }

    void switcherTip() {
        const bool hasShortcut = std::ranges::any_of(m_state.hotKeys, [](const HotKeyStatus& status) {
            return status.taken.surface.kind == HotKeySurface::Kind::quickSwitcher;
        });
        if (!m_context.isSwitcherTipDismissed && !hasShortcut &&
            SceneRail::scenes(m_state.configID, m_state.scenes).size() >= 2) {
            add({.kind = Kind::switcherTip,
                 .tone = Tone::accent,
                 .symbol = "scenes",
                 .title = tr("Switch scenes with one shortcut"),
                 .detail = tr("Hold it, choose a scene, release."),
                 .actions = {{Deed::recordSwitcherShortcut, tr("Record shortcut")}}});
        }
    }

    void crashReports() {
        if (m_context.crashReports > 0) {
            add({.kind = Kind::crashReports,
                 .symbol = "info",
                 .title = trn("{} crash report waiting", "{} crash reports waiting",
                              static_cast<std::int64_t>(m_context.crashReports)),
                 .detail = tr("They say where the program failed, nothing about your windows."),
                 .actions = {{Deed::sendCrashReports, tr("Send")}}});
        }
    }

    void update() {
        if (m_state.latestAvailable) {
            add({.kind = Kind::update,
                 .tone = Tone::accent,
                 .symbol = "download",
                 .title = UpdateOffer::caption(*m_state.latestAvailable),
                 .actions = {{Deed::showUpdate, tr("Show")}}});
        }
    }

    const PublishedState& m_state;
    const PanelContent::Context& m_context;
    std::vector<Message> m_messages;
};

} // namespace

std::vector<PanelContent::Message> of(const PublishedState& state, const PanelContent::Context& context,
                                      std::size_t moved) {
    return Collector(state, context).all(moved);
}

} // namespace vantrel::PanelMessages
