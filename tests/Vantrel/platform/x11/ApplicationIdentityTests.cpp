#include "Vantrel/platform/x11/ApplicationIdentity.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(ApplicationIdentity, IsWhatAProgramStatesElseWhatItsClassIsInstalledAsElseItsClass) {
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

} // namespace
} // namespace vantrel
