// The two files that keep the licence record: "license.json" in the support folder, and a copy of what must
// not be forgotten with it, kept elsewhere.
#pragma once

#include "VantrelCore/licensing/LicenseDecision.h"
#include "VantrelCore/stores/StoreFiles.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vantrel {

class LicenseFiles {
public:
    // `machine` is LicensedMachine's.
    LicenseFiles(std::filesystem::path main, std::filesystem::path copy, std::string machine,
                 const StoreFiles& files);

    [[nodiscard]] LicenseDecision::FileReading readMain() { return read(m_main); }
    [[nodiscard]] LicenseDecision::FileReading readCopy() { return read(m_copy); }

    // Whether both files could be read now, or are not there.
    [[nodiscard]] bool areReadable();

    // Moves aside what is to be kept; what cannot be moved or read is not written over from then on.
    void keepAside(const LicenseDecision::Start& start);

    // False when any of it could not be written. What is there already is not written again.
    [[nodiscard]] bool write(const LicenseRecord& record);

private:
    struct File {
        std::filesystem::path path;
        // What was last read or written.
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
