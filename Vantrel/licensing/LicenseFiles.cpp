#include "Vantrel/licensing/LicenseFiles.h"

#include <utility>

namespace vantrel {

LicenseFiles::LicenseFiles(std::filesystem::path main, std::filesystem::path copy, std::string machine,
                           FileSystem& files)
    : m_main{.path = std::move(main)}, m_copy{.path = std::move(copy)}, m_machine(std::move(machine)),
      m_files(files) {}

LicenseDecision::FileReading LicenseFiles::read(File& file) {
    auto content = m_files.read(file.path);
    if (!content) {
        return content.error() == std::errc::no_such_file_or_directory
                   ? std::nullopt
                   : LicenseDecision::FileReading(std::unexpected(LicenseProblem::unreadable));
    }
    file.text = *std::move(content);
    return LicenseRecords::decode(file.text, m_machine);
}

void LicenseFiles::keepAside(const LicenseDecision::Start& start) {
    m_main.mayWrite = start.mayWriteMain;
    m_copy.mayWrite = start.mayWriteCopy;
    if (start.keepsMainAside) {
        moveAside(m_main);
    }
    if (start.keepsCopyAside) {
        moveAside(m_copy);
    }
}

void LicenseFiles::moveAside(File& file) {
    std::filesystem::path aside = file.path;
    aside += ".corrupt";
    file.mayWrite = !m_files.rename(file.path, aside);
    file.text.clear();
}

bool LicenseFiles::write(const LicenseRecord& record) {
    // The copy first: what it has to remember (a licence given back) matters most when the other is old.
    const bool isCopyWritten = write(m_copy, LicenseRecords::forCopy(record));
    return write(m_main, record) && isCopyWritten;
}

bool LicenseFiles::write(File& file, const LicenseRecord& record) {
    auto text = LicenseRecords::encode(record, m_machine);
    if (file.text == text) {
        return true;
    }
    if (!file.mayWrite || m_files.createDirectories(file.path.parent_path()) ||
        m_files.writeAtomically(file.path, text)) {
        return false;
    }
    file.text = std::move(text);
    return true;
}

} // namespace vantrel
