#include "Vantrel/platform/qt/UserFolders.h"

#include <QStandardPaths>

#include <cstdlib>

namespace vantrel::UserFolders {

namespace {

std::filesystem::path folder(QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location).toStdString();
}

} // namespace

std::filesystem::path home() {
    return folder(QStandardPaths::HomeLocation);
}

std::filesystem::path data() {
    return folder(QStandardPaths::GenericDataLocation);
}

std::vector<std::filesystem::path> allData() {
    std::vector<std::filesystem::path> folders;
    for (const QString& each : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        folders.emplace_back(each.toStdString());
    }
    return folders;
}

std::filesystem::path thumbnails() {
    return folder(QStandardPaths::GenericCacheLocation) / "thumbnails";
}

std::filesystem::path supportDirectory() {
    return data() / "vantrel";
}

std::filesystem::path olderSupportDirectory() {
    return data() / "Vantrel";
}

std::filesystem::path stateDirectory() {
    // QStandardPaths knows this folder only since Qt 6.7. A relative path counts as unset.
    const char* const stated = std::getenv("XDG_STATE_HOME");
    const std::filesystem::path state = stated != nullptr ? stated : "";
    return (state.is_absolute() ? state : home() / ".local" / "state") / "vantrel";
}

std::filesystem::path settingsFile() {
    return folder(QStandardPaths::GenericConfigLocation) / "vantrel" / "settings.conf";
}

std::filesystem::path autostartFile() {
    return folder(QStandardPaths::GenericConfigLocation) / "autostart" / "vantrel.desktop";
}

} // namespace vantrel::UserFolders
