// The pipe on which a server says, as its descriptor 3, that it takes clients and where.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace vantrel::tools {

class ReadyPipe {
public:
    // Throws std::runtime_error with a sentence.
    ReadyPipe();
    ~ReadyPipe();
    ReadyPipe(const ReadyPipe&) = delete;
    ReadyPipe& operator=(const ReadyPipe&) = delete;

    [[nodiscard]] int writeEnd() const { return m_ends[1]; }

    // Waits for the line, once the server has its end of the pipe; none when the server ends without one.
    [[nodiscard]] std::optional<std::string> line();

private:
    void closeWriteEnd();

    std::array<int, 2> m_ends{-1, -1};
};

} // namespace vantrel::tools
