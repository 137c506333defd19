#include "VantrelCore/windows/LaunchPlacement.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

// Windows of the editor, behind one of the browser.
Layout remembering(const std::vector<std::pair<std::string, Rect>>& editorWindows) {
    Layout layout = layoutOf({windowOf("browser", {{1, 1}, {1000, 750}}, "left")});
    for (const auto& [displayUUID, frame] : editorWindows) {
        layout.windows.push_back(windowOf("editor", frame, displayUUID));
    }
    return layout;
}

TEST(LaunchPlacement, DecidesByRulesThenByTheClosestRememberedSize) {
    const std::vector displays{displayOf("left", {{0, 0}, {1440, 900}}),
                               displayOf("right", {{1440, 0}, {2560, 1440}}, Rect{{1440, 0}, {100, 100}})};
    const Rect newWindow{{77, 88}, {1000, 800}};
    const Rect small{{10, 10}, {800, 600}};
    const Rect large{{1500, 20}, {1200, 900}};
    const Rect asClose{{20, 20}, {1200, 1000}};
    const Rect exact{{30, 30}, {1000, 800}};
    const Rect centred{{2220, 320}, {1000, 800}};
    const std::vector toRight{forcing("editor", "right")};
    const struct {
        const char* what;
        std::vector<AppRule> rules;
        std::optional<Layout> layout;
        std::optional<Rect> expected;
    } cases[] = {
        {"nothing stored", {}, std::nullopt, std::nullopt},
        {"nothing remembered of this application", {}, remembering({}), std::nullopt},
        {"one window", {}, remembering({{"gone", large}}), large},
        {"the closest size", {}, remembering({{"", small}, {"", exact}, {"", large}}), exact},
        {"the earlier of two as close", {}, remembering({{"", small}, {"", asClose}}), small},
        {"the larger of them earlier", {}, remembering({{"", asClose}, {"", small}}), asClose},
        {"ignored, though forced too",
         {forcing("editor", "right"), ignoring("editor")},
         remembering({{"right", large}}),
         std::nullopt},
        {"another application's rule", {forcing("browser", "right")}, remembering({{"left", small}}), small},
        {"forced display away", {forcing("editor", "gone")}, remembering({{"gone", large}}), std::nullopt},
        {"no display: only placed last", {forcing("editor", "")}, remembering({{"", small}}), small},
        {"on the forced display", toRight, remembering({{"left", exact}, {"right", large}}), large},
        {"elsewhere: centred on the whole display", toRight, remembering({{"left", exact}}), centred},
        {"forced without a stored layout", toRight, std::nullopt, centred},
        {"the first rule counts", {toRight[0], forcing("editor", "gone")}, remembering({}), centred},
    };
    for (const auto& [what, rules, layout, expected] : cases) {
        EXPECT_EQ(LaunchPlacement::target("editor", newWindow, rules, layout, displays), expected) << what;
    }
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
    EXPECT_EQ(LaunchPlacement::targets("editor", {opened}, {first}, {}, {}, {}), Targets{std::nullopt});
}

} // namespace
} // namespace vantrel
