#include "Vantrel/platform/posix/MachineIDFile.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr std::size_t digits = 32;

} // namespace

MachineIDFile::MachineIDFile(FileSystem& files, std::vector<std::filesystem::path> places)
    : m_files(files), m_places(std::move(places)) {}

std::optional<std::string> MachineIDFile::machineID() {
    for (const auto& place : m_places) {
        const auto content = m_files.read(place);
        // During system installation it contains "uninitialized".
        if (content && content->size() >= digits) {
            auto id = content->substr(0, digits);
            if (id.find_first_not_of("0123456789abcdef") == std::string::npos) {
                return id;
            }
        }
    }
    return std::nullopt;
}

} // namespace vantrel
