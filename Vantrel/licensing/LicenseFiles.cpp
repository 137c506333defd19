#include "Vantrel/licensing/LicenseFiles.h"

#include "VantrelCore/stores/SetAside.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantrel {

LicenseFiles::LicenseFiles(std::filesystem::path main, std::filesystem::path copy, std::string machine,
                           const StoreFiles& files)
    : m_main{.path = std::move(main)}, m_copy{.path = std::move(copy)}, m_machine(std::move(machine)),
      m_files(files) {}

LicenseDecision::FileReading LicenseFiles::read(File& file) {
    auto content = m_files.files().read(file.path);
    if (!content && content.error() == std::errc::no_such_file_or_directory) {
        return std::nullopt;
    }
    if (!content) {
        report(file, FileIncident::Kind::stuck, content.error().message());
        return std::unexpected(LicenseProblem::unreadable);
    }
    clear(file, FileIncident::Topic::content);
    file.text = *std::move(content);
    return LicenseRecords::decode(file.text, m_machine);
}

bool LicenseFiles::areReadable() {
    return std::ranges::all_of(std::array{&m_main, &m_copy}, [this](const File* file) {
        const auto content = m_files.files().read(file->path);
        return content || content.error() == std::errc::no_such_file_or_directory;
    });
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
    const std::error_code error = SetAside::move(m_files.files(), file.path);
    file.mayWrite = !error;
    if (error) {
        report(file, FileIncident::Kind::stuck, error.message());
    } else {
        report(file, FileIncident::Kind::undecodable, "it contains no license for this computer",
               SetAside::newestCopy(file.path));
    }
    file.text.clear();
}

bool LicenseFiles::write(const LicenseRecord& record) {
    // The copy first: what it has to remember (a returned license) matters most when the main file is old.
    const bool isCopyWritten = write(m_copy, LicenseRecords::forCopy(record));
    return write(m_main, record) && isCopyWritten;
}

bool LicenseFiles::write(File& file, const LicenseRecord& record) {
    auto text = LicenseRecords::encode(record, m_machine);
    if (file.text == text) {
        return true;
    }
    if (!file.mayWrite) {
        return false;
    }
    auto error = m_files.files().createDirectories(file.path.parent_path());
    if (!error) {
        error = m_files.files().writeAtomically(file.path, text);
    }
    if (!isReplaced(error)) {
        report(file, FileIncident::Kind::notWritten, error.message());
        return false;
    }
    clear(file, FileIncident::Topic::writing);
    file.text = std::move(text);
    return true;
}

void LicenseFiles::report(const File& file, FileIncident::Kind kind, std::string reason,
                          std::filesystem::path copy) const {
    if (m_files.incidents() != nullptr) {
        m_files.incidents()->report(
            {.file = file.path, .kind = kind, .reason = std::move(reason), .copy = std::move(copy)});
    }
}

void LicenseFiles::clear(const File& file, FileIncident::Topic topic) const {
    if (m_files.incidents() != nullptr) {
        m_files.incidents()->clear(file.path, topic);
    }
}

} // namespace vantrel
