// Which application a window belongs to, and which applications have started.
#include "Vantrel/platform/x11/ApplicationIdentity.h"
#include "Vantrel/platform/x11/ApplicationRoll.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace vantrel {
namespace {

TEST(ApplicationIdentity, PrefersStatedIdThenDesktopFileThenClass) {
    const DesktopEntryTable installed({
        {.id = "org.example.Editor", .name = "Editor"},
        {.id = "painter", .name = "Painter", .startupWMClass = "Paint-Main"},
        {.id = "painter-new-window", .name = "New Painter", .startupWMClass = "Paint-Main", .isHidden = true},
        {.id = "Viewer", .name = "Old Viewer"},
        {.id = "viewer", .name = "Viewer"},
        {.id = "org.one.Notes", .name = "Notes One"},
        {.id = "org.two.Notes", .name = "Notes Two"},
    });
    const auto classOf = [](const char* instance, const char* wmClass) {
        return ApplicationEvidence{.wmInstance = instance, .wmClass = wmClass};
    };
    using Identity = ApplicationIdentity;
    const struct {
        const char* name;
        ApplicationEvidence evidence;
        std::optional<Identity> identity;
    } rows[] = {
        {"stated to GTK",
         {.gtkApplicationId = "org.example.Editor", .wmInstance = "painter", .wmClass = "x"},
         Identity{"org.example.Editor", "Editor"}},
        {"stated to KDE",
         {.kdeDesktopFile = "/usr/share/applications/painter.desktop", .wmClass = "x"},
         Identity{"painter", "Painter"}},
        {"stated, but not installed",
         {.gtkApplicationId = "org.not.Installed", .wmClass = "Foo"},
         Identity{"org.not.Installed", "Foo"}},
        {"startup class, shown before hidden", classOf("viewer", "Paint-Main"),
         Identity{"painter", "Painter"}},
        {"file name in another case", classOf("", "PAINTER"), Identity{"painter", "Painter"}},
        {"file name, the same case first", classOf("Viewer", "viewer"), Identity{"viewer", "Viewer"}},
        {"last component", classOf("editor", "Editor"), Identity{"org.example.Editor", "Editor"}},
        {"last component of two", classOf("notes", "Notes"), Identity{"notes", "Notes"}},
        {"unknown class", classOf("xterm", "XTerm"), Identity{"xterm", "XTerm"}},
        {"unknown instance", classOf("Tool", ""), Identity{"tool", "Tool"}},
        {"nothing", {}, std::nullopt},
        {"a desktop file without a name", {.kdeDesktopFile = ".desktop"}, std::nullopt},
    };
    for (const auto& [name, evidence, identity] : rows) {
        EXPECT_EQ(ApplicationIdentities::identify(evidence, installed), identity) << name;
    }
}

constexpr auto regular = ActivationPolicy::regular;

ListedWindow window(std::uint32_t id, std::int32_t pid, const std::string& bundleID,
                    ActivationPolicy policy = regular) {
    return {.id = id, .app = {.pid = pid, .policy = policy, .bundleID = bundleID, .localizedName = {}}};
}

struct Roll {
    ApplicationRoll roll;
    // Windows that exist without being listed.
    std::set<std::uint32_t> unlisted = {};

    // "editor 5 mail 6" for those that started.
    std::string look(const std::vector<ListedWindow>& listed) {
        std::string started;
        for (const auto& app : roll.look(listed, [&](std::uint32_t id) { return unlisted.contains(id); })) {
            started += (started.empty() ? "" : " ") + *app.bundleID + " " + std::to_string(app.pid);
        }
        return started;
    }
};

TEST(ApplicationRoll, OnlyAProcessWithoutWindowsBeforeHasStarted) {
    Roll roll;
    EXPECT_EQ(roll.look({window(1, 5, "editor")}), "");
    EXPECT_EQ(roll.look({window(1, 5, "editor"), window(2, 5, "editor"), window(3, 6, "mail")}), "mail 6");
    EXPECT_EQ(roll.look({window(1, 5, "editor"), window(4, 7, "editor"), window(5, 8, "news")}),
              "editor 7 news 8");
    EXPECT_EQ(roll.look({window(4, 7, "editor"), window(6, 6, "mail")}), "mail 6")
        << "its last window was closed";
}

TEST(ApplicationRoll, WindowsThatAreOnlyAwayFromTheListStartNothingWhenTheyReturn) {
    Roll roll;
    const std::vector<ListedWindow> all{window(1, 5, "editor"), window(2, 6, "mail")};
    EXPECT_EQ(roll.look(all), "");
    roll.unlisted = {1, 2};
    EXPECT_EQ(roll.look({}), "");
    EXPECT_EQ(roll.look({window(3, 5, "editor")}), "");
    EXPECT_EQ(roll.look(all), "");
}

TEST(ApplicationRoll, ASplashScreenIsNotTheApplicationAndANewClassNotANewOne) {
    Roll roll;
    EXPECT_EQ(roll.look({}), "");
    EXPECT_EQ(roll.look({window(1, 5, "suite", ActivationPolicy::accessory)}), "");
    EXPECT_EQ(roll.look({window(2, 5, "suite")}), "suite 5");
    EXPECT_EQ(roll.look({window(2, 5, "suite-writer")}), "");
    EXPECT_EQ(roll.look({window(2, 5, "suite-writer"), window(3, 5, "suite-writer")}), "");
}

} // namespace
} // namespace vantrel
