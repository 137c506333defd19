// A text table for a terminal.
#pragma once

#include <string>
#include <vector>

namespace vantrel::bench {

// The first column is left-aligned, the others are right-aligned.
class TextTable {
public:
    explicit TextTable(std::vector<std::string> head) : m_rows{std::move(head)} {}

    void add(std::vector<std::string> row) { m_rows.push_back(std::move(row)); }

    [[nodiscard]] std::string text() const;

private:
    std::vector<std::vector<std::string>> m_rows;
};

// "12.3 ms", with three significant digits.
[[nodiscard]] std::string duration(double seconds);

} // namespace vantrel::bench
