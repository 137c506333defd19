// What holds of the file of every store, tried on files with every key in tests/fuzz/seeds/Stores.
#include "VantrelCore/stores/AppReliabilityStore.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/ProgramNotesStore.h"
#include "VantrelCore/stores/RestoreLogStore.h"
#include "VantrelCore/stores/RestoreReceiptsStore.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/stores/SessionNotesStore.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/stores/TriggerStore.h"
#include "VantrelCore/stores/UsageStatsStore.h"
#include "tests/simulated/MemoryFileSystem.h"
#include "tests/simulated/SimulatedTime.h"

#include <algorithm>
#include <deque>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

namespace vantrel {

namespace {

using nlohmann::json;
using simulated::MemoryFileSystem;

const std::filesystem::path folder = "/v";
const Date day = dateFromIso8601("2025-03-02T00:00:00Z").value();

// The document as it is in the file after reading and writing it; none when it was moved aside.
template <typename File>
std::optional<json> rewritten(const json& document) {
    MemoryFileSystem files;
    files.put("/v/file", document.dump());
    auto store = JsonStore<File>::open(folder, "file", files).value();
    const bool isWritten = store.write(store.load());
    return isWritten && !files.content("/v/file.corrupt")
               ? std::optional(json::parse(files.content("/v/file").value()))
               : std::nullopt;
}

struct StoreFile {
    const char* name;
    std::function<std::optional<json>(const json&)> rewritten;
    // The ends of the paths to what a file may lack, keys of maps among them.
    std::vector<std::string> optional;
};

const StoreFile storeFiles[] = {
    {"layouts.json",
     rewritten<LayoutStore::StoreFile>,
     {"activeLayouts", "c", "edidUUID", "visibleFrame", "pinned", "isGhost", "rules", "restoreLast",
      "sameDesks"}},
    {"scenes.json",
     rewritten<SceneStore::StoreFile>,
     {"lastAppliedByConfig", "c", "isGhost", "hotkeyKeyCode", "hotkeyModifiers", "pinned", "opensMissingApps",
      "wallpaper", "U"}},
    {"stashes.json",
     rewritten<StashStore::StoreFile>,
     {"isGhost", "appliedSceneName", "appliedSceneWindowCount"}},
    {"triggers.json", rewritten<TriggerStore::StoreFile>, {"lastFiredAt"}},
    {"restore-log.json", rewritten<RestoreLogStore::StoreFile>, {"items/0/reason", "sceneName"}},
    {"receipts.json", rewritten<RestoreReceipts>, {}},
    {"usage.json", rewritten<UsageStats>, {"firstRecordedAt"}},
    {"session.json", rewritten<SessionNotes>, {}},
    {"app-reliability.json", rewritten<AppReliabilityStore::StoreFile>, {"lastFailureReason"}},
    {"app-size-behavior.json",
     rewritten<AppSizeBehaviorStore::StoreFile>,
     {"firstAchieved", "floor", "lastRequested", "lastAchieved"}},
};

std::string withEveryKey(const char* name) {
    std::stringstream text;
    text << std::ifstream(std::filesystem::path(VANTREL_STORE_FILES) / name).rdbuf();
    return text.str();
}

// Every object below `value`, itself included.
void collectObjects(const json& value, const json::json_pointer& at, std::vector<json::json_pointer>& found) {
    if (value.is_object()) {
        found.push_back(at);
    }
    for (const auto& [key, child] : value.items()) {
        if (child.is_structured()) {
            collectObjects(child, value.is_array() ? at / std::stoul(key) : at / key, found);
        }
    }
}

TEST(StoreFiles, RoundTripAndRejectMissingRequiredKeys) {
    for (const auto& file : storeFiles) {
        const auto sound = json::parse(withEveryKey(file.name));
        EXPECT_EQ(file.rewritten(sound), sound) << file.name;
        std::vector<json::json_pointer> objects;
        collectObjects(sound, json::json_pointer(), objects);
        for (const auto& at : objects) {
            for (const auto& [key, value] : sound[at].items()) {
                const auto path = (at / key).to_string();
                SCOPED_TRACE(file.name + path);
                json edited = sound;
                edited[at][key] = json::array({7.5});
                EXPECT_EQ(file.rewritten(edited), std::nullopt);
                edited[at].erase(key);
                const bool isOptional = std::ranges::any_of(
                    file.optional, [&](const auto& end) { return path.ends_with("/" + end); });
                const auto lacking = file.rewritten(edited);
                EXPECT_EQ(lacking.has_value(), isOptional);
                // The one map that is always written.
                EXPECT_TRUE(!lacking || lacking == edited || key == "lastAppliedByConfig");
            }
            json edited = sound;
            edited[at]["addedLater"] = "x";
            const auto read = file.rewritten(edited);
            EXPECT_EQ(read.has_value(), at.empty() || at.back() != "kind") << file.name << at;
            EXPECT_TRUE(!read || read == edited) << "unknown keys are kept at every level: " << at;
        }
    }
}

// Whether each of a store's changes is in its file.
using Changes = std::deque<bool>;

template <typename Result>
bool isWritten(const Result& result) {
    EXPECT_TRUE(result || result.error() == Result::error_type::writeFailed);
    return result.has_value();
}

Changes changes(LayoutStore& store) {
    Changes written{store.save({}),
                    store.setActiveLayout("Work", "c"),
                    store.setPinned(false, "c", "Default"),
                    store.renameDesk("c", "Office"),
                    store.renameLayout("c", "Default", "Work"),
                    store.setRule({}),
                    store.removeRule("b")};
    store.rename("c", "", "Home");
    written.push_back(store.allLayouts().front().name == "Home");
    store.deleteLayout("c", "Work");
    written.push_back(!store.layout("c", "Work") && !store.layout("c", "Default"));
    return written;
}

Changes changes(SceneStore& store) {
    return {isWritten(store.add(Scene::make("New", "c", {}, day))),
            isWritten(store.rename("1", "Renamed")),
            isWritten(store.updateLayout("1", {})),
            isWritten(store.setPinned(true, "1")),
            isWritten(store.setOpensMissingApps(true, "1")),
            isWritten(store.updateHotkey("1", 1, 2)),
            isWritten(store.setWallpaper(std::nullopt, "1")),
            store.setLastAppliedScene("2", "c"),
            store.forgetLastAppliedScene("c"),
            store.deleteScene("1")};
}

Changes changes(StashStore& store) {
    Stash added;
    added.id = "2";
    added.createdAt = day;
    EXPECT_EQ(store.add(added), added) << "also on a full disk";
    return {store.stash("2").has_value(), store.remove("1")};
}

Changes changes(TriggerStore& store) {
    Changes written{isWritten(store.add({})), isWritten(store.setEnabled("1", false)),
                    isWritten(store.recordFired("1", day))};
    store.deleteTrigger("1");
    written.push_back(!store.trigger("1"));
    return written;
}

Changes changes(RestoreLogStore& store) {
    return {store.record({}), store.replaceNewest({}), store.clear()};
}

Changes changes(RestoreReceiptsStore& store) {
    return {store.update([](RestoreReceipts& receipts) { receipts.record(1, day); })};
}

Changes changes(UsageStatsStore& store) {
    return {store.update([](UsageStats& usage) { usage.recordUndo(1, "desk", day); })};
}

Changes changes(ProgramNotesStore& store) {
    return {store.update([](ProgramNotes& notes) { notes.notes["hasOnboarded"] = false; })};
}

Changes changes(AppReliabilityStore& store) {
    return {store.record({{}}, day), store.clear()};
}

Changes changes(AppSizeBehaviorStore& store) {
    return {store.record({std::string("a"), {1, 1}, {1, 1}})};
}

TEST(StoreFiles, ReportAFailedWriteAndKeepWhatWasStored) {
    const auto check = [](const char* name, auto open, auto&... more) {
        SCOPED_TRACE(name);
        MemoryFileSystem files;
        files.put(folder / name, withEveryKey(name));
        auto store = open(folder, files, more...).value();
        files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
        EXPECT_THAT(changes(store), testing::Each(false));
        EXPECT_EQ(files.content(folder / name), withEveryKey(name));
        files.stopFailing();
        EXPECT_THAT(changes(store), testing::Each(true));
        EXPECT_NE(files.content(folder / name), withEveryKey(name));
        EXPECT_EQ(files.files(), std::vector{folder / name});
    };
    simulated::SimulatedTime clock(0, day);
    check("layouts.json", LayoutStore::open);
    check("scenes.json", SceneStore::open);
    check("stashes.json", StashStore::open, clock);
    check("triggers.json", TriggerStore::open);
    check("restore-log.json", RestoreLogStore::open);
    check("receipts.json", openRestoreReceipts);
    check("usage.json", openUsageStats);
    check("notes.json", openProgramNotes);
    check("app-reliability.json", AppReliabilityStore::open);
    check("app-size-behavior.json", AppSizeBehaviorStore::open);
}

} // namespace

} // namespace vantrel
