#include "tools/pictures/Surface.h"

namespace vantrel::pictures {

std::vector<Surface> everySurface() {
    std::vector<Surface> all;
    for (auto* const some : {deskSurfaces, panelSurfaces, onboardingSurfaces, switcherSurfaces,
                             workbenchSurfaces, rulesAndSettingsSurfaces, editorSurfaces}) {
        for (Surface& surface : some()) {
            all.push_back(std::move(surface));
        }
    }
    return all;
}

} // namespace vantrel::pictures
