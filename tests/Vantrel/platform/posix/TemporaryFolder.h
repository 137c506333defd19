// A folder of a test's own, removed with everything in it, and small text files.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel {

// Empty when there is no such file.
[[nodiscard]] inline std::string textOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// Replaces the file's content, and creates its folder where it is missing.
inline void putText(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::trunc) << text;
}

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
