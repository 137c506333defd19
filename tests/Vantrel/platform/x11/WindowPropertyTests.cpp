// What the properties of a window say.
#include "Vantrel/platform/x11/PropertyText.h"
#include "Vantrel/platform/x11/WindowTraits.h"

#include <glib.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>

namespace vantrel {
namespace {

using PropertyText::decode;
using PropertyText::Encoding;
using namespace std::string_view_literals;

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

TEST(PropertyText, ReadsUtf8AndLatin1) {
    EXPECT_EQ(decode("Brief – größer.odt", Encoding::utf8), "Brief – größer.odt");
    EXPECT_EQ(decode("größer", Encoding::latin1), "größer") << "UTF-8 in a property of type STRING";
    // Old text is Latin-1.
    EXPECT_EQ(decode("gr\xf6\xdf"
                     "er",
                     Encoding::latin1),
              "größer");
}

TEST(PropertyText, TextEndsAtANulAndBeforeACharacterCutInTwo) {
    EXPECT_EQ(decode("one\0two"sv, Encoding::utf8), "one");
    EXPECT_EQ(decode("abc\xe2\x80", Encoding::utf8), "abc");
    EXPECT_EQ(decode("a\xff"
                     "b",
                     Encoding::utf8),
              "a\xef\xbf\xbd"
              "b");
}

RC_GTEST_PROP(PropertyText, WhateverTheBytesTheTextIsValid, (const std::string& bytes)) {
    for (const auto encoding : {Encoding::utf8, Encoding::latin1}) {
        const auto text = decode(bytes, encoding);
        RC_ASSERT(g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) != 0);
    }
}

TEST(PropertyText, AClassPropertyMayLackItsSecondHalf) {
    using Texts = std::pair<std::string, std::string>;
    EXPECT_EQ(PropertyText::decodeClass("xterm\0XTerm\0"sv), (Texts{"xterm", "XTerm"}));
    EXPECT_EQ(PropertyText::decodeClass("xterm\0"sv), (Texts{"xterm", ""}));
    EXPECT_EQ(PropertyText::decodeClass("xterm"), (Texts{"xterm", ""}));
}

} // namespace
} // namespace vantrel
