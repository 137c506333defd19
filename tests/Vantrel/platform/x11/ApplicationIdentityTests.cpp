#include "Vantrel/platform/x11/ApplicationIdentity.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using ApplicationIdentities::identify;

const DesktopEntryTable& installed() {
    static const DesktopEntryTable table({
        {.id = "org.example.Editor", .name = "Editor"},
        {.id = "painter", .name = "Painter", .startupWMClass = "Paint-Main"},
        {.id = "painter-new-window", .name = "New Painter", .startupWMClass = "Paint-Main", .isHidden = true},
        {.id = "Viewer", .name = "Old Viewer"},
        {.id = "viewer", .name = "Viewer"},
        {.id = "org.one.Notes", .name = "Notes One"},
        {.id = "org.two.Notes", .name = "Notes Two"},
    });
    return table;
}

ApplicationEvidence classOf(const char* instance, const char* wmClass) {
    return {.wmInstance = instance, .wmClass = wmClass};
}

TEST(ApplicationIdentity, WhatAProgramStatesWinsOverItsClass) {
    EXPECT_EQ(identify({.gtkApplicationId = "org.example.Editor", .wmInstance = "painter", .wmClass = "x"},
                       installed()),
              (ApplicationIdentity{"org.example.Editor", "Editor"}));
    EXPECT_EQ(
        identify({.kdeDesktopFile = "/usr/share/applications/painter.desktop", .wmClass = "x"}, installed()),
        (ApplicationIdentity{"painter", "Painter"}));
    EXPECT_EQ(identify({.gtkApplicationId = "org.not.Installed", .wmClass = "Foo"}, installed()),
              (ApplicationIdentity{"org.not.Installed", "Foo"}));
}

TEST(ApplicationIdentity, TheClassIsLookedUpByStartupClassThenFileNameThenItsLastComponent) {
    EXPECT_EQ(identify(classOf("viewer", "Paint-Main"), installed()),
              (ApplicationIdentity{"painter", "Painter"}))
        << "the shown entry, not the hidden one";
    EXPECT_EQ(identify(classOf("", "PAINTER"), installed()), (ApplicationIdentity{"painter", "Painter"}));
    EXPECT_EQ(identify(classOf("Viewer", "viewer"), installed()), (ApplicationIdentity{"viewer", "Viewer"}))
        << "the same case first";
    EXPECT_EQ(identify(classOf("editor", "Editor"), installed()),
              (ApplicationIdentity{"org.example.Editor", "Editor"}));
    EXPECT_EQ(identify(classOf("notes", "Notes"), installed()), (ApplicationIdentity{"notes", "Notes"}))
        << "two desktop files end like this";
}

TEST(ApplicationIdentity, AnUnknownClassStandsForItself) {
    EXPECT_EQ(identify(classOf("xterm", "XTerm"), installed()), (ApplicationIdentity{"xterm", "XTerm"}));
    EXPECT_EQ(identify(classOf("Tool", ""), installed()), (ApplicationIdentity{"tool", "Tool"}));
}

TEST(ApplicationIdentity, AWindowThatSaysNothingHasNone) {
    EXPECT_EQ(identify({}, installed()), std::nullopt);
    EXPECT_EQ(identify({.kdeDesktopFile = ".desktop"}, installed()), std::nullopt);
}

} // namespace
} // namespace vantrel
