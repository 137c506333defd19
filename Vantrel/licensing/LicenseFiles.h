// The two files that hold the license record: "license.json" in the support folder, and elsewhere a copy of
// the parts that must survive the loss of the first.
#pragma once

#include "VantrelCore/licensing/LicenseDecision.h"
#include "VantrelCore/stores/StoreFiles.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vantrel {

class LicenseFiles {
public:
    // `machine` is the hash from LicensedMachine.
    LicenseFiles(std::filesystem::path main, std::filesystem::path copy, std::string machine,
                 const StoreFiles& files);

    [[nodiscard]] LicenseDecision::FileReading readMain() { return read(m_main); }
    [[nodiscard]] LicenseDecision::FileReading readCopy() { return read(m_copy); }

    // Whether both files are either readable or missing.
    [[nodiscard]] bool areReadable();

    // Moves aside the files that are to be kept. A file that cannot be moved or read is never overwritten.
    void keepAside(const LicenseDecision::Start& start);

    // Returns false when either file could not be written. Unchanged content is not written again.
    [[nodiscard]] bool write(const LicenseRecord& record);

private:
    struct File {
        std::filesystem::path path;
        // The content last read or written.
        std::string text{};
        bool mayWrite = true;
    };

    [[nodiscard]] LicenseDecision::FileReading read(File& file);
    void moveAside(File& file);
    void report(const File& file, FileIncident::Kind kind, std::string reason,
                std::filesystem::path copy = {}) const;
    void clear(const File& file, FileIncident::Topic topic) const;
    [[nodiscard]] bool write(File& file, const LicenseRecord& record);

    File m_main;
    File m_copy;
    std::string m_machine;
    StoreFiles m_files;
};

} // namespace vantrel
