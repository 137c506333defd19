#include "VantrelCore/stores/AppSizeBehaviorStore.h"

#include "tests/simulated/MemoryFileSystem.h"

#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;
using Operation = MemoryFileSystem::Operation;

class AppSizeBehaviorStoreTest : public testing::Test {
protected:
    const std::filesystem::path m_folder = "/home/ada/Vantrel";
    const std::filesystem::path m_file = m_folder / "app-size-behavior.json";
    MemoryFileSystem m_files;
    AppSizeBehaviorStore m_store = open();

    AppSizeBehaviorStore open() { return AppSizeBehaviorStore::open(m_folder, m_files).value(); }
};

const AppSizeBehaviorStore::Observation refused{"editor", {400, 300}, {500.5, 400}};
const AppSizeBehaviorStore::Observation taken{"editor", {700, 500}, {700, 500}};

TEST_F(AppSizeBehaviorStoreTest, WhatWasLearnedSurvivesARestart) {
    EXPECT_TRUE(m_store.record({refused, {"terminal", {300, 300}, {300, 300}}, taken}));
    EXPECT_EQ(m_files.count(Operation::writeAtomically), 1U);
    EXPECT_TRUE(m_store.record(taken));

    auto reopened = open();
    EXPECT_EQ(reopened.behavior("editor")->sampleCount, 3);
    EXPECT_EQ(reopened.behavior("editor"), m_store.behavior("editor"));
    EXPECT_TRUE(reopened.classification("editor") ==
                AppSizeBehavior::Classification(AppSizeBehavior::MinClamped{{500.5, 400}}));
    EXPECT_EQ(reopened.behavior("terminal")->honoredCount, 1);
    EXPECT_EQ(reopened.behavior("Editor"), std::nullopt);
    EXPECT_EQ(nlohmann::json::parse(m_files.content(m_file).value())["version"], 1);
}

TEST_F(AppSizeBehaviorStoreTest, TheSeedCountsUntilSomethingIsLearned) {
    const std::string preferences = "com.apple.systempreferences";
    const AppSizeBehavior::Classification flexible = AppSizeBehavior::Flexible{};
    const AppSizeBehavior::Classification seeded = AppSizeBehavior::FixedSize{{715, 600}};
    EXPECT_TRUE(m_store.classification("editor") == flexible);
    EXPECT_TRUE(m_store.classification(preferences) == seeded);

    m_files.put(m_file, R"({"version": 1, "behaviors": [{"bundleID": "com.apple.systempreferences",
        "sampleCount": 0, "honoredCount": 0, "constrainedCount": 0, "achievedVaries": false}]})");
    m_store = open();
    EXPECT_TRUE(m_store.classification(preferences) == seeded)
        << "a record without samples has learned nothing";
    EXPECT_TRUE(m_store.record({preferences, {900, 700}, {900, 700}}));
    EXPECT_TRUE(m_store.classification(preferences) == flexible);
}

TEST_F(AppSizeBehaviorStoreTest, SizesThatAreNoNumbersTeachNothing) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(
        m_store.record({{"editor", {nan, 300}, {500, 400}}, {"editor", {400, 300}, {500, infinity}}}));
    EXPECT_EQ(m_store.behavior("editor"), std::nullopt);
    EXPECT_TRUE(m_files.files().empty());
}

TEST_F(AppSizeBehaviorStoreTest, AFailedWriteTeachesNothing) {
    EXPECT_TRUE(m_store.record(taken));
    const auto before = m_store.behavior("editor");
    m_files.failAll(Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_FALSE(m_store.record(refused));
    EXPECT_EQ(m_store.behavior("editor"), before);
}

} // namespace

} // namespace vantrel
