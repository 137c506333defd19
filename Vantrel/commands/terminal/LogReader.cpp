#include "Vantrel/commands/terminal/LogReader.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

std::string contentFrom(const std::filesystem::path& file, std::uint64_t offset) {
    std::ifstream stream(file, std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(offset));
    if (!stream) {
        return {};
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

// A last line without a newline counts too.
std::size_t beginOfLastLines(const std::string& text, std::size_t count) {
    if (count == 0) {
        return text.size();
    }
    std::size_t newline = text.ends_with('\n') ? text.size() - 1 : text.size();
    for (std::size_t found = 0; found < count; ++found) {
        newline = newline == 0 ? std::string::npos : text.rfind('\n', newline - 1);
        if (newline == std::string::npos) {
            return 0;
        }
    }
    return newline + 1;
}

} // namespace

LogReader::LogReader(std::filesystem::path file) : m_file(std::move(file)) {}

std::string LogReader::lastLines(std::size_t count) {
    auto text = contentFrom(m_file, 0);
    m_read = text.size();
    if (static_cast<std::size_t>(std::ranges::count(text, '\n')) < count) {
        text.insert(0, contentFrom(olderGeneration(), 0));
    }
    return text.substr(beginOfLastLines(text, count));
}

std::string LogReader::appended() {
    std::error_code error;
    const auto size = std::filesystem::file_size(m_file, error);
    if (error) {
        return {};
    }
    std::string text;
    if (size < m_read) {
        // The log was rotated: first read the rest of the old file.
        text = contentFrom(olderGeneration(), m_read);
        m_read = 0;
    }
    const auto fresh = contentFrom(m_file, m_read);
    m_read += fresh.size();
    return text + fresh;
}

std::filesystem::path LogReader::olderGeneration() const {
    auto older = m_file;
    older += ".1";
    return older;
}

} // namespace vantrel
