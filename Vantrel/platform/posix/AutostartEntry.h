// The desktop's autostart entry of this program: what it says, and what becomes of the one that is there.
//
// An entry that somebody has changed is theirs: it is neither replaced nor removed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::AutostartEntry {

// The entry's content; `program` is the absolute path of the program.
[[nodiscard]] std::string text(std::string_view program);

enum class Change : std::uint8_t {
    nothing,
    write,
    remove,
    // It says something else than is wanted, and is somebody's own.
    leaveAlone,
};

// `existing` is the content of the file that is there, if any; `program` as for text().
[[nodiscard]] Change change(bool isWanted, const std::optional<std::string>& existing,
                            std::string_view program);

} // namespace vantrel::AutostartEntry
