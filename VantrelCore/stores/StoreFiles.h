// What stores need besides a folder: the file system, and where to report incidents with their files.
#pragma once

#include "VantrelCore/ports/FileSystem.h"
#include "VantrelCore/stores/FileIncidents.h"

namespace vantrel {

class StoreFiles {
public:
    // Both must outlive the stores. Without `incidents` nothing is reported.
    StoreFiles(FileSystem& files, FileIncidents* incidents = nullptr)
        : m_files(&files), m_incidents(incidents) {}

    [[nodiscard]] FileSystem& files() const { return *m_files; }
    [[nodiscard]] FileIncidents* incidents() const { return m_incidents; }

private:
    FileSystem* m_files;
    FileIncidents* m_incidents;
};

} // namespace vantrel
