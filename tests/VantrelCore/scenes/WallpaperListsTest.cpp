// The lists of pictures that desktops come with, as their packages have them and damaged.
#include "VantrelCore/scenes/SystemWallpaperCatalog.h"
#include "VantrelCore/scenes/WallpaperRecents.h"

#include <gmock/gmock.h>

namespace vantrel {

void PrintTo(const SystemWallpaper& wallpaper, std::ostream* stream) {
    *stream << wallpaper.name << " = " << wallpaper.path;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<std::string> german{"de_DE", "de"};

TEST(WallpaperLists, ReadsTheListsOfGnomeAndMate) {
    const auto found = WallpaperLists::pictures(R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE wallpapers SYSTEM "gnome-wp-list.dtd">
<wallpapers>
  <!-- <wallpaper><name>Old</name><filename>/old.png</filename></wallpaper> -->
  <wallpaper deleted="false">
    <name>Blobs &amp; Dots</name> <name xml:lang="de">Kleckse &#x26; Punkte</name> <name xml:lang="fr">Taches</name>
    <filename>/usr/share/backgrounds/gnome/blobs-l.svg</filename>
    <filename-dark>/usr/share/backgrounds/gnome/blobs-d.svg</filename-dark>
    <options>zoom</options><shade_type/>
  </wallpaper>
  <wallpaper deleted="true"><name>Gone</name><filename>/gone.png</filename></wallpaper>
  <wallpaper><_name>Day</_name><filename>/slides/day.xml</filename></wallpaper>
  <wallpaper><filename><![CDATA[/usr/share/R&D.jpg]]></filename></wallpaper>
  <wallpaper><name>Relative</name><filename>lake.png</filename></wallpaper>
</wallpapers>)",
                                                german);
    EXPECT_THAT(
        found,
        ElementsAre(SystemWallpaper{"Kleckse & Punkte", "/usr/share/backgrounds/gnome/blobs-l.svg"},
                    SystemWallpaper{"Kleckse & Punkte (dark)", "/usr/share/backgrounds/gnome/blobs-d.svg"},
                    SystemWallpaper{"R&D", "/usr/share/R&D.jpg"}));
}

TEST(WallpaperLists, ReadsADamagedListUpToTheDamage) {
    const std::string whole = "<wallpapers><wallpaper><name>A</name><filename>/a.png</filename></wallpaper>";
    for (const char* const rest : {"", "<wallpaper><name>B</name><filename>/b.png", "<wallpaper",
                                   "<wallpaper deleted=yes><x>", "<wallpaper deleted=\"", "<!-- no end",
                                   "<![CDATA[", "<>", "</wallpaper></wallpaper>&#xD800;&;&#0"}) {
        EXPECT_THAT(WallpaperLists::pictures(whole + rest, {}), ElementsAre(SystemWallpaper{"A", "/a.png"}))
            << rest;
    }
    for (const char* const other : {"", "no list", "\xff\xfe<", "<wallpaper/>", "</filename>"}) {
        EXPECT_THAT(WallpaperLists::pictures(other, {}), IsEmpty()) << other;
    }
}

TEST(WallpaperLists, ReadsThePackagesOfKde) {
    const std::pair<std::string, std::optional<std::string>> packages[] = {
        {R"({"KPlugin": {"Id": "Altai", "Name": "Altai", "Name[de]": "Altaj", "Authors": []}})", "Altaj"},
        {R"({"KPlugin": {"Name": 7}})", std::nullopt},
        {R"({"KPlugin": )", std::nullopt},
        {R"({"KPlugin": []})", std::nullopt},
        {"[Desktop Entry]\nName=Path\nName[de]=Pfad \n[Other]\nName[de]=Anderes\n", "Pfad"},
        {"Name=Outside of every group", std::nullopt}};
    for (const auto& [metadata, name] : packages) {
        EXPECT_EQ(WallpaperLists::packageName(metadata, german), name) << metadata;
    }
    EXPECT_EQ(WallpaperLists::largestImage({"1920x1080.png", "440x247.png", "3840x2160.png", "notes.txt"}),
              "3840x2160.png");
    EXPECT_EQ(WallpaperLists::largestImage({"vertical.jpg", "9x.jpg"}), "vertical.jpg");
    EXPECT_EQ(WallpaperLists::largestImage({"notes.txt"}), std::nullopt);
    EXPECT_EQ(WallpaperLists::languagesOf("de_DE.UTF-8"), german);
    EXPECT_THAT(WallpaperLists::languagesOf("C.UTF-8"), IsEmpty());
}

TEST(SystemWallpaperCatalog, ListsImageFilesByNameAndEachOnce) {
    using namespace SystemWallpaperCatalog;
    EXPECT_THAT(
        imagePaths({"sonoma.heic", "Radial.JPG", ".hidden.png", "notes.txt", "Folder", "Abstract 2.tiff"}),
        ElementsAre("/System/Library/Desktop Pictures/Abstract 2.tiff",
                    "/System/Library/Desktop Pictures/Radial.JPG",
                    "/System/Library/Desktop Pictures/sonoma.heic"));
    EXPECT_EQ(displayName("/System/Library/Desktop Pictures/Abstract 2.5.tiff"), "Abstract 2.5");
    EXPECT_THAT(ordered({{"Lake", "/l.png"}, {"dunes", "/d.png"}, {"l", "/l.png"}}),
                ElementsAre(SystemWallpaper{"dunes", "/d.png"}, SystemWallpaper{"Lake", "/l.png"}));
}

TEST(WallpaperRecents, KeepTheNewestAndEachOnce) {
    std::vector<std::string> recents;
    for (const char* const path : {"/1", "/2", "/3", "/4", "/5", "/6", "/7", "/8", "/9", "/2", ""}) {
        recents = WallpaperRecents::with(recents, path);
    }
    EXPECT_THAT(recents, ElementsAre("/2", "/9", "/8", "/7", "/6", "/5", "/4", "/3"));
}

} // namespace
} // namespace vantrel
