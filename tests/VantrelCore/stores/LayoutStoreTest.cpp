#include "VantrelCore/stores/LayoutStore.h"

#include "tests/VantrelCore/stores/StoreTest.h"

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* office = "0123456789abcdef0123456789abcdef";
constexpr const char* home = "fedcba9876543210fedcba9876543210";

Layout layoutNamed(const std::string& configID, const std::string& layoutName) {
    Layout layout;
    layout.configID = configID;
    layout.name = "Desk";
    layout.layoutName = layoutName;
    layout.windows.emplace_back();
    return layout;
}

AppRule ruleFor(const std::string& bundleID, const std::string& appName) {
    AppRule rule;
    rule.bundleID = bundleID;
    rule.appName = appName;
    return rule;
}

class LayoutStoreTest : public StoreTest<LayoutStore> {
protected:
    void saveAll(const std::string& configID, const std::vector<std::string>& layoutNames) {
        for (const auto& name : layoutNames) {
            ASSERT_TRUE(m_store.save(layoutNamed(configID, name)));
        }
    }
};

TEST_F(LayoutStoreTest, IsEmptyAtFirstAndCreatesNoFile) {
    EXPECT_THAT(m_store.layouts(office), IsEmpty());
    EXPECT_EQ(m_store.activeLayoutName(office), "Default");
    EXPECT_THAT(m_store.rules(), IsEmpty());
    EXPECT_FALSE(m_store.setPinned(true, office, "Default"));
    EXPECT_FALSE(m_store.renameDesk(office, "Office"));
    m_store.rename(office, "Default", "Office");
    EXPECT_THAT(m_files.files(), IsEmpty());
}

TEST_F(LayoutStoreTest, SavingAgainReplacesALayoutAndMovesItToTheEnd) {
    saveAll(office, {"Default", "Work"});
    Layout again = layoutNamed(office, "Default");
    again.windows.clear();
    ASSERT_TRUE(m_store.save(again));
    ASSERT_TRUE(m_store.save(layoutNamed(home, "Work")));
    EXPECT_THAT(fieldsOf(m_store.allLayouts(), &Layout::layoutName), ElementsAre("Work", "Default", "Work"));
    EXPECT_EQ(m_store.layout(office, "Default"), again);
}

TEST_F(LayoutStoreTest, ListsADesksLayoutsWithDefaultFirst) {
    saveAll(office, {"beta", "Zeta", "Default", "Alpha"});
    saveAll(home, {"Default"});
    EXPECT_THAT(fieldsOf(m_store.layouts(office), &Layout::layoutName),
                ElementsAre("Default", "Alpha", "Zeta", "beta"));
}

TEST_F(LayoutStoreTest, DeletingTheActiveLayoutActivatesTheNext) {
    const std::tuple<std::vector<std::string>, std::string, std::string, std::string> rows[] = {
        {{"Default", "Alpha", "Work"}, "Work", "Work", "Default"},
        {{"Beta", "Alpha", "Work"}, "Work", "Work", "Alpha"},
        {{"Work"}, "Work", "Work", "Default"},
        {{"Default", "Beta"}, "", "Default", "Beta"},
        {{"Default", "Alpha", "Work"}, "Work", "Alpha", "Work"},
    };
    for (const auto& [stored, active, deleted, newActive] : rows) {
        ASSERT_FALSE(m_files.remove("/v/layouts.json"));
        m_store = open();
        saveAll(office, stored);
        saveAll(home, {"Aardvark"});
        if (!active.empty()) {
            ASSERT_TRUE(m_store.setActiveLayout(active, office));
        }
        m_store.deleteLayout(office, deleted);
        EXPECT_EQ(m_store.layout(office, deleted), std::nullopt);
        EXPECT_EQ(open().activeLayoutName(office), newActive) << deleted;
        EXPECT_EQ(open().allLayouts().size(), stored.size());
    }
}

TEST_F(LayoutStoreTest, RenamesADeskInOneLayoutOrInAll) {
    saveAll(home, {"Default"});
    saveAll(office, {"Work", "Default"});
    m_store.rename(office, "Default", "Office");
    EXPECT_THAT(fieldsOf(m_store.allLayouts(), &Layout::name), ElementsAre("Desk", "Office", "Desk"));
    EXPECT_TRUE(m_store.renameDesk(office, "Studio"));
    EXPECT_THAT(fieldsOf(open().allLayouts(), &Layout::name), ElementsAre("Desk", "Studio", "Studio"));
}

TEST_F(LayoutStoreTest, ARenamedLayoutStaysActiveAndItsNameIsUnique) {
    saveAll(home, {"Play"});
    saveAll(office, {"Work", "Default"});
    EXPECT_FALSE(m_store.renameLayout(office, "Default", "Work"));
    EXPECT_FALSE(m_store.renameLayout(office, "Rest", "Play"));
    EXPECT_TRUE(m_store.renameLayout(office, "Work", "Play"));
    EXPECT_EQ(m_store.activeLayoutName(office), "Default");
    EXPECT_TRUE(m_store.renameLayout(office, "Default", "Work"));
    EXPECT_EQ(open().activeLayoutName(office), "Work");
    EXPECT_THAT(fieldsOf(open().layouts(office), &Layout::layoutName), ElementsAre("Play", "Work"));
}

TEST_F(LayoutStoreTest, ADeskMovesWithItsActiveNameAndRulesAndLosesNoLayout) {
    const auto onDisplay = [](Layout layout, const std::string& uuid, double x) {
        layout.displays = {{uuid, "D", {{0, 0}, {800, 600}}, false, std::nullopt, std::nullopt}};
        layout.windows.front().displayUUID = uuid;
        layout.windows.front().frame.origin.x = x;
        return layout;
    };
    ASSERT_TRUE(m_store.save(onDisplay(layoutNamed(office, "Default"), "A", 1)) &&
                m_store.saveAsActive(onDisplay(layoutNamed(office, "Work"), "A", 2)) &&
                m_store.save(onDisplay(layoutNamed(home, "Default"), "B", 1)) &&
                m_store.save(onDisplay(layoutNamed(home, "Work"), "B", 3)));
    AppRule rule = ruleFor("editor", "Editor");
    rule.action = AppRule::ForceDisplay{"A", "D"};
    ASSERT_TRUE(m_store.setRule(rule));
    const auto displays = m_store.layout(home, "Work")->displays;
    EXPECT_FALSE(m_store.moveDesk("nowhere", home, displays));

    ASSERT_TRUE(m_store.moveDesk(office, home, displays));
    LayoutStore again = open();
    EXPECT_THAT(fieldsOf(again.layouts(home), &Layout::layoutName), ElementsAre("Default", "Work", "Work 2"))
        << "of two equal ones, one is enough";
    EXPECT_EQ(again.layout(home, "Work"), onDisplay(layoutNamed(home, "Work"), "B", 2));
    EXPECT_EQ(again.activeLayoutName(home), "Work");
    EXPECT_THAT(again.layouts(office), IsEmpty());
    EXPECT_EQ(std::get<AppRule::ForceDisplay>(again.rules().front().action).uuid, "B");
    EXPECT_EQ(again.presentDesk(office), home);
    EXPECT_FALSE(again.presentDesk(home));

    ASSERT_TRUE(again.moveDesk(home, "third", displays) && again.moveDesk("third", office, displays));
    EXPECT_EQ(again.presentDesk(home), office);
    EXPECT_EQ(again.presentDesk("third"), office);
}

TEST_F(LayoutStoreTest, PinsOneLayoutOfOneDesk) {
    saveAll(office, {"Default", "Work"});
    EXPECT_TRUE(m_store.setPinned(true, office, "Work"));
    EXPECT_FALSE(m_store.setPinned(true, office, "Play"));
    EXPECT_TRUE(open().layout(office, "Work")->isPinned());
    EXPECT_FALSE(open().layout(office, "Default")->isPinned());
}

TEST_F(LayoutStoreTest, KeepsOneRulePerAppInAlphabeticalOrder) {
    for (const auto& rule : {ruleFor("3", "gamma"), ruleFor("2", "Beta"), ruleFor("1", "alpha")}) {
        ASSERT_TRUE(m_store.setRule(rule));
    }
    EXPECT_THAT(fieldsOf(m_store.rules(), &AppRule::appName), ElementsAre("alpha", "Beta", "gamma"));
    ASSERT_TRUE(m_store.setRule(ruleFor("2", "Zeta")));
    ASSERT_TRUE(m_store.setRule(ruleFor("4", "ALPHA")));
    EXPECT_THAT(fieldsOf(m_store.rules(), &AppRule::appName), ElementsAre("alpha", "ALPHA", "gamma", "Zeta"));
    ASSERT_TRUE(m_store.removeRule("3"));
    EXPECT_THAT(fieldsOf(open().rules(), &AppRule::appName), ElementsAre("alpha", "ALPHA", "Zeta"));
}

} // namespace

} // namespace vantrel
