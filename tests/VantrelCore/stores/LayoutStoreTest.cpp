#include "VantrelCore/stores/LayoutStore.h"

#include "tests/simulated/MemoryFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* office = "0123456789abcdef0123456789abcdef";
constexpr const char* home = "fedcba9876543210fedcba9876543210";

Layout layoutNamed(const std::string& configID, const std::string& layoutName) {
    Layout layout;
    layout.configID = configID;
    layout.name = "Desk";
    layout.layoutName = layoutName;
    auto& display = layout.displays.emplace_back();
    display.uuid = "D";
    display.frame = {{0, 0}, {1920, 1080}};
    auto& window = layout.windows.emplace_back();
    window.bundleID = "org.mail";
    window.title = "Inbox";
    window.frame = {{0.1, -0.2}, {1e-7, 123456789.123456789}};
    window.displayUUID = "D";
    layout.savedAt = dateFromIso8601("2025-03-01T08:15:00Z").value();
    return layout;
}

AppRule ruleFor(const std::string& bundleID, const std::string& appName) {
    return {
        .bundleID = bundleID, .appName = appName, .action = AppRule::Ignore{}, .restoreLast = std::nullopt};
}

std::vector<std::string> names(const std::vector<Layout>& layouts) {
    std::vector<std::string> result;
    for (const auto& layout : layouts) {
        result.push_back(layout.layoutName);
    }
    return result;
}

std::vector<std::string> names(const std::vector<AppRule>& rules) {
    std::vector<std::string> result;
    for (const auto& rule : rules) {
        result.push_back(rule.appName);
    }
    return result;
}

class LayoutStoreTest : public testing::Test {
protected:
    const std::filesystem::path m_folder = "/home/ada/Vantrel";
    const std::filesystem::path m_file = m_folder / "layouts.json";
    MemoryFileSystem m_files;
    LayoutStore m_store = open();

    LayoutStore open() { return LayoutStore::open(m_folder, m_files).value(); }

    void saveAll(const std::string& configID, const std::vector<std::string>& layoutNames) {
        for (const auto& name : layoutNames) {
            ASSERT_TRUE(m_store.save(layoutNamed(configID, name)));
        }
    }

    nlohmann::json onDisk() { return nlohmann::json::parse(m_files.content(m_file).value_or("")); }
};

TEST_F(LayoutStoreTest, FreshInstallIsEmptyAndCreatesNoFile) {
    EXPECT_THAT(m_store.allLayouts(), IsEmpty());
    EXPECT_THAT(m_store.layouts(office), IsEmpty());
    EXPECT_EQ(m_store.layout(office, "Default"), std::nullopt);
    EXPECT_EQ(m_store.activeLayoutName(office), "Default");
    EXPECT_THAT(m_store.rules(), IsEmpty());
    EXPECT_FALSE(m_store.setPinned(true, office, "Default"));
    m_store.rename(office, "Default", "Office");
    EXPECT_THAT(m_files.files(), IsEmpty());
}

TEST_F(LayoutStoreTest, WhatIsSavedIsReadBackExactlyByTheNextProcess) {
    Layout layout = layoutNamed(office, "Work");
    layout.pinned = true;
    ASSERT_TRUE(m_store.save(layout));
    AppRule rule = ruleFor("org.chat", "Chat");
    rule.action = AppRule::ForceDisplay{.uuid = "D", .displayName = "Display"};
    rule.restoreLast = true;
    ASSERT_TRUE(m_store.setRule(rule));
    ASSERT_TRUE(m_store.setActiveLayout("Work", office));

    auto next = open();
    EXPECT_THAT(next.allLayouts(), ElementsAre(layout));
    EXPECT_THAT(next.rules(), ElementsAre(rule));
    EXPECT_EQ(next.activeLayoutName(office), "Work");
    EXPECT_EQ(next.activeLayoutName(home), "Default");
    EXPECT_EQ(onDisk()["layouts"][0]["savedAt"], "2025-03-01T08:15:00Z");
}

TEST_F(LayoutStoreTest, SavingAgainReplacesTheLayoutAndMovesItToTheEnd) {
    saveAll(office, {"Default", "Work"});
    Layout again = layoutNamed(office, "Default");
    again.windows.clear();
    ASSERT_TRUE(m_store.save(again));
    ASSERT_TRUE(m_store.save(layoutNamed(home, "Work")));
    EXPECT_THAT(names(m_store.allLayouts()), ElementsAre("Work", "Default", "Work"));
    EXPECT_EQ(m_store.layout(office, "Default"), again);
}

TEST_F(LayoutStoreTest, ListsADesksLayoutsWithDefaultFirst) {
    saveAll(office, {"beta", "Zeta", "Default", "Alpha"});
    saveAll(home, {"Default"});
    EXPECT_THAT(names(m_store.layouts(office)), ElementsAre("Default", "Alpha", "Zeta", "beta"));
}

TEST_F(LayoutStoreTest, DeletingTheActiveLayoutChoosesTheNextOne) {
    struct Case {
        std::vector<std::string> stored;
        std::string active;
        std::string deleted;
        std::string newActive;
    };

    const std::vector<Case> cases = {
        {{"Default", "Alpha", "Work"}, "Work", "Work", "Default"},
        {{"Beta", "Alpha", "Work"}, "Work", "Work", "Alpha"},
        {{"Work"}, "Work", "Work", "Default"},
        {{"Default", "Beta"}, "", "Default", "Beta"},
        {{"Default", "Alpha", "Work"}, "Work", "Alpha", "Work"},
    };
    for (const auto& [stored, active, deleted, newActive] : cases) {
        ASSERT_FALSE(m_files.remove(m_file));
        m_store = open();
        saveAll(office, stored);
        saveAll(home, {"Aardvark"});
        if (!active.empty()) {
            ASSERT_TRUE(m_store.setActiveLayout(active, office));
        }
        m_store.deleteLayout(office, deleted);
        EXPECT_EQ(m_store.layout(office, deleted), std::nullopt);
        EXPECT_EQ(m_store.layouts(office).size(), stored.size() - 1);
        EXPECT_EQ(open().activeLayoutName(office), newActive) << deleted;
        EXPECT_EQ(open().layouts(home).size(), 1U);
    }
}

TEST_F(LayoutStoreTest, RenamingADeskChangesItsFirstLayoutWhateverTheLayoutName) {
    saveAll(home, {"Default"});
    saveAll(office, {"Work", "Default"});
    m_store.rename(office, "Default", "Office");
    EXPECT_EQ(m_store.layout(office, "Work")->name, "Office");
    EXPECT_EQ(m_store.layout(office, "Default")->name, "Desk");
    EXPECT_EQ(m_store.layout(home, "Default")->name, "Desk");
}

TEST_F(LayoutStoreTest, PinsOneLayoutOfOneDesk) {
    saveAll(office, {"Default", "Work"});
    EXPECT_TRUE(m_store.setPinned(true, office, "Work"));
    EXPECT_FALSE(m_store.setPinned(true, office, "Play"));
    EXPECT_TRUE(open().layout(office, "Work")->isPinned());
    EXPECT_FALSE(open().layout(office, "Default")->isPinned());
    EXPECT_TRUE(m_store.setPinned(false, office, "Work"));
    EXPECT_FALSE(m_store.layout(office, "Work")->isPinned());
}

TEST_F(LayoutStoreTest, KeepsOneRulePerApplicationInReadingOrder) {
    for (const auto& rule : {ruleFor("3", "gamma"), ruleFor("2", "Beta"), ruleFor("1", "alpha")}) {
        ASSERT_TRUE(m_store.setRule(rule));
    }
    EXPECT_THAT(names(m_store.rules()), ElementsAre("alpha", "Beta", "gamma"));
    ASSERT_TRUE(m_store.setRule(ruleFor("2", "Zeta")));
    ASSERT_TRUE(m_store.setRule(ruleFor("4", "ALPHA")));
    EXPECT_THAT(names(m_store.rules()), ElementsAre("alpha", "ALPHA", "gamma", "Zeta"));
    ASSERT_TRUE(m_store.removeRule("3"));
    EXPECT_THAT(names(open().rules()), ElementsAre("alpha", "ALPHA", "Zeta"));
}

TEST_F(LayoutStoreTest, OptionalKeysStayAbsentUntilFirstSet) {
    m_files.put(m_file, R"({"version": 1, "layouts": []})");
    ASSERT_TRUE(m_store.save(layoutNamed(office, "Default")));
    ASSERT_TRUE(m_store.removeRule("nobody"));
    EXPECT_FALSE(onDisk().contains("activeLayouts"));
    EXPECT_FALSE(onDisk().contains("rules"));
    EXPECT_EQ(onDisk()["version"], 2);
    ASSERT_TRUE(m_store.setRule(ruleFor("1", "alpha")));
    EXPECT_TRUE(onDisk().contains("rules"));
}

TEST_F(LayoutStoreTest, OneUndecodableRecordMakesTheWholeFileUndecodable) {
    saveAll(office, {"Default", "Work"});
    auto document = onDisk();
    document["layouts"][1]["windows"][0]["frame"] = {{0, 0}, {100, nullptr}};
    m_files.put(m_file, document.dump());
    EXPECT_THAT(open().allLayouts(), IsEmpty());
    EXPECT_EQ(m_files.content(m_folder / "layouts.json.corrupt"), document.dump());
}

TEST_F(LayoutStoreTest, EveryChangeReportsAFailedWriteAndIsNotSeen) {
    saveAll(office, {"Default", "Work"});
    ASSERT_TRUE(m_store.setRule(ruleFor("1", "alpha")));
    const auto before = onDisk();
    m_files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_FALSE(m_store.save(layoutNamed(home, "Default")));
    EXPECT_FALSE(m_store.setActiveLayout("Work", office));
    EXPECT_FALSE(m_store.setPinned(true, office, "Work"));
    EXPECT_FALSE(m_store.setRule(ruleFor("2", "beta")));
    EXPECT_FALSE(m_store.removeRule("1"));
    m_store.deleteLayout(office, "Default");
    m_store.rename(office, "Default", "Office");
    EXPECT_THAT(names(m_store.allLayouts()), ElementsAre("Default", "Work"));
    EXPECT_EQ(m_store.allLayouts().front().name, "Desk");
    EXPECT_EQ(m_store.activeLayoutName(office), "Default");
    EXPECT_FALSE(m_store.layout(office, "Work")->isPinned());
    EXPECT_THAT(names(m_store.rules()), ElementsAre("alpha"));
    EXPECT_EQ(onDisk(), before);
}

} // namespace

} // namespace vantrel
