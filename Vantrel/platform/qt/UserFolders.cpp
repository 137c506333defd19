#include "Vantrel/platform/qt/UserFolders.h"

#include <QStandardPaths>

namespace vantrel::UserFolders {

namespace {

std::filesystem::path folder(QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location).toStdString();
}

} // namespace

std::filesystem::path supportDirectory() {
    return folder(QStandardPaths::GenericDataLocation) / "Vantrel";
}

std::filesystem::path settingsFile() {
    return folder(QStandardPaths::GenericConfigLocation) / "vantrel" / "settings.conf";
}

} // namespace vantrel::UserFolders
