// Makes the desktop start this program at login, with an entry in the autostart folder.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <filesystem>
#include <string>

namespace vantrel {

class AutostartFile {
public:
    // `files` must outlive it. `program` is an absolute path.
    AutostartFile(FileSystem& files, std::filesystem::path file, std::string program);

    // The user has changed the entry.
    [[nodiscard]] bool isTheUsers();

    // Returns a message for the log; empty if there was nothing to do.
    std::string setLaunchAtLogin(bool launches);

private:
    FileSystem& m_files;
    std::filesystem::path m_file;
    std::string m_program;
};

} // namespace vantrel
