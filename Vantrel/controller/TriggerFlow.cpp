#include "Vantrel/controller/TriggerFlow.h"

#include "VantrelCore/model/FreshUUID.h"
#include "VantrelCore/scenes/FiredTriggers.h"
#include "VantrelCore/scenes/MeetingLinks.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/scenes/TriggerEvaluator.h"
#include "VantrelCore/scenes/TriggerSchedule.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <fmt/format.h>
#include <tuple>
#include <utility>

namespace vantrel {

namespace {

// EventKit and the files of other systems exclude the end of an interval.
constexpr double querySlack = 1;

bool isCalendarTrigger(const SceneTrigger& trigger) {
    return std::holds_alternative<SceneTrigger::CalendarVideoEvent>(trigger.kind);
}

bool hasVideoLink(const CalendarEvent& event) {
    return MeetingLinks::hasVideoLink({.location = event.location, .notes = event.notes, .url = event.url});
}

bool waitForCalendar(const std::vector<SceneTrigger>& triggers) {
    return std::ranges::any_of(
        triggers, [](const SceneTrigger& trigger) { return trigger.enabled && isCalendarTrigger(trigger); });
}

std::string logLine(const std::string& area, const std::string& cause, const FiredTrigger& fired) {
    using Outcome = FiredTrigger::Outcome;
    const std::string what = cause.empty() ? SceneTriggerFormatting::title(fired.trigger.kind) : cause;
    switch (fired.outcome) {
    case Outcome::applied:
        return fmt::format("{} fired: {}: \"{}\"", area, what, fired.scene->name);
    case Outcome::passedOver:
        return fmt::format("{} passed over: {}: \"{}\" was saved on another desk, and a scene of this desk "
                           "is applied",
                           area, what, fired.scene->name);
    case Outcome::sceneGone:
        return fmt::format("{} passed over: {}: its scene no longer exists", area, what);
    }
    return "";
}

} // namespace

TriggerFlow::TriggerFlow(ControllerContext& context, TriggerStore& triggers)
    : m_context(context), m_triggers(triggers) {
    m_context.publisher.publish<ScenesTopic>([&](auto& scenes) {
        scenes.triggers = m_triggers.allTriggers();
        scenes.nextFirings = nextFirings(scenes.triggers);
    });
}

TriggerFlow::~TriggerFlow() {
    m_context.ports.focus.setHandler({});
}

void TriggerFlow::start() {
    m_scheduleTimer = m_context.ports.mainQueue.every(scheduleInterval, [this] { checkScheduleTriggers(); });
    checkScheduleTriggers();
    m_calendarTimer = m_context.ports.mainQueue.every(calendarInterval, [this] { checkCalendarTriggers(); });
    checkCalendarTriggers();
    m_context.ports.focus.setHandler([this](const std::string& name) { focusTurnedOn(name); });
}

bool TriggerFlow::mayFire() {
    return !m_context.gate.isAsleep() && !m_context.hindranceToMoving();
}

std::optional<Date> TriggerFlow::lastFiredAt(const SceneTrigger& trigger) const {
    const auto found = m_fired.find(trigger.id);
    return found != m_fired.end() ? found->second : trigger.lastFiredAt;
}

void TriggerFlow::checkScheduleTriggers() {
    const Date now = m_context.ports.clock.now();
    const TimeZone zone = m_context.ports.localZone.current();
    const auto isDue = [&](const SceneTrigger& trigger) {
        const auto* const time = std::get_if<SceneTrigger::Schedule>(&trigger.kind);
        return time != nullptr && TriggerEvaluator::shouldFireSchedule(time->hour, time->minute, now,
                                                                       lastFiredAt(trigger), zone);
    };
    fireWhere(isDue, "schedule trigger", "trigger schedule");
    showNextFirings();
}

std::map<std::string, Date> TriggerFlow::nextFirings(const std::vector<SceneTrigger>& triggers) {
    const Date now = m_context.ports.clock.now();
    const TimeZone zone = m_context.ports.localZone.current();
    std::map<std::string, Date> next;
    for (SceneTrigger trigger : triggers) {
        trigger.lastFiredAt = lastFiredAt(trigger);
        if (const auto date = TriggerSchedule::nextFiring(trigger, now, zone)) {
            next[trigger.id] = *date;
        }
    }
    return next;
}

// Recomputed because time passes and the user's time zone may change.
void TriggerFlow::showNextFirings() {
    auto next = nextFirings(m_context.state().triggers);
    if (next != m_context.state().nextFirings) {
        m_context.publisher.publish<ScenesTopic>([&](auto& scenes) { scenes.nextFirings = std::move(next); });
    }
}

void TriggerFlow::checkCalendarTriggers() {
    if (!waitForCalendar(m_context.state().triggers) || m_isReadingCalendar) {
        m_readsCalendarAgain = m_isReadingCalendar;
        return;
    }
    m_isReadingCalendar = true;
    const Date now = m_context.ports.clock.now();
    const CalendarQuery query{.from = now,
                              .to = dateAfter(now, calendarWindow + querySlack),
                              .zone = m_context.ports.localZone.current(),
                              .folders = m_context.settings.calendarFolders(),
                              .stop = m_context.ports.background.stopToken()};
    m_context.inBackground(
        WorkPriority::utility, [query, &calendar = m_context.ports.calendar] { return calendar.read(query); },
        [this](const std::optional<CalendarReading>& reading) {
            m_isReadingCalendar = false;
            if (reading) {
                finishCalendarCheck(*reading);
            }
            if (std::exchange(m_readsCalendarAgain, false)) {
                checkCalendarTriggers();
            }
        });
}

void TriggerFlow::finishCalendarCheck(const CalendarReading& reading) {
    m_context.publisher.publish<ScenesTopic>([&](auto& scenes) {
        scenes.calendarAccessNeeded = !reading.hasAccess && waitForCalendar(scenes.triggers);
    });
    for (const CalendarEvent& event : reading.events) {
        if (!hasVideoLink(event)) {
            continue;
        }
        const Date now = m_context.ports.clock.now();
        const auto isDue = [&](const SceneTrigger& trigger) {
            return isCalendarTrigger(trigger) &&
                   TriggerEvaluator::shouldFireCalendarEvent(event.start, now, lastFiredAt(trigger),
                                                             calendarWindow, calendarCooldown);
        };
        fireWhere(isDue, "calendar trigger", "trigger calendar event",
                  fmt::format("video event starting {} ({})", iso8601Text(event.start), event.title));
    }
}

void TriggerFlow::focusTurnedOn(const std::string& name) {
    const auto isDue = [&](const SceneTrigger& trigger) {
        const auto* const focus = std::get_if<SceneTrigger::FocusMode>(&trigger.kind);
        return focus != nullptr && Unicode::lowercased(focus->name) == Unicode::lowercased(name);
    };
    fireWhere(isDue, "focus trigger", "trigger focus");
}

void TriggerFlow::fireWhere(const Condition& isDue, const std::string& area, const std::string& reason,
                            const std::string& cause) {
    std::vector<SceneTrigger> due;
    for (const SceneTrigger& trigger : m_context.state().triggers) {
        if (trigger.enabled && isDue(trigger)) {
            due.push_back(trigger);
        }
    }
    if (due.empty() || !mayFire()) {
        return;
    }
    // Before any scene is applied: the trigger has fired, whatever happens next.
    const Date now = m_context.ports.clock.now();
    for (const SceneTrigger& trigger : due) {
        m_fired[trigger.id] = now;
        std::ignore =
            m_triggers.recordFired(trigger.id, now, Saving::later([this, area](bool isWritten) {
                                       if (!isWritten) {
                                           m_context.log(area + ": the time it fired could not be saved");
                                           showStored();
                                       }
                                   }));
    }
    showStored();
    for (const FiredTrigger& fired :
         FiredTriggers::outcomes(due, m_context.state().scenes, m_context.state().configID)) {
        m_context.log(logLine(area, cause, fired));
        if (fired.outcome == FiredTrigger::Outcome::applied && onFire) {
            onFire(*fired.scene, reason);
        }
    }
}

std::optional<TriggerProblem> TriggerFlow::problemWith(const SceneTrigger::Kind& kind,
                                                       const std::vector<std::string>& sceneIDs) const {
    const auto* const time = std::get_if<SceneTrigger::Schedule>(&kind);
    if (time != nullptr && (time->hour < 0 || time->hour > 23 || time->minute < 0 || time->minute > 59)) {
        return TriggerProblem::invalidTime;
    }
    const auto* const focus = std::get_if<SceneTrigger::FocusMode>(&kind);
    if (focus != nullptr && Unicode::trimmed(focus->name).empty()) {
        return TriggerProblem::noFocusName;
    }
    if (sceneIDs.empty()) {
        return TriggerProblem::noScene;
    }
    const auto exists = [&](const std::string& id) {
        const auto& scenes = m_context.state().scenes;
        return std::ranges::find(scenes, id, &Scene::id) != scenes.end();
    };
    if (!std::ranges::all_of(sceneIDs, exists)) {
        return TriggerProblem::sceneNotFound;
    }
    return std::nullopt;
}

TriggerFlow::Result<std::vector<SceneTrigger>>
TriggerFlow::addTrigger(const SceneTrigger::Kind& kind, const std::vector<std::string>& sceneIDs) {
    if (const auto problem = problemWith(kind, sceneIDs)) {
        return std::unexpected(*problem);
    }
    std::vector<SceneTrigger> added;
    for (const std::string& sceneID : sceneIDs) {
        added.push_back({.id = freshUUID(),
                         .kind = kind,
                         .sceneID = sceneID,
                         .enabled = true,
                         .createdAt = m_context.ports.clock.now(),
                         .lastFiredAt = std::nullopt});
    }
    if (const auto result = m_triggers.addAll(added); !result) {
        return std::unexpected(triggerProblem(result.error()));
    }
    showStored();
    if (std::holds_alternative<SceneTrigger::CalendarVideoEvent>(kind)) {
        readCalendarSoon();
    }
    return added;
}

void TriggerFlow::readCalendarSoon() {
    m_context.ports.calendar.requestAccessIfNeeded([this, alive = std::weak_ptr(m_alive)] {
        if (alive.lock()) {
            checkCalendarTriggers();
        }
    });
}

TriggerFlow::Result<void> TriggerFlow::update(const SceneTrigger& trigger) {
    const auto stored = m_triggers.trigger(trigger.id);
    if (!stored) {
        return std::unexpected(TriggerProblem::notFound);
    }
    if (const auto problem = problemWith(trigger.kind, {trigger.sceneID})) {
        return std::unexpected(*problem);
    }
    SceneTrigger changedTrigger = *stored;
    changedTrigger.kind = trigger.kind;
    changedTrigger.sceneID = trigger.sceneID;
    changedTrigger.enabled = trigger.enabled;
    const auto result = changed(m_triggers.update(changedTrigger));
    if (result && trigger.enabled && isCalendarTrigger(trigger)) {
        readCalendarSoon();
    }
    return result;
}

TriggerFlow::Result<void> TriggerFlow::setTriggerEnabled(const std::string& id, bool isEnabled) {
    return changed(m_triggers.setEnabled(id, isEnabled));
}

TriggerFlow::Result<void> TriggerFlow::deleteTrigger(const std::string& id) {
    const auto triggers = m_triggers.allTriggers();
    const auto found = std::ranges::find(triggers, id, &SceneTrigger::id);
    if (found == triggers.end()) {
        return std::unexpected(TriggerProblem::notFound);
    }
    m_triggers.deleteTrigger(id);
    if (m_triggers.trigger(id)) {
        return std::unexpected(TriggerProblem::writeFailed);
    }
    const auto index = static_cast<std::size_t>(found - triggers.begin());
    SceneTrigger deleted = *found;
    deleted.lastFiredAt = lastFiredAt(deleted);
    m_context.deletions.add(trf("the trigger \"{}\"", SceneTriggerFormatting::title(deleted.kind)),
                            [this, deleted, index]() -> std::expected<void, std::string> {
                                if (const auto back = changed(m_triggers.addAll({deleted}, index)); !back) {
                                    return std::unexpected(text(back.error()));
                                }
                                return {};
                            });
    m_fired.erase(deleted.id);
    showStored();
    return {};
}

TriggerFlow::Result<void> TriggerFlow::changed(const TriggerStore::Result<void>& change) {
    if (!change) {
        return std::unexpected(triggerProblem(change.error()));
    }
    showStored();
    return {};
}

void TriggerFlow::showStored() {
    m_context.publisher.publish<ScenesTopic>([&](auto& scenes) {
        ++scenes.triggersVersion;
        scenes.triggers = m_triggers.allTriggers();
        scenes.nextFirings = nextFirings(scenes.triggers);
        scenes.calendarAccessNeeded = scenes.calendarAccessNeeded && waitForCalendar(scenes.triggers);
    });
}

} // namespace vantrel
