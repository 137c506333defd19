#include "benchmarks/HeavyUser.h"

#include "benchmarks/StoreMeasuring.h"

#include <fmt/format.h>

namespace vantrel::bench::HeavyUser {

namespace {

// Whole seconds, as stored in files.
Date second(std::size_t number) {
    return Date{std::chrono::sys_days{std::chrono::year{2026} / 3 / 2}} +
           std::chrono::seconds{static_cast<std::int64_t>(number)};
}

std::string deskID(std::size_t number) {
    return fmt::format("{:032x}", number);
}

Layout deskNumber(std::size_t number) {
    Layout layout = layoutOf(windowsPerDesk);
    layout.configID = deskID(number);
    layout.savedAt = second(number);
    return layout;
}

} // namespace

LayoutStore::StoreFile layouts(std::size_t scale) {
    LayoutStore::StoreFile file;
    for (std::size_t i = 0; i < 100 * scale; ++i) {
        file.layouts.push_back(deskNumber(i));
    }
    return file;
}

SceneStore::StoreFile scenes(std::size_t scale) {
    SceneStore::StoreFile file;
    for (std::size_t i = 0; i < 12 * scale; ++i) {
        file.scenes.push_back(Scene::make(fmt::format("Scene {}", i), deskID(i), deskNumber(i), second(i)));
        file.lastAppliedByConfig[deskID(i)] = file.scenes.back().id;
    }
    return file;
}

StashStore::StoreFile stashes(std::size_t scale) {
    StashStore::StoreFile file;
    for (std::size_t i = 0; i < 10 * scale; ++i) {
        Stash stash;
        stash.id = fmt::format("stash-{}", i);
        stash.createdAt = second(i);
        stash.configID = deskID(i);
        stash.layout = deskNumber(i);
        file.stashes.push_back(std::move(stash));
    }
    return file;
}

RestoreLogStore::StoreFile restoreLog(std::size_t scale) {
    RestoreLogStore::StoreFile file;
    for (std::size_t i = 0; i < RestoreLog::maxEntries * scale; ++i) {
        RestoreLog::Entry entry;
        entry.date = second(i);
        entry.reason = "display change";
        entry.configID = deskID(i);
        entry.elapsed = 0.125;
        for (const WindowRecord& window : layoutOf(windowsPerDesk).windows) {
            RestoreLog::Item item;
            item.appName = window.appName;
            item.bundleID = window.bundleID;
            item.title = window.title;
            entry.items.push_back(std::move(item));
        }
        file.log.entries.push_back(std::move(entry));
    }
    return file;
}

// Thirty restores on each of thirty days.
RestoreReceipts receipts(std::size_t scale) {
    RestoreReceipts receipts;
    for (std::size_t i = 0; i < 900 * scale; ++i) {
        receipts.entries.push_back({second(i), static_cast<std::int64_t>(windowsPerDesk)});
    }
    return receipts;
}

UsageStats usage(std::size_t scale) {
    UsageStats stats;
    for (std::size_t i = 0; i < 100 * scale; ++i) {
        stats.deskIDs.insert(deskID(i));
    }
    return stats;
}

TriggerStore::StoreFile triggers(std::size_t scale) {
    TriggerStore::StoreFile file;
    for (std::size_t i = 0; i < 50 * scale; ++i) {
        SceneTrigger trigger;
        trigger.id = fmt::format("trigger-{}", i);
        trigger.kind = SceneTrigger::FocusMode{.name = "Work"};
        trigger.sceneID = fmt::format("scene-{}", i);
        trigger.createdAt = second(i);
        file.triggers.push_back(std::move(trigger));
    }
    return file;
}

AppReliabilityStore::StoreFile reliability(std::size_t scale) {
    AppReliabilityStore::StoreFile file;
    for (std::size_t i = 0; i < 100 * scale; ++i) {
        AppReliability app;
        app.bundleID = fmt::format("org.example.application{}", i);
        app.appName = fmt::format("Application {}", i);
        app.lastSeen = second(i);
        file.apps.push_back(std::move(app));
    }
    return file;
}

AppSizeBehaviorStore::StoreFile sizeBehavior(std::size_t scale) {
    AppSizeBehaviorStore::StoreFile file;
    for (std::size_t i = 0; i < 100 * scale; ++i) {
        AppSizeBehavior behavior;
        behavior.bundleID = fmt::format("org.example.application{}", i);
        behavior.firstAchieved = Size{715, 600};
        behavior.lastRequested = Size{800, 600};
        behavior.lastAchieved = Size{715, 600};
        file.behaviors.push_back(std::move(behavior));
    }
    return file;
}

} // namespace vantrel::bench::HeavyUser
