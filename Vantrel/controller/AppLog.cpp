#include "Vantrel/controller/AppLog.h"

#include "VantrelCore/text/SafeText.h"

#include <fmt/format.h>
#include <string>

namespace vantrel {

namespace {

void ignoreFailure(const std::error_code& /*error*/) {}

} // namespace

AppLog::AppLog(const std::filesystem::path& directory, FileSystem& files, Clock& clock)
    : m_file(directory / "app.log"), m_files(files), m_clock(clock) {
    ignoreFailure(m_files.createDirectories(directory));
}

void AppLog::write(std::string_view message) {
    const std::string line = fmt::format("[{}] {}\n", iso8601Text(m_clock.now()), SafeText::line(message));
    if (m_files.size(m_file).value_or(0) > maxBytes) {
        ignoreFailure(m_files.rename(m_file, m_file.string() + ".1"));
    }
    ignoreFailure(m_files.append(m_file, line));
}

} // namespace vantrel
