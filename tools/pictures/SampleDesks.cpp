#include "tools/pictures/SampleDesks.h"

#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/commands/HotKeyText.h"
#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>

namespace vantrel::pictures::SampleDesks {

namespace {

constexpr const char* desk = "0123456789abcdef0123456789abcdef";
constexpr const char* otherDesk = "fedcba9876543210fedcba9876543210";

std::string bundle(const char* app) {
    return std::string("org.example.") + app;
}

Scene scene(const std::string& id, const std::string& name, const std::string& configID,
            const std::vector<Placed>& windows, const char* shortcut = nullptr) {
    Scene result = Scene::make(name, configID, layout("Default", usualDisplays(), windows), Date{});
    result.id = id;
    if (shortcut != nullptr) {
        const HotKeyCombo combo = HotKeyText::parse(shortcut).value();
        result.hotkeyKeyCode = combo.keyCode;
        result.hotkeyModifiers = combo.modifiers;
    }
    return result;
}

HotKeyStatus shortcut(HotKeySurface::Kind kind, HotKeyCombo combo) {
    return {.taken = {.surface = {kind, {}},
                      .combo = combo,
                      .label = std::string(HotKeyRecording::commandLabel(kind))}};
}

} // namespace

DisplayInfo display(const std::string& name, const Rect& frame, bool isBuiltin) {
    constexpr double bar = 44;
    DisplayInfo info;
    info.uuid = name;
    info.name = name;
    info.frame = frame;
    info.isBuiltin = isBuiltin;
    info.visibleFrame = Rect{{frame.minX(), frame.minY() + bar}, {frame.width(), frame.height() - bar}};
    return info;
}

std::vector<DisplayInfo> usualDisplays() {
    return {display("Studio Display", {{0, 0}, {2560, 1440}}),
            display("Built-in Display", {{2560, 458}, {1512, 982}}, true)};
}

std::vector<Placed> everyday() {
    return {{"Files", "Documents", {{820, 700}, {700, 560}}},
            {"Calendar", "November 2026", {{3130, 800}, {900, 600}}},
            {"Code", "geometry.cpp", {{24, 68}, {1140, 1348}}},
            {"Firefox", "Layout guidelines", {{1188, 68}, {1348, 880}}},
            {"Terminal", "build", {{1188, 972}, {800, 444}}},
            {"Music", "Spaces", {{2012, 972}, {524, 444}}},
            {"Mail", "Inbox", {{2584, 526}, {1080, 620}}},
            {"Chat", "Design team", {{2584, 1010}, {520, 404}}},
            {"Notes", "Ideas", {{1300, 200}, {560, 520}}}};
}

Layout layout(const std::string& name, const std::vector<DisplayInfo>& displays,
              const std::vector<Placed>& windows) {
    Layout result;
    result.configID = desk;
    result.name = "Studio Display + Built-in";
    result.layoutName = name;
    result.displays = displays;
    for (const Placed& window : windows) {
        WindowRecord record;
        record.bundleID = bundle(window.app);
        record.appName = window.app;
        record.title = window.title;
        record.frame = window.frame;
        record.displayUUID = VisibleWindows::displayUUID(window.frame, displays);
        record.zOrder = static_cast<std::int64_t>(result.windows.size());
        result.windows.push_back(record);
    }
    return result;
}

std::vector<DeskWindow> live(const std::vector<Placed>& windows) {
    std::vector<DeskWindow> result;
    for (const Placed& placed : windows) {
        DeskWindow window;
        window.id = WindowID{result.size() + 1};
        window.bundleID = bundle(placed.app);
        window.appName = placed.app;
        window.title = placed.title;
        window.kind = WindowKind::ordinary;
        window.isOnScreen = true;
        window.frame = placed.frame;
        result.push_back(window);
    }
    return result;
}

DeskPicture picture(const std::vector<DisplayInfo>& displays, const std::vector<Placed>& windows) {
    DeskPicture result{.displays = displays, .windows = {}};
    for (const Placed& window : windows) {
        result.windows.push_back({.bundleID = bundle(window.app),
                                  .appName = window.app,
                                  .title = window.title,
                                  .frame = window.frame});
    }
    return result;
}

PublishedState state() {
    PublishedState state;
    state.configID = desk;
    state.configName = "Studio Display + Built-in";
    state.displays = usualDisplays();
    state.currentLayouts = {layout("Everyday", usualDisplays(), everyday()),
                            layout("Evening", usualDisplays(), {everyday()[3], everyday()[5]})};
    state.activeLayoutName = "Everyday";
    state.liveWindows = live(everyday());
    state.hasPermission = true;
    state.phase = {Phase::Saved{9}};
    const auto all = everyday();
    state.scenes = {
        scene("1", "Write", desk,
              {all[0], all[3], all[5], all[6], all[8], {"Documents", "Chapter 4", all[2].frame}}, "Super+1"),
        scene("2", "Code", desk, {all[2], all[4], all[3], all[7], all[6]}, "Super+2"),
        scene("3", "Meeting", desk, {{"Meet", "Stand-up", all[3].frame}, all[8], all[1]}, "Super+3"),
        scene("4", "Music", desk, {all[5], all[7]}),
        scene("5", "Home", otherDesk, {all[5]}),
        scene("6", "Office", otherDesk, {all[6], all[1]}),
        scene("7", "Deep work", otherDesk, {all[2]}),
    };
    state.scenes[2].pinned = true;
    state.lastAppliedSceneID = "1";
    state.hotKeys = {shortcut(HotKeySurface::Kind::fixedRestore, HotKeyDefaults::restore),
                     shortcut(HotKeySurface::Kind::fixedSave, HotKeyDefaults::save),
                     shortcut(HotKeySurface::Kind::stash, HotKeyDefaults::stash)};
    return state;
}

PublishedState movedState() {
    PublishedState moved = state();
    auto windows = everyday();
    windows[4].frame = {{3370, 520}, {640, 340}};
    windows[5].frame = {{2000, 160}, {520, 440}};
    moved.liveWindows = live(windows);
    return moved;
}

} // namespace vantrel::pictures::SampleDesks
