// A store reads any file or moves it aside unchanged, writes back what it read, and can be queried and
// changed with any records.
#include "VantrelCore/stores/AppReliabilityStore.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/ProgramNotesStore.h"
#include "VantrelCore/stores/RestoreLogStore.h"
#include "VantrelCore/stores/RestoreReceiptsStore.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/stores/TriggerStore.h"
#include "VantrelCore/stores/UsageStatsStore.h"
#include "tests/fuzz/Law.h"
#include "tests/simulated/MemoryFileSystem.h"

#include <string>
#include <string_view>

namespace {

using namespace vantrel;
using fuzz::require;
using Files = simulated::MemoryFileSystem;

const std::filesystem::path folder = "/vantrel";

class FixedClock final : public Clock {
public:
    Date now() override { return {}; }
    double monotonicSeconds() override { return 0; }
    void sleep(double /*seconds*/) override {}
};

template <typename File>
bool isNewer(const File& record) {
    if constexpr (requires { record.version; }) {
        return record.version > File{}.version;
    }
    return false;
}

void use(LayoutStore store) {
    for (const auto& layout : store.allLayouts()) {
        std::ignore = store.layouts(layout.configID);
        require(layout.isEquivalent(layout), "a layout is equivalent to itself");
        require(layout.geometryMatches(layout, 2.0), "a layout matches itself");
        store.deleteLayout(layout.configID, store.activeLayoutName(layout.configID));
    }
    for (auto rule : store.rules()) {
        rule.appName += "x";
        require(store.setRule(rule), "any rule can be set");
    }
}

void use(SceneStore store) {
    for (const auto& scene : store.allScenes()) {
        std::ignore = store.sceneNamed(scene.name);
        std::ignore = store.rename(scene.id, scene.name + "a");
    }
}

void use(StashStore store) {
    std::ignore = store.add(Stash{});
    require(store.allStashes().size() <= StashStore::maxStashes, "the cap holds");
}

void use(TriggerStore store) {
    for (const auto& trigger : store.allTriggers()) {
        store.deleteTrigger(trigger.id);
    }
}

void use(RestoreLogStore store) {
    require(store.record(RestoreLog::Entry{}), "any log can grow");
    require(store.load().entries.size() <= RestoreLog::maxEntries, "the cap holds");
}

void use(RestoreReceiptsStore store) {
    RestoreReceipts receipts = store.load();
    receipts.record(INT64_MAX, Date{});
    std::ignore = receipts.windowsLast7Days(Date{});
    require(store.write(receipts), "any receipts can be written");
}

void use(UsageStatsStore store) {
    UsageStats stats = store.load();
    stats.recordSceneSwitch(INT64_MAX, "desk", Date{});
    stats.recordStashUse(1, "", Date{});
    stats.recordUndo(1, "desk", Date{});
    require(store.write(stats), "any totals can be written");
}

void use(ProgramNotesStore store) {
    require(store.update([](ProgramNotes& notes) { notes.notes["a"] = 1; }), "any notes can grow");
}

void use(AppReliabilityStore store) {
    for (const auto& app : store.all()) {
        require(store.record({{app.appName, app.bundleID, "", RestoreLog::Outcome::failed, {}}}, Date{}),
                "any record can count");
    }
    require(store.stubbornBundleIDs().size() <= store.all().size(), "only applications are stubborn");
}

void use(AppSizeBehaviorStore store) {
    std::ignore = store.classification("a");
    require(store.record({{"a", {1, 2}, {30, 40}}, {"a", {5, 6}, {5, 6}}}), "any record can learn");
    std::ignore = store.classification("a");
}

// Bytes without `key` cannot be a file of this store.
template <typename File, typename Open>
void feed(std::string_view fileName, std::string_view key, const std::string& bytes, Open open) {
    if (bytes.find(key) == std::string::npos) {
        return;
    }
    const std::filesystem::path path = folder / fileName;
    const std::filesystem::path aside = path.string() + ".corrupt";
    Files used;
    used.put(path, bytes);
    use(open(folder, used).value());

    Files files;
    files.put(path, bytes);
    auto store = JsonStore<File>::open(folder, fileName, files).value();
    File record = store.load();
    const bool isDecoded = !files.content(aside).has_value();
    require(files.content(isDecoded ? path : aside) == bytes, "every byte is kept, in place or aside");
    require(isDecoded || (record == File{} && !files.content(path)),
            "a file that was moved aside leaves an empty store");

    require(store.write(record), "a record that was read can be written");
    require(!isNewer(record) || files.content(path.string() + ".newer") == bytes,
            "a newer program's file is kept before it is replaced");
    const auto asideBefore = files.content(aside);
    if constexpr (requires { record.version; }) {
        record.version = File{}.version;
    }
    auto again = JsonStore<File>::open(folder, fileName, files).value();
    require(again.load() == record, "a record reads as it was written");
    require(files.content(aside) == asideBefore, "a written file is not moved aside");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const auto openStashes = [](const auto& directory, auto& files) {
        static FixedClock clock;
        return StashStore::open(directory, files, clock);
    };
    // Every input is tried on at least one store.
    feed<LayoutStore::StoreFile>("layouts.json", "", bytes, LayoutStore::open);
    feed<SceneStore::StoreFile>("scenes.json", "scenes", bytes, SceneStore::open);
    feed<StashStore::StoreFile>("stashes.json", "stashes", bytes, openStashes);
    feed<TriggerStore::StoreFile>("triggers.json", "triggers", bytes, TriggerStore::open);
    feed<RestoreLogStore::StoreFile>("restore-log.json", "log", bytes, RestoreLogStore::open);
    feed<RestoreReceipts>("receipts.json", "entries", bytes, openRestoreReceipts);
    feed<UsageStats>("usage.json", "restores", bytes, openUsageStats);
    feed<ProgramNotes>("notes.json", "notes", bytes, openProgramNotes);
    feed<AppReliabilityStore::StoreFile>("app-reliability.json", "apps", bytes, AppReliabilityStore::open);
    feed<AppSizeBehaviorStore::StoreFile>("app-size-behavior.json", "behaviors", bytes,
                                          AppSizeBehaviorStore::open);
    return 0;
}
