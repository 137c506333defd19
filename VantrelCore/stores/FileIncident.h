// What happened to one of the program's files that its user should know of.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace vantrel {

struct FileIncident {
    enum class Kind : std::uint8_t {
        // Moved aside; tried again, and put back when it can be read before anything was written.
        unreadable,
        // Moved aside, or the copy of an earlier run that nothing has replaced yet.
        undecodable,
        // Could not be used and stays in its place, and so is not written.
        stuck,
        // Was moved aside because it could not be read, and is back in use.
        putBack,
        // The last write failed: what changed is not kept.
        notWritten,
        // FileFault::notFlushed.
        notFlushed,
        // A newer program wrote it; a copy was kept before this one wrote over it.
        newerKept,
        // The clock made most of its records too old; a copy was kept before they went.
        expiredKept
    };

    // A later incident replaces an earlier one of the same file and topic.
    enum class Topic : std::uint8_t { content, writing, copy };

    std::filesystem::path file;
    Kind kind{};
    // Of the failure, in words: "Input/output error". Empty where nothing failed.
    std::string reason{};
    // Where the content is now; empty where it is in the file itself.
    std::filesystem::path copy{};

    bool operator==(const FileIncident&) const = default;

    [[nodiscard]] Topic topic() const;
    // False when nothing is amiss any more.
    [[nodiscard]] bool isTrouble() const;
};

namespace FileIncidentText {

// "unreadable", as in the code.
[[nodiscard]] std::string name(FileIncident::Kind kind);

// In a few words, for a menu.
[[nodiscard]] std::string headline(const FileIncident& incident);

// For people: what happened, and where the content is. Files are named without their folder.
[[nodiscard]] std::string sentence(const FileIncident& incident);

} // namespace FileIncidentText

} // namespace vantrel
