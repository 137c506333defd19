#include "Vantrel/platform/posix/AutostartFile.h"

#include "Vantrel/platform/posix/AutostartEntry.h"

#include <fmt/format.h>
#include <utility>

namespace vantrel {

AutostartFile::AutostartFile(FileSystem& files, std::filesystem::path file, std::string program)
    : m_files(files), m_file(std::move(file)), m_program(std::move(program)) {}

bool AutostartFile::isTheUsers() {
    const auto existing = m_files.read(m_file);
    return existing &&
           AutostartEntry::change(true, *existing, m_program) == AutostartEntry::Change::leaveAlone;
}

std::string AutostartFile::setLaunchAtLogin(bool launches) {
    const auto message = [&](const char* done, std::error_code error) {
        return fmt::format("autostart: {} {}", m_file.string(),
                           error ? "could not be changed: " + error.message() : done);
    };
    const auto existing = m_files.read(m_file);
    if (!existing && existing.error() != std::errc::no_such_file_or_directory) {
        return message("", existing.error());
    }
    switch (AutostartEntry::change(launches, existing ? std::optional(*existing) : std::nullopt, m_program)) {
    case AutostartEntry::Change::nothing:
        break;
    case AutostartEntry::Change::write: {
        auto error = m_files.createDirectories(m_file.parent_path());
        if (!error) {
            error = m_files.writeAtomically(m_file, AutostartEntry::text(m_program));
        }
        return message("written", isReplaced(error) ? std::error_code() : error);
    }
    case AutostartEntry::Change::remove:
        return message("removed", m_files.remove(m_file));
    case AutostartEntry::Change::leaveAlone:
        return message("was changed by the user and is left alone", {});
    }
    return "";
}

} // namespace vantrel
