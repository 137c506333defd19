// A story made from a seed: displays come and go, programs misbehave, the user moves windows, saves and
// restores, programs are launched, the machine sleeps or is locked, the disk fails, the permission is
// revoked. After every chapter the controller's laws are checked against what really happened.
#pragma once

#include "tests/Vantrel/controller/Story.h"

#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vantrel::simulated {

class RandomStory {
public:
    explicit RandomStory(std::uint64_t seed);

    // For what else takes part, before the story begins.
    [[nodiscard]] Story& story() { return m_story; }

    // Tells all chapters, or up to the first that breaks a law.
    void tell();
    // Seven days of thirty dockings, each with something else in between, and the nights locked.
    void tellWeek();

    // What broke, in words; empty while every law held.
    [[nodiscard]] const std::vector<std::string>& breaches() const { return m_breaches; }
    // What was told, chapter by chapter, and the controller's own log.
    [[nodiscard]] std::string transcript();

private:
    using Frames = std::vector<Rect>;

    // Longer than learning stays suspended and than every late move of the window manager.
    static constexpr double restSeconds = 26;

    [[nodiscard]] std::size_t below(std::size_t bound) { return m_random() % bound; }
    [[nodiscard]] bool happens(std::size_t percent) { return below(100) < percent; }
    [[nodiscard]] double seconds(double from, double to);
    [[nodiscard]] Rect somewhere();
    [[nodiscard]] Burst someBurst();

    void populate();
    void begin();
    void tellDay();
    void tellChapter();
    void changeDisplays();
    void userMovesWindows();
    void userRestores();
    void userSaves();
    void machineSleeps();
    void setTameHanging(bool isHanging);
    void licenseRunsOut();
    void clockJumps();
    void settleDelayChanges();
    void windowsComeAndGo();
    void programIsLaunched();
    void diskFailsForAWhile();
    void triggersFire();
    void userUndoes();
    void userStashesAndBringsBack();
    void userSwitchesLayouts();
    void userAppliesScenes();
    void userPinsTheLayout();
    void nothingMayBeMoved();
    // Undone, overtaken by another scene or by displays; false when it is left alone.
    bool somethingComesBetween();

    void comeToRest();
    // Notes where everything is, unless displays or window manager are still at work.
    void noteWhatStands();
    void checkAtRest();
    void checkEverythingIsAtItsSavedPlace();
    void checkOnlyWhatStoodIsStored();
    void checkPhase();
    // A restore that moved windows is in the history and can be undone.
    void checkTracesOfRestores();
    // Forgets the moves of a restore that only undid what the window manager did meanwhile: every window that
    // it moved stands where it stood before, so there is nothing to undo.
    void watchRestore();
    void userAsksForAnotherArrangement(const Layout& pinned);
    // What the program says it has stored is on disk, and nothing that once was is lost.
    void checkStores();
    // Every window of the layout that is still there stands as in the layout, to within so many points.
    void checkStands(const Layout& layout, const std::string& law, double tolerance = 0);
    void expect(bool holds, const std::string& law);
    // A desk by the places of its displays, which stay the same on other connectors.
    [[nodiscard]] static std::string deskOf(const std::vector<DisplayInfo>& displays);

    std::mt19937_64 m_random;
    Story m_story;
    std::vector<std::string> m_setups;
    // Windows of programs that do as they are told, by title; every title is used once.
    std::map<std::string, WindowID> m_tame;
    // Where each of them has stood, or was put by the user, on each desk.
    std::map<std::string, std::map<std::string, Frames>> m_stood;
    // Desk and name of every layout that was stored and not deleted.
    std::set<std::pair<std::string, std::string>> m_storedLayouts;
    std::int64_t m_restoresCounted = 0;
    std::vector<std::string> m_told;
    std::vector<std::string> m_breaches;
    // When displays and window manager are done with the last change.
    double m_restlessUntil = 0;
    int m_windowsOpened = 0;
    bool m_hasRestoredDesk = false;
    // The history when a restore last moved a window, unless its traces were looked for since.
    std::optional<RestoreLog> m_logBeforeMove;
    struct DeskBefore {
        std::map<WindowID, Rect> frames;
        std::optional<RestoreLog> logBeforeMove;
    };
    // How the restore that is running found the desk, and what it has moved since.
    std::optional<DeskBefore> m_beforeRestore;
    std::set<WindowID> m_movedByRestore;
    std::size_t m_triggersAdded = 0;
};

} // namespace vantrel::simulated
