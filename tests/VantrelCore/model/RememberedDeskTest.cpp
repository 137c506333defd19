// What lists say of desks and of applications.
#include "VantrelCore/model/RememberedDesk.h"
#include "VantrelCore/model/AppFacts.h"
#include "VantrelCore/windows/RestorePreview.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace vantrel {
namespace {

Date at(int second) {
    return Date{std::chrono::seconds{second}};
}

Layout layout(const char* desk, const char* deskName, const char* name, int savedAt) {
    Layout result = layoutOf({windowOf("mail", {{0, 0}, {800, 600}})});
    result.configID = desk;
    result.name = deskName;
    result.layoutName = name;
    result.displays = {displayOf(name, {{0, 0}, {1000, 800}})};
    result.savedAt = at(savedAt);
    result.otherWindows = result.windows;
    return result;
}

TEST(RememberedDesks, ThePresentOneIsFirstAndAllKnowWhenTheyWereLastSeen) {
    const std::vector layouts{layout("b", "attic", "Work", 20), layout("a", "Zoo", "Default", 10),
                              layout("b", "attic", "Default", 5), layout("c", "Barn", "Default", 1)};
    Stash stash;
    stash.configID = "a";
    stash.createdAt = at(30);
    RestoreLog log;
    log.entries.push_back({.date = at(40), .reason = {}, .sceneName = {}, .configID = "c", .items = {}});
    log.entries.push_back({.date = at(50), .reason = {}, .sceneName = {}, .configID = "gone", .items = {}});
    const auto desks = RememberedDesks::of(
        {.layouts = layouts,
         .stashes = {stash},
         .log = log,
         .activeLayoutName = [](const std::string& desk) { return desk == "b" ? "Work" : "Default"; }},
        {"c", "Barn", {displayOf("here", {{0, 0}, {500, 400}})}});
    std::string told;
    for (const RememberedDesk& desk : desks) {
        told += fmt::format("{}{} on {}, {} stashes, seen {}:", desk.name, desk.isPresent ? "*" : "",
                            desk.displays.front().name, desk.stashes,
                            desk.lastSeen->time_since_epoch().count() / 1'000'000);
        for (const auto& each : desk.layouts) {
            told += fmt::format(" {}{} {}", each.name, &each == desk.shownLayout() ? "!" : "", each.windows);
        }
        told += "; ";
    }
    EXPECT_EQ(told, "Barn* on here, 0 stashes, seen 40: Default! 2; "
                    "attic on Work, 0 stashes, seen 20: Default 2 Work! 2; "
                    "Zoo on Default, 1 stashes, seen 30: Default! 2; ");
    const std::vector<Layout> none;
    const auto fresh = RememberedDesks::of({none, {}, {}, {}}, {"new", "New", {}});
    ASSERT_EQ(fresh.size(), 1U);
    EXPECT_EQ(fresh.front().shownLayout(), nullptr);
    EXPECT_EQ(fresh.front().lastSeen, std::nullopt);
    EXPECT_TRUE(RememberedDesks::of({none, {}, {}, {}}, {}).empty());
}

TEST(AppFactsText, SaysTheSizesThenHowRestoresEnded) {
    AppFacts app{.bundleID = "chat", .appName = "Chat"};
    EXPECT_EQ(AppFactsText::summary(app), "");
    app.sizes = AppSizeBehavior::FixedSize{{340, 500}};
    EXPECT_EQ(AppFactsText::summary(app), "Keeps one fixed size");
    app.sizes = AppSizeBehavior::MinClamped{{479.6, 320}};
    app.reliability.emplace();
    app.reliability->restoredCount = 200;
    app.reliability->retriedCount = 4;
    app.reliability->failedCount = 1;
    EXPECT_EQ(AppFactsText::summary(app), "Never smaller than 480 × 320 · 204 put back · 1 could not move");
}

TEST(RestorePreviews, SayWhatPairedTheWindowsAndWhichAreNotRemembered) {
    using Fate = RestorePreview::Fate;
    const auto window = [](const char* app, const char* title, double x, std::int64_t zOrder) {
        WindowRecord record = windowOf(app, {{x, 0}, {800, 600}}, "", zOrder);
        record.title = title;
        return record;
    };
    const Layout saved = layoutOf({window("code", "geometry.cpp", 0, 2), window("mail", "Inbox", 0, 0),
                                   window("chat", "Team", 0, 1), window("code", "Notes for later", 0, 3)});
    const std::vector<LiveWindow> live{{window("code", "other", 0, 0), WindowID{1}, true},
                                       {window("mail", "Drafts", 50, 1), WindowID{2}, true},
                                       {window("code", "geometry.cpp", 0.5, 2), WindowID{3}, true},
                                       {window("music", "Song", 0, 3), WindowID{4}, true}};
    const auto preview =
        RestorePreviews::of(saved, {}, {live, {"code", "mail", "music"}}, RestoreEngine::Sizes::restore);
    std::string told;
    for (const auto& each : preview.windows) {
        told += each.saved.bundleID + " " + std::string(RestorePreviews::text(each.fate)) +
                (each.match ? ", " + std::string(RestorePreviews::text(*each.match)) : "") + "; ";
    }
    EXPECT_EQ(told, "mail would move, only one open; chat not running; code in place, same title; "
                    "code in place, same place in the stack; ");
    ASSERT_EQ(preview.unremembered.size(), 1U);
    EXPECT_EQ(preview.unremembered.front().title, "Song");
    EXPECT_EQ(preview.count(Fate::inPlace), 2U);
    EXPECT_EQ(RestorePreviews::summary(preview), "1 window would move · 2 in place · 1 not open");
    EXPECT_EQ(RestorePreviews::summary({}), "Nothing is remembered here yet");
}

} // namespace
} // namespace vantrel
