// Measures loading and saving every store with a heavy user's data (100 desks of 60 windows, full logs) and
// with ten times that, compared with parsing and dumping the same bytes.
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "VantrelCore/stores/AppReliabilityStore.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/RestoreLogStore.h"
#include "VantrelCore/stores/RestoreReceiptsStore.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/stores/TriggerStore.h"
#include "VantrelCore/stores/UsageStatsStore.h"
#include "benchmarks/StoreMeasuring.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

using bench::inTurns;
using bench::layoutOf;
using bench::secondsOf;

constexpr std::size_t windowsPerDesk = 60;

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

// `scale` is 1 for a heavy user; capped stores are filled beyond their caps by 10.

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

template <typename File>
class Kept {
public:
    explicit Kept(File file) : m_file(std::move(file)), m_isRight(save() && open().load() == m_file) {}

    // Whether the data was read back exactly as written.
    [[nodiscard]] bool isRight() const { return m_isRight; }

    [[nodiscard]] bool save() { return open().write(m_file); }

    // Opens a new store each time, as a store reads its file only once.
    void load() {
        auto store = open();
        benchmark::DoNotOptimize(store.load());
    }

    [[nodiscard]] std::string bytes() { return m_files.read(m_folder.path() / "store.json").value(); }

private:
    [[nodiscard]] JsonStore<File> open() {
        return JsonStore<File>::open(m_folder.path(), "store.json", m_files).value();
    }

    TemporaryFolder m_folder;
    PosixFileSystem m_files;
    File m_file;
    bool m_isRight;
};

template <typename File>
void load(benchmark::State& state, File (*make)(std::size_t)) {
    Kept<File> kept(make(static_cast<std::size_t>(state.range(0))));
    if (!kept.isRight()) {
        state.SkipWithError("the store differs from what was written");
        return;
    }
    const std::string text = kept.bytes();
    inTurns(
        state, "per_parse", [&] { kept.load(); },
        [&] {
            auto document = nlohmann::json::parse(text);
            benchmark::DoNotOptimize(document);
        });
}

// Flushing to disk takes most of a save and is not part of a dump, so the ratio covers processor and disk
// work together.
template <typename File>
void save(benchmark::State& state, File (*make)(std::size_t)) {
    Kept<File> kept(make(static_cast<std::size_t>(state.range(0))));
    const auto document = nlohmann::json::parse(kept.bytes());
    bool allWritten = kept.isRight();
    inTurns(
        state, "per_dump", [&] { allWritten = kept.save() && allWritten; },
        [&] {
            auto text = document.dump(2);
            benchmark::DoNotOptimize(text);
        });
    if (!allWritten) {
        state.SkipWithError("a write failed");
    }
}

#define STORE(file)                                                                                          \
    BENCHMARK_CAPTURE(load, file, file)                                                                      \
        ->Arg(1)                                                                                             \
        ->Arg(10)                                                                                            \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->UseManualTime()                                                                                    \
        ->Iterations(5);                                                                                     \
    BENCHMARK_CAPTURE(save, file, file)                                                                      \
        ->Arg(1)                                                                                             \
        ->Arg(10)                                                                                            \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->UseManualTime()                                                                                    \
        ->Iterations(5)

STORE(layouts);
STORE(scenes);
STORE(stashes);
STORE(restoreLog);
STORE(receipts);
STORE(usage);
STORE(triggers);
STORE(reliability);
STORE(sizeBehavior);

} // namespace
} // namespace vantrel
