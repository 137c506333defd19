// This program's autostart entry: its content, and what to do with an existing one.
//
// An entry that the user has changed is neither replaced nor removed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::AutostartEntry {

// The entry's content. `program` is the program's absolute path.
[[nodiscard]] std::string text(std::string_view program);

enum class Change : std::uint8_t {
    nothing,
    write,
    remove,
    // The user has changed it.
    leaveAlone,
};

// `existing` is the content of the current file, if any. `program` is as for text().
[[nodiscard]] Change change(bool isWanted, const std::optional<std::string>& existing,
                            std::string_view program);

} // namespace vantrel::AutostartEntry
