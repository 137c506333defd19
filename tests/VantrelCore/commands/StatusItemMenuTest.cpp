#include "VantrelCore/commands/StatusItemMenu.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;

std::vector<std::string> titles(const std::vector<StatusItemMenuEntry>& entries) {
    std::vector<std::string> texts;
    texts.reserve(entries.size());
    for (const auto& entry : entries) {
        texts.push_back(
            entry.kind == StatusItemMenuEntry::Kind::separator ? "-" : StatusItemMenuBuilder::title(entry));
    }
    return texts;
}

TEST(StatusItemMenu, ScenesComeFirstInTheirOrderAndUndoBehindRestore) {
    const auto entries = StatusItemMenuBuilder::build({{"2", "Writing"}, {"1", "Calls"}}, "Display change");
    EXPECT_THAT(titles(entries), ElementsAre("Writing", "Calls", "Restore now", "Undo last restore", "-",
                                             "Layouts…", "Settings…", "Quit Vantrel"));
    EXPECT_EQ(entries[0], StatusItemMenuEntry::scene("2", "Writing"));
    EXPECT_EQ(entries[3], StatusItemMenuEntry::undoLastRestore("Display change"));
}

TEST(StatusItemMenu, SaysWhatIsNewAboveTheEntries) {
    const auto all = StatusItemMenuBuilder::withNotices(StatusItemMenuBuilder::build({}, std::nullopt),
                                                        {true, "1.2", true, {"It could not be saved"}});
    EXPECT_THAT(titles(all),
                ElementsAre("Trial ended", "Get Vantrel · $19", "It could not be saved",
                            "Update available · v1.2", "Keep Spaces in Place", "-", "Restore now", "-",
                            "Layouts…", "Settings…", "Check for Updates…", "Quit Vantrel"));
    const auto none = StatusItemMenuBuilder::withNotices(StatusItemMenuBuilder::build({}, std::nullopt), {});
    EXPECT_THAT(titles(none), ElementsAre("Restore now", "-", "Layouts…", "Settings…", "Check for Updates…",
                                          "Quit Vantrel"));
}

} // namespace
} // namespace vantrel
