#include "Vantrel/platform/x11/WindowTraits.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(WindowTraits, OnlyNormalWindowsAreOrdinary) {
    const struct {
        const char* what;
        WindowTraits traits;
        WindowKind kind;
    } cases[] = {
        {"no type", {}, WindowKind::ordinary},
        {"normal", {.type = WindowType::normal}, WindowKind::ordinary},
        {"normal, for another window",
         {.type = WindowType::normal, .isTransient = true},
         WindowKind::ordinary},
        {"no type, for another window", {.isTransient = true}, WindowKind::panel},
        {"dialog", {.type = WindowType::dialog}, WindowKind::panel},
        {"modal", {.type = WindowType::normal, .isModal = true}, WindowKind::panel},
        {"not in the taskbar", {.isSkipTaskbar = true}, WindowKind::panel},
        {"toolbox", {.type = WindowType::utility}, WindowKind::panel},
        {"unmanaged", {.type = WindowType::normal, .isOverrideRedirect = true}, WindowKind::other},
        {"panel", {.type = WindowType::dock}, WindowKind::other},
        {"start-up picture", {.type = WindowType::splash}, WindowKind::other},
    };
    for (const auto& [what, traits, kind] : cases) {
        EXPECT_EQ(traits.kind(), kind) << what;
    }
}

TEST(WindowTraits, ToolboxesDoNotMakeAnApplicationRegular) {
    EXPECT_EQ(WindowTraits{}.policy(), ActivationPolicy::regular);
    EXPECT_EQ(WindowTraits{.type = WindowType::dialog}.policy(), ActivationPolicy::regular);
    EXPECT_EQ(WindowTraits{.isModal = true}.policy(), ActivationPolicy::regular);
    for (const auto type : {WindowType::utility, WindowType::dock, WindowType::desktop}) {
        EXPECT_EQ(WindowTraits{.type = type}.policy(), ActivationPolicy::accessory);
    }
}

TEST(WindowTraits, ARolledUpWindowIsNotMinimized) {
    EXPECT_TRUE(WindowTraits{.isHidden = true}.isMinimized());
    EXPECT_FALSE((WindowTraits{.isHidden = true, .isShaded = true}.isMinimized()));
}

} // namespace
} // namespace vantrel
