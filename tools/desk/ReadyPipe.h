// The pipe, the server's descriptor 3, on which it reports that it accepts clients, and where.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace vantrel::tools {

class ReadyPipe {
public:
    // Throws std::runtime_error with a readable sentence.
    ReadyPipe();
    ~ReadyPipe();
    ReadyPipe(const ReadyPipe&) = delete;
    ReadyPipe& operator=(const ReadyPipe&) = delete;

    [[nodiscard]] int writeEnd() const { return m_ends[1]; }

    // Waits for the line; call it once the server has its end of the pipe. None if the server ends without
    // one.
    [[nodiscard]] std::optional<std::string> line();

private:
    void closeWriteEnd();

    std::array<int, 2> m_ends{-1, -1};
};

} // namespace vantrel::tools
