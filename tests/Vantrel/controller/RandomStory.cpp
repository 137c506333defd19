#include "tests/Vantrel/controller/RandomStory.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <expected>
#include <fmt/format.h>
#include <iterator>
#include <optional>
#include <utility>

namespace vantrel::simulated {

namespace {

const std::vector<std::string> allSetups{"laptop",           "laptop-and-monitor",
                                         "laptop-and-twins", "laptop-and-twins-on-other-ports",
                                         "three-monitors",   "ultrawide-left"};

constexpr double nightSeconds = 10 * 3600;
constexpr int chapters = 9;

// The window manager is done with a change after so many seconds.
constexpr double longestMeddling = 4;

} // namespace

RandomStory::RandomStory(std::uint64_t seed)
    : m_random(seed), m_story(allSetups[seed % allSetups.size()], seed), m_setups(allSetups) {
    std::ranges::shuffle(m_setups, m_random);
    m_setups.resize(3);
    populate();
    m_story.time.onRun = [this](WorkPriority priority) {
        if (priority == WorkPriority::writing) {
            return;
        }
        const AppController& controller = *m_story.controller;
        expect(!m_story.time.hasJobs(), "one restore or capture at a time");
        // A pinned layout is looked at before learning resumes.
        const bool isSuspended = controller.snapshotsSuspended() && !controller.published().activePinned;
        expect(priority != WorkPriority::utility || (!isSuspended && !controller.restoreInFlight()),
               "nothing is captured for learning while suspended or restoring");
        expect(priority != WorkPriority::utility ||
                   (!m_story.system.isAway() && m_story.license.entitlement().isEntitled()),
               "nothing is captured for learning while locked, asleep or not entitled");
    };
}

std::string RandomStory::deskOf(const std::vector<DisplayInfo>& displays) {
    std::vector<Rect> frames;
    std::ranges::transform(displays, std::back_inserter(frames), &DisplayInfo::frame);
    std::ranges::sort(frames, {}, [](const Rect& frame) { return std::pair(frame.minX(), frame.minY()); });
    std::string desk;
    for (const Rect& frame : frames) {
        desk += fmt::format("{},{} {}x{};", frame.minX(), frame.minY(), frame.width(), frame.height());
    }
    return desk;
}

void RandomStory::begin() {
    m_story.start();
    m_story.controller->addObserver([this](Topics /*changed*/) {
        checkPhase();
        watchRestore();
    });
    m_story.desk.onMove = [this] {
        // Others change their size when they are asked to stay as they are.
        const bool isTame = std::ranges::any_of(
            m_tame, [&](const auto& tame) { return tame.second == m_story.desk.moves().back(); });
        if (isTame && m_story.controller && m_story.controller->restoreInFlight()) {
            m_logBeforeMove = m_story.controller->restoreLog();
            m_movedByRestore.insert(m_story.desk.moves().back());
        }
    };
}

double RandomStory::seconds(double from, double to) {
    return from + (to - from) * static_cast<double>(below(1000)) / 1000;
}

Rect RandomStory::somewhere() {
    const auto& displays = m_story.desk.displays();
    const Rect display = displays[below(displays.size())].frame;
    const Size size{200 + static_cast<double>(below(60)) * 10, 150 + static_cast<double>(below(40)) * 10};
    return {{display.minX() + static_cast<double>(below(40)) * 10,
             display.minY() + static_cast<double>(below(30)) * 10},
            size};
}

Burst RandomStory::someBurst() {
    return {.events = 1 + static_cast<int>(below(12)),
            .spacing = seconds(0.001, 0.2),
            .reportsNoDisplays = happens(30)};
}

void RandomStory::populate() {
    const auto newTitle = [this] { return fmt::format("window {}", ++m_windowsOpened); };
    for (const char* name : {"browser", "editor", "mail"}) {
        const auto pid = m_story.desk.launch(std::string("org.example.") + name, name);
        for (std::size_t i = 0; i <= below(3); ++i) {
            const std::string title = newTitle();
            m_tame[title] = m_story.desk.open(pid, title, somewhere(), {.answerSeconds = seconds(0, 0.03)});
        }
    }
    const WindowBehaviour wild[] = {{.driftsBack = 1 + static_cast<int>(below(20)), .driftDelay = 0},
                                    {.driftsBack = 3},
                                    {.refusesMoves = true},
                                    {.minimumSize = Size{500, 400}},
                                    {.sizeIncrement = Size{7, 13}},
                                    {.answerSeconds = seconds(0.05, 0.3)},
                                    {.vanishesWhenMoved = true}};
    for (std::size_t i = 0; i < below(4); ++i) {
        const auto pid = m_story.desk.launch(fmt::format("org.example.wild{}", i), "wild");
        m_story.desk.open(pid, newTitle(), somewhere(), wild[below(std::size(wild))]);
    }
    if (happens(50)) {
        m_story.desk.habits.rescueDelay = seconds(0.001, 0.2);
        m_story.desk.habits.meddlingDelays = {seconds(0.3, 2), seconds(2, longestMeddling)};
    }
}

void RandomStory::tell() {
    begin();
    m_story.runFor(seconds(0, 40));
    comeToRest();
    for (int chapter = 0; chapter < chapters && m_breaches.empty(); ++chapter) {
        tellChapter();
    }
}

void RandomStory::tellWeek() {
    begin();
    comeToRest();
    for (int day = 0; day < 7 && m_breaches.empty(); ++day) {
        tellDay();
        m_told.push_back(fmt::format("{:.1f} s: night", m_story.time.monotonicSeconds()));
        // The story's time goes on while it sleeps, which a machine's does not: most of the night is locked.
        m_story.system.setLocked(true);
        m_story.runFor(nightSeconds);
        m_story.system.setAsleep(true);
        m_story.runFor(5);
        m_story.system.setAsleep(false);
        m_story.system.setLocked(false);
        comeToRest();
    }
}

void RandomStory::tellDay() {
    for (int docking = 0; docking < 30 && m_breaches.empty(); ++docking) {
        changeDisplays();
        comeToRest();
        checkAtRest();
        tellChapter();
        m_story.runFor(seconds(200, 1200));
        noteWhatStands();
        checkOnlyWhatStoodIsStored();
    }
}

void RandomStory::tellChapter() {
    using Chapter = void (RandomStory::*)();
    const std::pair<const char*, Chapter> kinds[] = {
        {"displays change", &RandomStory::changeDisplays},
        {"displays change", &RandomStory::changeDisplays},
        {"displays change", &RandomStory::changeDisplays},
        {"the user moves", &RandomStory::userMovesWindows},
        {"the user moves", &RandomStory::userMovesWindows},
        {"the user restores", &RandomStory::userRestores},
        {"the user saves", &RandomStory::userSaves},
        {"sleep or lock", &RandomStory::machineSleeps},
        {"license runs out", &RandomStory::licenseRunsOut},
        {"the clock jumps", &RandomStory::clockJumps},
        {"settle delay", &RandomStory::settleDelayChanges},
        {"windows", &RandomStory::windowsComeAndGo},
        {"a program is launched", &RandomStory::programIsLaunched},
        {"disk fails", &RandomStory::diskFailsForAWhile},
        {"triggers", &RandomStory::triggersFire},
        {"undo", &RandomStory::userUndoes},
        {"undo", &RandomStory::userUndoes},
        {"stash", &RandomStory::userStashesAndBringsBack},
        {"layouts", &RandomStory::userSwitchesLayouts},
        {"scenes", &RandomStory::userAppliesScenes},
        {"scenes", &RandomStory::userAppliesScenes},
        {"the user pins", &RandomStory::userPinsTheLayout},
        {"nothing may be moved", &RandomStory::nothingMayBeMoved}};
    const auto& [name, chapter] = kinds[below(std::size(kinds))];
    m_told.push_back(fmt::format("{:.1f} s: {}", m_story.time.monotonicSeconds(), name));
    (this->*chapter)();
    comeToRest();
    checkAtRest();
    if (happens(50)) {
        m_story.learn();
        noteWhatStands();
        checkOnlyWhatStoodIsStored();
    }
}

void RandomStory::changeDisplays() {
    for (std::size_t changes = 1 + below(3); changes > 0; --changes) {
        const std::string& setup = m_setups[below(m_setups.size())];
        m_told.push_back(fmt::format("{:.3f} s: -> {}", m_story.time.monotonicSeconds(), setup));
        noteWhatStands();
        const Burst burst = someBurst();
        m_story.desk.change(DeskSetup::named(setup), burst);
        m_restlessUntil = m_story.time.monotonicSeconds() + burst.events * burst.spacing + longestMeddling;
        if (changes > 1) {
            m_story.runFor(happens(50) ? seconds(0, 1) : seconds(0, 13));
        }
    }
    m_hasRestoredDesk = true;
}

void RandomStory::machineSleeps() {
    const bool isLocked = happens(50);
    m_story.system.setLocked(isLocked);
    m_story.runFor(happens(50) ? seconds(0, 20) : 0);
    const bool isSleeping = !isLocked || happens(50);
    m_story.system.setAsleep(isSleeping);
    // Nothing can be moved behind some lock screens.
    const bool stopsPrograms = happens(50);
    setTameHanging(stopsPrograms);
    m_story.runFor(seconds(0, 5));
    if (happens(50)) {
        changeDisplays();
    }
    if (!isLocked) {
        setTameHanging(false);
    }
    m_story.system.setAsleep(false);
    if (happens(30)) {
        m_story.runFor(seconds(0, 4));
        changeDisplays();
    }
    setTameHanging(false);
    m_story.system.setLocked(false);
}

void RandomStory::setTameHanging(bool isHanging) {
    for (const auto& [title, window] : m_tame) {
        m_story.desk.setHanging(m_story.desk.window(window).pid, isHanging);
    }
}

// Set by hand or by the network, to and fro; what is stored for days must not notice.
void RandomStory::clockJumps() {
    const auto jump = std::chrono::milliseconds(std::llround(seconds(-7200, 7200) * 1000));
    m_story.time.setWallClock(m_story.time.now() + jump);
    m_story.runFor(seconds(0, 60));
}

void RandomStory::licenseRunsOut() {
    m_story.license.setEntitled(false);
    m_story.runFor(seconds(0, 70));
    m_story.license.setEntitled(true);
}

void RandomStory::settleDelayChanges() {
    m_story.defaults.set(Settings::settleDelayKey, seconds(0.1, 2));
    if (happens(50)) {
        changeDisplays();
        m_story.runFor(seconds(0, 1));
        m_story.defaults.set(Settings::settleDelayKey, seconds(0.1, 2));
    }
}

void RandomStory::windowsComeAndGo() {
    m_hasRestoredDesk = false;
    const auto victim = std::next(m_tame.begin(), static_cast<std::ptrdiff_t>(below(m_tame.size())));
    const auto pid = m_story.desk.window(victim->second).pid;
    const std::string title = fmt::format("window {}", ++m_windowsOpened);
    m_tame[title] = m_story.desk.open(pid, title, somewhere());
    m_story.desk.close(victim->second);
    m_tame.erase(victim);
}

void RandomStory::programIsLaunched() {
    const char* const programs[] = {"org.example.browser", "org.example.editor", "org.example.mail"};
    const auto pid = m_story.desk.launch(programs[below(std::size(programs))], "launched");
    m_story.runFor(seconds(0, 8));
    const std::string title = fmt::format("window {}", ++m_windowsOpened);
    const auto window = m_story.desk.open(pid, title, somewhere());
    m_tame[title] = window;
    m_stood[deskOf(m_story.published().displays)][title].push_back(m_story.frame(window));
    m_story.runFor(seconds(0, 3));
    if (happens(40)) {
        changeDisplays();
    }
}

void RandomStory::diskFailsForAWhile() {
    m_story.files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    userMovesWindows();
    if (happens(50)) {
        changeDisplays();
    }
    comeToRest();
    m_story.files.stopFailing();
    // Nothing could be written down.
    m_logBeforeMove.reset();
}

void RandomStory::triggersFire() {
    m_hasRestoredDesk = false;
    const std::string name = m_story.published().configName.substr(0, 20);
    m_story.controller->scenes().saveCurrentAsScene(name, [](const SceneSaveOutcome&) {});
    m_story.runFor(5);
    const auto scenes = m_story.controller->scenes().scenesForCurrentDesk();
    if (scenes.empty() || m_triggersAdded == TriggerStore::maxTriggers) {
        return;
    }
    // The next minute that can still be looked at.
    const bool isSchedule = happens(50);
    const LocalTime next = m_story.zone.zone.localTime(m_story.time.now() + std::chrono::minutes{1});
    const SceneTrigger::Kind kind = isSchedule
                                        ? SceneTrigger::Kind(SceneTrigger::Schedule{next.hour, next.minute})
                                        : SceneTrigger::Kind(SceneTrigger::FocusMode{"Work"});
    const auto added = m_story.controller->triggers().addTrigger(kind, {scenes.front().id});
    expect(added.has_value(), "a trigger for a scene of this desk is taken");
    ++m_triggersAdded;
    userMovesWindows();
    const bool isDisturbed = happens(40);
    if (isDisturbed) {
        happens(50) ? changeDisplays() : machineSleeps();
        m_hasRestoredDesk = false;
    }
    if (!isSchedule) {
        m_story.focus.turnOn("Work");
    }
    m_story.runFor(130);
    const auto stored = m_story.published().triggers.back();
    expect(isDisturbed || stored.lastFiredAt.has_value(), "a trigger fires when nothing stands against it");
    expect(m_story.controller->triggers().deleteTrigger(stored.id).has_value(),
           "a trigger can be taken away");
    --m_triggersAdded;
}

void RandomStory::comeToRest() {
    m_story.runFor(restSeconds);
    noteWhatStands();
}

} // namespace vantrel::simulated
