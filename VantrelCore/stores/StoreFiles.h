// What stores need besides a folder: the file system, where to report incidents with their files, and who
// writes in the background.
#pragma once

#include "VantrelCore/ports/FileSystem.h"
#include "VantrelCore/stores/BackgroundWriter.h"
#include "VantrelCore/stores/FileIncidents.h"

namespace vantrel {

class StoreFiles {
public:
    // All must outlive the stores. Without `incidents` nothing is reported; without `writer` everything is
    // written at once.
    StoreFiles(FileSystem& files, FileIncidents* incidents = nullptr, BackgroundWriter* writer = nullptr)
        : m_files(&files), m_incidents(incidents), m_writer(writer) {}

    [[nodiscard]] FileSystem& files() const { return *m_files; }
    [[nodiscard]] FileIncidents* incidents() const { return m_incidents; }
    [[nodiscard]] BackgroundWriter* writer() const { return m_writer; }

private:
    FileSystem* m_files;
    FileIncidents* m_incidents;
    BackgroundWriter* m_writer;
};

} // namespace vantrel
