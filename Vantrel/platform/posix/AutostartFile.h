// Has the desktop start this program with the user's session, by an entry in the autostart folder.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <filesystem>
#include <string>

namespace vantrel {

class AutostartFile {
public:
    // The file system outlives it. `program` is an absolute path.
    AutostartFile(FileSystem& files, std::filesystem::path file, std::string program);

    // What came of it, for the log; empty when there was nothing to do.
    std::string setLaunchAtLogin(bool launches);

private:
    FileSystem& m_files;
    std::filesystem::path m_file;
    std::string m_program;
};

} // namespace vantrel
