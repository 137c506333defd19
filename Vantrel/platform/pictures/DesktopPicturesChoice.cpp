#include "Vantrel/platform/pictures/DesktopPicturesChoice.h"

#include "Vantrel/platform/pictures/RootPictures.h"
#include "Vantrel/platform/pictures/SettingPictures.h"
#include "Vantrel/platform/pictures/XfcePictures.h"

#include <utility>

namespace vantrel {

std::unique_ptr<DesktopPictures> desktopPictures(std::string_view currentDesktop,
                                                 std::shared_ptr<X11Connection> connection) {
    if (currentDesktop.find("XFCE") != std::string_view::npos) {
        return std::make_unique<XfcePictures>(std::move(connection));
    }
    auto fromSettings = settingPictures(currentDesktop);
    return fromSettings ? std::move(fromSettings) : std::make_unique<RootPictures>();
}

} // namespace vantrel
