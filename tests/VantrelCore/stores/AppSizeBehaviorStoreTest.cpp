#include "VantrelCore/stores/AppSizeBehaviorStore.h"

#include "tests/VantrelCore/stores/StoreTest.h"

#include <limits>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;

using AppSizeBehaviorStoreTest = StoreTest<AppSizeBehaviorStore>;

const AppSizeBehaviorStore::Observation refused{"editor", {400, 300}, {500.5, 400}};
const AppSizeBehaviorStore::Observation taken{"editor", {700, 500}, {700, 500}};

TEST_F(AppSizeBehaviorStoreTest, WhatWasLearnedSurvivesARestart) {
    EXPECT_TRUE(m_store.record({refused, {"terminal", {300, 300}, {300, 300}}, taken}));
    EXPECT_EQ(m_files.count(MemoryFileSystem::Operation::writeAtomically), 1U);
    EXPECT_TRUE(m_store.record(taken));

    auto reopened = open();
    EXPECT_EQ(reopened.behavior("editor")->sampleCount, 3);
    EXPECT_EQ(reopened.behavior("editor"), m_store.behavior("editor"));
    EXPECT_TRUE(reopened.classification("editor") ==
                AppSizeBehavior::Classification(AppSizeBehavior::MinClamped{{500.5, 400}}));
    EXPECT_EQ(reopened.behavior("terminal")->honoredCount, 1);
    EXPECT_EQ(reopened.behavior("Editor"), std::nullopt);
}

TEST_F(AppSizeBehaviorStoreTest, TheSeedCountsUntilSomethingIsLearned) {
    const std::string preferences = "com.apple.systempreferences";
    const AppSizeBehavior::Classification flexible = AppSizeBehavior::Flexible{};
    const AppSizeBehavior::Classification seeded = AppSizeBehavior::FixedSize{{715, 600}};
    EXPECT_TRUE(m_store.classification("editor") == flexible);
    EXPECT_TRUE(m_store.classification(preferences) == seeded);

    m_files.put("/v/app-size-behavior.json",
                R"({"version": 1, "behaviors": [{"bundleID": "com.apple.systempreferences",
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

} // namespace

} // namespace vantrel
