// Applies scenes by itself: at times of day, before video calls, and when a Focus turns on.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "VantrelCore/model/Scene.h"
#include "VantrelCore/scenes/TriggerProblem.h"
#include "VantrelCore/stores/TriggerStore.h"

#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

// No trigger fires, and none counts as fired, while the user has switched the program off, it is not entitled
// to run, the machine goes to sleep, the displays are changing or windows cannot be moved. What was missed is
// not caught up. A locked session hinders nothing: the scene is there when the user comes back.
class TriggerFlow {
public:
    // In seconds.
    static constexpr double scheduleInterval = 30;
    static constexpr double calendarInterval = 180;
    // How long before its start an event fires, and how long the same trigger then rests.
    static constexpr double calendarWindow = 60;
    static constexpr double calendarCooldown = 300;

    template <typename T>
    using Result = std::expected<T, TriggerProblem>;

    TriggerFlow(ControllerContext& context, TriggerStore& triggers);
    ~TriggerFlow();
    TriggerFlow(const TriggerFlow&) = delete;
    TriggerFlow& operator=(const TriggerFlow&) = delete;

    // Called with the scene of a trigger that fires and the reason to note.
    std::function<void(const Scene& scene, const std::string& reason)> onFire;

    // Begins to check, now and repeatedly.
    void start();

    // One trigger for every scene, all or none.
    Result<std::vector<SceneTrigger>> addTrigger(const SceneTrigger::Kind& kind,
                                                 const std::vector<std::string>& sceneIDs);
    Result<void> setTriggerEnabled(const std::string& id, bool isEnabled);
    Result<void> deleteTrigger(const std::string& id);

    // Publishes the triggers after the store has changed.
    void showStored();

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
    [[nodiscard]] std::optional<TriggerProblem> problemWith(const SceneTrigger::Kind& kind,
                                                            const std::vector<std::string>& sceneIDs);
    Result<void> changed(const TriggerStore::Result<void>& change);

    ControllerContext& m_context;
    TriggerStore& m_triggers;
    // Firings of this run, also those that could not be written.
    std::map<std::string, Date> m_fired;
    bool m_isReadingCalendar = false;
    // A trigger was added while the calendar was being read.
    bool m_readsCalendarAgain = false;
    std::unique_ptr<ScheduledWork> m_scheduleTimer;
    std::unique_ptr<ScheduledWork> m_calendarTimer;
    // Expires with the flow, so that an answer of the user that comes later finds nobody.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
