// Makes the desktop start this program at login, or no longer, in the way that AutostartWay chooses.
#pragma once

#include "Vantrel/platform/posix/AutostartFile.h"

#include <QDBusConnection>

#include <string>

namespace vantrel {

class LaunchAtLogin {
public:
    // `files` must outlive it. `program` is an absolute path.
    LaunchAtLogin(FileSystem& files, const std::string& program);

    // Returns a message for the log; empty if there was nothing to do. Later calls mean that the setting has
    // been changed.
    std::string set(bool launches, const QDBusConnection& bus);

private:
    std::string m_program;
    AutostartFile m_entry;
    bool m_isChange = false;
};

} // namespace vantrel
