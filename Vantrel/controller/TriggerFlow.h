// Applies scenes automatically: at times of day, before video calls, and when a Focus turns on.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "VantrelCore/model/Scene.h"
#include "VantrelCore/scenes/TriggerProblem.h"
#include "VantrelCore/stores/TriggerStore.h"

#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// Triggers neither fire nor count as fired while the user has switched the program off, it is not entitled to
// run, the machine is going to sleep, the displays are changing or windows cannot be moved. Missed triggers
// do not fire later. A locked session prevents nothing: the scene is in place when the user returns.
class TriggerFlow {
public:
    // In seconds.
    static constexpr double scheduleInterval = 30;
    static constexpr double calendarInterval = 180;
    // How long before an event starts its trigger fires, and how long the trigger then rests.
    static constexpr double calendarWindow = 60;
    static constexpr double calendarCooldown = 300;

    template <typename T>
    using Result = std::expected<T, TriggerProblem>;

    TriggerFlow(ControllerContext& context, TriggerStore& triggers);
    ~TriggerFlow();
    TriggerFlow(const TriggerFlow&) = delete;
    TriggerFlow& operator=(const TriggerFlow&) = delete;

    // Called with the scene of a trigger that fires and the reason to record.
    std::function<void(const Scene& scene, const std::string& reason)> onFire;

    // Starts checking, now and repeatedly.
    void start();

    // Adds one trigger per scene, all or none.
    Result<std::vector<SceneTrigger>> addTrigger(const SceneTrigger::Kind& kind,
                                                 const std::vector<std::string>& sceneIDs);
    // Changes what fires the trigger with this ID, the scene that it applies and whether it is on. Dates are
    // kept; but with another time of day it may fire today although it has fired today.
    Result<void> update(const SceneTrigger& trigger);
    Result<void> setTriggerEnabled(const std::string& id, bool isEnabled);
    Result<void> deleteTrigger(const std::string& id);

    // Publishes the triggers after the store has changed.
    void showStored();
    // Why there can be no such trigger; none if there can.
    [[nodiscard]] std::optional<TriggerProblem> problemWith(const SceneTrigger::Kind& kind,
                                                            const std::vector<std::string>& sceneIDs) const;

private:
    using Condition = std::function<bool(const SceneTrigger& trigger)>;

    void checkScheduleTriggers();
    void checkCalendarTriggers();
    void finishCalendarCheck(const CalendarReading& reading);
    void focusTurnedOn(const std::string& name);

    [[nodiscard]] bool mayFire();
    [[nodiscard]] std::optional<Date> lastFiredAt(const SceneTrigger& trigger) const;
    // Fires the enabled triggers that meet the condition. The log says "`area`: `cause`".
    void fireWhere(const Condition& isDue, const std::string& area, const std::string& reason,
                   const std::string& cause = {});
    // When each trigger fires next, by ID.
    [[nodiscard]] std::map<std::string, Date> nextFirings(const std::vector<SceneTrigger>& triggers);
    void showNextFirings();
    void readCalendarSoon();
    Result<void> changed(const TriggerStore::Result<void>& change);

    ControllerContext& m_context;
    TriggerStore& m_triggers;
    // Firings of this run, including those that could not be written.
    std::map<std::string, Date> m_fired;
    bool m_isReadingCalendar = false;
    // A trigger was added while the calendar was being read.
    bool m_readsCalendarAgain = false;
    std::unique_ptr<ScheduledWork> m_scheduleTimer;
    std::unique_ptr<ScheduledWork> m_calendarTimer;
    // Expires with the flow, so that a late reply to the permission request does nothing.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
