#include "VantrelCore/windows/LaunchPlacement.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

const AppRule ignoreEditor{"editor", "Editor", AppRule::Ignore{}, std::nullopt};

AppRule force(const std::string& bundleID, const std::string& uuid) {
    return {bundleID, bundleID, AppRule::ForceDisplay{uuid, "Display"}, std::nullopt};
}

DisplayInfo display(const std::string& uuid, const Rect& frame) {
    return {uuid, uuid, frame, false, std::nullopt, Rect{frame.origin, {100, 100}}};
}

Layout remembering(const std::vector<std::pair<std::string, Rect>>& editorWindows) {
    Layout layout;
    WindowRecord other;
    other.bundleID = "browser";
    other.displayUUID = "left";
    other.frame = {{1, 1}, {1000, 750}};
    layout.windows.push_back(other);
    for (const auto& [displayUUID, frame] : editorWindows) {
        auto& window = layout.windows.emplace_back();
        window.bundleID = "editor";
        window.displayUUID = displayUUID;
        window.frame = frame;
    }
    return layout;
}

TEST(LaunchPlacement, DecidesByRulesThenByTheClosestRememberedSize) {
    const std::vector displays{display("left", {{0, 0}, {1440, 900}}),
                               display("right", {{1440, 0}, {2560, 1440}})};
    const Rect newWindow{{77, 88}, {1000, 800}};
    const Rect small{{10, 10}, {800, 600}};
    const Rect large{{1500, 20}, {1200, 900}};
    const Rect exact{{30, 30}, {1000, 800}};
    const Layout none = remembering({});
    const struct {
        const char* what;
        std::vector<AppRule> rules;
        std::optional<Layout> layout;
        std::optional<Rect> expected;
    } cases[] = {
        {"nothing stored", {}, std::nullopt, std::nullopt},
        {"nothing remembered of this application", {}, none, std::nullopt},
        {"one window", {}, remembering({{"gone", large}}), large},
        {"the closest size", {}, remembering({{"left", small}, {"left", exact}, {"left", large}}), exact},
        {"ignored, though forced too",
         {force("editor", "right"), ignoreEditor},
         remembering({{"right", large}}),
         std::nullopt},
        {"another application's rule", {force("browser", "right")}, remembering({{"left", small}}), small},
        {"forced display away",
         {force("editor", "gone")},
         remembering({{"left", small}, {"gone", large}}),
         std::nullopt},
        {"remembered on the forced display",
         {force("editor", "right")},
         remembering({{"left", exact}, {"right", large}}),
         large},
        {"only remembered elsewhere: centred on the whole display",
         {force("editor", "right")},
         remembering({{"left", exact}}),
         Rect{{2220, 320}, {1000, 800}}},
        {"forced without a stored layout",
         {force("editor", "right")},
         std::nullopt,
         Rect{{2220, 320}, {1000, 800}}},
        {"the first rule counts",
         {force("editor", "right"), force("editor", "gone")},
         none,
         Rect{{2220, 320}, {1000, 800}}},
    };
    for (const auto& [what, rules, layout, expected] : cases) {
        EXPECT_EQ(LaunchPlacement::target("editor", newWindow, rules, layout, displays), expected) << what;
    }
}

TEST(LaunchPlacement, OfTwoEquallyCloseSizesTheEarlierWindowWins) {
    const Rect small{{10, 10}, {800, 600}};
    const Rect large{{20, 20}, {1200, 900}};
    const Rect newWindow{{0, 0}, {1000, 750}};
    EXPECT_EQ(LaunchPlacement::target("editor", newWindow, {}, remembering({{"a", small}, {"a", large}}), {}),
              small);
    EXPECT_EQ(LaunchPlacement::target("editor", newWindow, {}, remembering({{"a", large}, {"a", small}}), {}),
              large);
}

TEST(LaunchPlacement, NoTwoWindowsGetTheSameRememberedPlace) {
    const Rect first{{10, 10}, {800, 600}};
    const Rect second{{300, 40}, {800, 600}};
    const Rect opened{{77, 88}, {800, 600}};
    const auto layout = remembering({{"left", first}, {"left", second}});
    using Targets = std::vector<std::optional<Rect>>;
    EXPECT_EQ(LaunchPlacement::targets("editor", {opened, opened, opened}, {}, {}, layout, {}),
              (Targets{first, second, std::nullopt}));
    const Rect nearFirst{{11, 9}, {800, 601}};
    EXPECT_EQ(LaunchPlacement::targets("editor", {opened, opened}, {nearFirst, opened}, {}, layout, {}),
              (Targets{second, std::nullopt}))
        << "another process's window stands at the first";
    EXPECT_EQ(LaunchPlacement::targets("editor", {opened}, {}, {}, std::nullopt, {}), Targets{std::nullopt});
}

} // namespace
} // namespace vantrel
