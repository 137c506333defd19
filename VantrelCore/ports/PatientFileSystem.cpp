#include "VantrelCore/ports/PatientFileSystem.h"

#include <algorithm>
#include <array>

namespace vantrel {

namespace {

// In seconds.
constexpr double firstPause = 0.01;

} // namespace

bool PatientFileSystem::isTransient(const std::error_code& error) {
    static constexpr std::array transient{std::errc::io_error,
                                          std::errc::interrupted,
                                          std::errc::too_many_files_open,
                                          std::errc::too_many_files_open_in_system,
                                          std::errc::not_enough_memory,
                                          std::errc::resource_unavailable_try_again};
    return std::ranges::any_of(transient, [&](std::errc known) { return error == known; });
}

template <typename Reading>
std::invoke_result_t<Reading> PatientFileSystem::withRetries(Reading reading) {
    auto result = reading();
    for (double pause = firstPause; !result && isTransient(result.error()) && wait(pause); pause *= 2) {
        result = reading();
    }
    return result;
}

std::expected<std::string, std::error_code> PatientFileSystem::read(const std::filesystem::path& file) {
    return withRetries([&] { return m_files.read(file); });
}

std::expected<std::vector<FileEntry>, std::error_code>
PatientFileSystem::list(const std::filesystem::path& directory) {
    return withRetries([&] { return m_files.list(directory); });
}

bool PatientFileSystem::wait(double seconds) {
    const double now = m_clock.monotonicSeconds();
    {
        const std::scoped_lock lock(m_mutex);
        if (now - m_lastWait > respite) {
            m_waited = 0;
        }
        seconds = std::min(seconds, patience - m_waited);
        if (seconds <= 0) {
            return false;
        }
        m_waited += seconds;
        m_lastWait = now;
    }
    m_clock.sleep(seconds);
    return true;
}

} // namespace vantrel
