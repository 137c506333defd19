// A folder of a test's own, removed with everything in it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel {

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string path = (std::filesystem::temp_directory_path() / "vantrel-test-XXXXXX").string();
        if (!::mkdtemp(path.data())) {
            throw std::runtime_error("no temporary folder");
        }
        m_path = path;
    }

    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    // The names of everything in it, hidden files too.
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            found.push_back(entry.path().filename().string());
        }
        return found;
    }

private:
    std::filesystem::path m_path;
};

} // namespace vantrel
