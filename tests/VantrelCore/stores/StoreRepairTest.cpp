#include "VantrelCore/stores/StoreRepair.h"

#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/SetAside.h"
#include "VantrelCore/stores/StoreInspection.h"
#include "tests/simulated/MemoryFileSystem.h"

#include <gmock/gmock.h>

namespace vantrel {

namespace {

const std::filesystem::path folder = "/v";
const std::vector<std::filesystem::path> folders{"/state", folder};
constexpr const char* sound = R"({"version": 2, "layouts": [], "activeLayouts": {"desk": "Work"}})";

struct StoreRepairTest : testing::Test {
    simulated::MemoryFileSystem files;

    StoreRepairTest() {
        files.put("/v/layouts.json", R"({"version": 2, "layouts": []})");
        files.put("/v/layouts.json.corrupt", "damaged");
        files.put("/v/layouts.json.corrupt.1", sound);
        files.put("/v/settings.conf.corrupt", "");
    }
};

TEST_F(StoreRepairTest, PutsACopyBackAndKeepsTheCurrentFile) {
    FileIncidents incidents;
    auto store = LayoutStore::open(folder, {files, &incidents}).value();
    EXPECT_EQ(store.activeLayoutName("desk"), "Default");
    const auto present = files.content("/v/layouts.json");
    EXPECT_EQ(StoreRepair::putBack(files, folders, "layouts.json.corrupt.1"), folder / "layouts.json");
    EXPECT_EQ(files.content("/v/layouts.json"), sound);
    EXPECT_EQ(files.content("/v/layouts.json.replaced"), present);
    incidents.noteReplaced("/v/layouts.json");
    EXPECT_EQ(store.activeLayoutName("desk"), "Work") << "a running store reads it anew";
    // And back again.
    EXPECT_TRUE(StoreRepair::putBack(files, folders, "layouts.json.replaced").has_value());
    EXPECT_EQ(files.content("/v/layouts.json"), present);
    EXPECT_EQ(files.content("/v/layouts.json.replaced"), sound);
}

TEST_F(StoreRepairTest, AnUnusableCopyOrAFailureChangesNothing) {
    const auto before = files.files();
    for (const char* const name : {"layouts.json.corrupt", "layouts.json", "layouts.json.corrupt.2", "",
                                   "settings.conf.corrupt", "../v/layouts.json.corrupt.1"}) {
        EXPECT_FALSE(StoreRepair::putBack(files, folders, name).has_value()) << name;
    }
    for (const std::size_t step : {1U, 2U}) {
        files.failOnceAfter(step, std::errc::io_error);
        EXPECT_FALSE(StoreRepair::putBack(files, folders, "layouts.json.corrupt.1").has_value());
    }
    EXPECT_EQ(files.files(), before);
    EXPECT_EQ(files.content("/v/layouts.json.corrupt.1"), sound);
}

TEST_F(StoreRepairTest, InspectionTellsSoundDamagedAndCopiedFilesApart) {
    const auto findings = StoreInspection::inspect(files, {folder, folder, "/missing"});
    ASSERT_EQ(findings.size(), 3U) << "settings are no store";
    EXPECT_FALSE(findings[0].isCopy());
    EXPECT_EQ(findings[0].problem, "");
    EXPECT_TRUE(findings[1].isCopy());
    EXPECT_EQ(findings[1].problem, "invalid JSON at byte 1");
    EXPECT_EQ(findings[2].original, folder / "layouts.json");
    EXPECT_EQ(findings[2].problem, "");
}

} // namespace

} // namespace vantrel
