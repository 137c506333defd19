// Any list of wallpapers, and any metadata of a package, gives named image files with absolute paths or
// nothing.
#include "VantrelCore/scenes/SystemWallpaperCatalog.h"
#include "VantrelCore/text/XmlScanner.h"
#include "tests/fuzz/Law.h"

#include <filesystem>

using namespace vantrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    for (const SystemWallpaper& found : WallpaperLists::pictures(text, {"de"})) {
        const std::filesystem::path path = found.path;
        fuzz::require(!found.name.empty(), "every picture has a name");
        fuzz::require(path.is_absolute() &&
                          SystemWallpaperCatalog::isWallpaperImage(path.filename().string()),
                      "every picture is an image file");
    }
    if (const auto name = WallpaperLists::packageName(text, {"de"})) {
        fuzz::require(!name->empty(), "a package has a name or none");
    }
    // Every token takes something of the document.
    XmlScanner scanner(text);
    std::size_t count = 0;
    while (scanner.next()) {
        ++count;
    }
    fuzz::require(count <= 2 * size, "a document has no more tokens than characters");
    return 0;
}
