// The chapters in which the user moves, saves, restores, undoes, stashes and switches.
#include "tests/Vantrel/controller/RandomStory.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <optional>
#include <utility>

namespace vantrel::simulated {

void RandomStory::userMovesWindows() {
    m_hasRestoredDesk = false;
    for (const auto& [title, window] : m_tame) {
        if (happens(40)) {
            m_story.move(window, somewhere());
            m_stood[deskOf(m_story.published().displays)][title].push_back(m_story.frame(window));
        }
    }
    m_story.runFor(seconds(0, 70));
}

void RandomStory::userRestores() {
    using Kind = RestoreOutcome::Kind;
    constexpr RestoreSource sources[] = {RestoreSource::menu, RestoreSource::hotKey, RestoreSource::shortcut};
    std::vector<std::vector<Kind>> answers(1 + below(4));
    bool isAccepted = false;
    std::size_t source = 0;
    for (auto& answer : answers) {
        source = (source + below(3)) % std::size(sources);
        isAccepted = m_story.controller->restoreNow(
            sources[source], [&](const RestoreOutcome& outcome) { answer.push_back(outcome.kind); });
        m_story.runFor(seconds(0, 0.05));
    }
    const bool isOvertaken = happens(30);
    if (isOvertaken) {
        changeDisplays();
    }
    m_story.runFor(restSeconds);
    for (const auto& answer : answers) {
        expect(answer.size() == 1, "who wants to restore is answered once");
    }
    if (isAccepted && !isOvertaken) {
        constexpr const char* names[] = {"menu", "hotkey", "shortcut"};
        expect(answers.back() == std::vector{Kind::finished} &&
                   m_story.published().lastRestore->reason == fmt::format("restore now ({})", names[source]),
               "the newest of the queued restores is performed");
    }
}

void RandomStory::userSaves() {
    int answers = 0;
    m_story.controller->saveLayoutNow([&](const SaveOutcome&) { ++answers; });
    if (happens(30)) {
        m_story.runFor(seconds(0, 0.01));
        changeDisplays();
    }
    m_story.runFor(5);
    expect(answers == 1, "who wants to save is answered once");
}

void RandomStory::userUndoes() {
    const UndoSlot* const offered = m_story.published().applicableUndo();
    const auto slot = offered != nullptr ? std::optional(*offered) : std::nullopt;
    int answers = 0;
    const bool isAccepted = m_story.controller->undoLastRestore([&](const RestoreOutcome&) { ++answers; });
    m_story.runFor(10);
    expect(isAccepted == slot.has_value() && answers == 1, "undo does what it offers and answers once");
    if (slot) {
        m_hasRestoredDesk = false;
        checkStands(slot->layout, "undo brings back exactly what was there");
        expect(m_story.published().undoSlot == std::nullopt, "what is undone is not undone again");
    }
}

void RandomStory::userStashesAndBringsBack() {
    StashFlow::Result stash = std::unexpected(SaveOutcome::Kind::saved);
    m_story.controller->stashes().stashNow([&](const StashFlow::Result& told) { stash = told; });
    m_story.runFor(5);
    if (!stash) {
        expect(false, "a desk with windows can be put aside");
        return;
    }
    // Not all of them: a window manager that rescues nothing leaves windows where no display is.
    std::vector<WindowRecord> seen = stash->layout.windows;
    std::erase_if(seen, [this](const WindowRecord& saved) {
        return !m_tame.contains(saved.title) || !m_story.desk.shows(saved.frame.center());
    });
    userMovesWindows();
    if (happens(30)) {
        changeDisplays();
        comeToRest();
    }
    const bool isAccepted = m_story.controller->stashes().bringBack(stash->id, {});
    expect(isAccepted, "what was put aside can be brought back");
    m_story.runFor(10);
    m_hasRestoredDesk = false;
    if (stash->configID == m_story.published().configID) {
        checkStands(stash->layout, "what was put aside comes back exactly");
    }
    for (const WindowRecord& saved : seen) {
        expect(m_story.desk.shows(m_story.frame(m_tame.at(saved.title)).center()),
               "what comes back can be seen");
    }
}

void RandomStory::userSwitchesLayouts() {
    LayoutFlow& layouts = m_story.controller->layouts();
    const std::string former = m_story.published().activeLayoutName;
    const auto other = std::ranges::find_if(m_story.published().currentLayouts, [&](const Layout& layout) {
        return layout.layoutName != former;
    });
    if (other == m_story.published().currentLayouts.end()) {
        layouts.saveLayoutAs("another", {});
        m_story.runFor(5);
        expect(m_story.published().activeLayoutName == "another", "a desk can be saved under a new name");
    } else if (happens(20)) {
        const std::string deleted = happens(50) ? former : std::string(other->layoutName);
        expect(layouts.remove(deleted).kind == LayoutChange::Kind::done, "a layout can be deleted");
        m_storedLayouts.erase({deskOf(m_story.published().displays), deleted});
        m_hasRestoredDesk = deleted == former;
    } else {
        // Of a copy: the published one changes with the switch.
        const std::string name = other->layoutName;
        expect(layouts.switchLayout(name, {}), "a stored layout can be switched to");
        m_hasRestoredDesk = true;
    }
}

void RandomStory::userAppliesScenes() {
    m_hasRestoredDesk = false;
    AppController& controller = *m_story.controller;
    const auto& scenes = m_story.published().scenes;
    if (scenes.empty() || happens(50)) {
        controller.scenes().saveCurrentAsScene(fmt::format("scene {}", scenes.size()), {});
        m_story.runFor(2);
    }
    if (scenes.empty()) {
        return;
    }
    for (const std::int32_t pid : m_story.desk.pidsOf("org.example.late")) {
        m_story.desk.quit(pid);
    }
    m_story.workspace.install("org.example.late", {.name = "Late",
                                                   .windows = {{"late", somewhere()}, {"later", somewhere()}},
                                                   .startSeconds = seconds(0, 24)});
    m_story.defaults.set("hideOthersOnSceneSwitch", happens(30));
    Scene scene = scenes[below(scenes.size())];
    if (happens(50)) {
        WindowRecord& ghost = scene.layout.windows.emplace_back();
        ghost.bundleID = "org.example.late";
        ghost.frame = somewhere();
        ghost.isGhost = true;
    }
    int answers = 0;
    controller.applyScene(scene, std::nullopt, [&](const RestoreOutcome&) { ++answers; });
    m_story.runFor(seconds(0, 12));
    const bool isOvertaken = happens(50) && somethingComesBetween();
    m_story.runFor(restSeconds);
    expect(answers == 1, "who applies a scene is answered once");
    expect(m_story.desk.pidsOf("org.example.late").size() <= 1, "no application is started twice");
    if (!isOvertaken) {
        const auto& state = m_story.published();
        checkStands(SceneOnDesk::make(scene, state.configID, state.displays, {}).layout,
                    "a scene that was applied stands");
        expect(state.lastAppliedSceneID == scene.id, "the desk remembers its scene");
    }
}

bool RandomStory::somethingComesBetween() {
    switch (below(4)) {
    case 0:
        m_story.controller->undoLastRestore();
        return true;
    case 1:
        m_story.controller->restoreNow(RestoreSource::menu);
        return true;
    case 2:
        changeDisplays();
        m_hasRestoredDesk = false;
        return true;
    default:
        return false;
    }
}

} // namespace vantrel::simulated
