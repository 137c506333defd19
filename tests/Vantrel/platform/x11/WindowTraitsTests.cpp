#include "Vantrel/platform/x11/WindowTraits.h"

#include "VantrelCore/ports/Accessibility.h"

#include <gtest/gtest.h>
#include <optional>
#include <string_view>

namespace vantrel {
namespace {

TEST(WindowTraits, OnlyOrdinaryWindowsAreStandardWindows) {
    const struct {
        const char* what;
        WindowTraits traits;
        std::string_view subrole;
    } cases[] = {
        {"no type", {}, "AXStandardWindow"},
        {"normal", {.type = WindowType::normal}, "AXStandardWindow"},
        {"normal, for another window", {.type = WindowType::normal, .isTransient = true}, "AXStandardWindow"},
        {"no type, for another window", {.isTransient = true}, "AXDialog"},
        {"dialog", {.type = WindowType::dialog}, "AXDialog"},
        {"modal", {.type = WindowType::normal, .isModal = true}, "AXDialog"},
        {"not in the taskbar", {.isSkipTaskbar = true}, "AXFloatingWindow"},
        {"toolbox", {.type = WindowType::utility}, "AXFloatingWindow"},
        {"unmanaged", {.type = WindowType::normal, .isOverrideRedirect = true}, "AXUnknown"},
        {"panel", {.type = WindowType::dock}, "AXUnknown"},
        {"start-up picture", {.type = WindowType::splash}, "AXUnknown"},
    };
    for (const auto& [what, traits, subrole] : cases) {
        EXPECT_EQ(traits.subrole(), subrole) << what;
    }
}

TEST(WindowTraits, PanelsMenusAndNotificationsStandOnOtherLayers) {
    EXPECT_EQ(WindowTraits{}.layer(), normalWindowLayer);
    EXPECT_EQ(WindowTraits{.type = WindowType::dialog}.layer(), normalWindowLayer);
    EXPECT_EQ(WindowTraits{.type = WindowType::desktop}.layer(), std::nullopt);
    for (const auto type : {WindowType::dock, WindowType::menu, WindowType::notification}) {
        EXPECT_NE(WindowTraits{.type = type}.layer().value(), normalWindowLayer);
    }
}

TEST(WindowTraits, ARolledUpWindowIsNotMinimized) {
    EXPECT_TRUE(WindowTraits{.isHidden = true}.isMinimized());
    EXPECT_FALSE((WindowTraits{.isHidden = true, .isShaded = true}.isMinimized()));
}

} // namespace
} // namespace vantrel
