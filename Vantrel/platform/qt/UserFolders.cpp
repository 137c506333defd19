#include "Vantrel/platform/qt/UserFolders.h"

#include <QStandardPaths>

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

std::filesystem::path supportDirectory() {
    return data() / "Vantrel";
}

std::filesystem::path settingsFile() {
    return folder(QStandardPaths::GenericConfigLocation) / "vantrel" / "settings.conf";
}

std::filesystem::path autostartFile() {
    return folder(QStandardPaths::GenericConfigLocation) / "autostart" / "vantrel.desktop";
}

} // namespace vantrel::UserFolders
