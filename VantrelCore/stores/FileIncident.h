// Something that happened to one of the program's files and that the user should know about.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace vantrel {

struct FileIncident {
    enum class Kind : std::uint8_t {
        // Moved aside; tried again later, and put back if it can be read before anything is written.
        unreadable,
        // Moved aside now or, if nothing has replaced it since, in an earlier run.
        undecodable,
        // Unusable and could not be moved aside, so the file is not written.
        stuck,
        // Had been moved aside as unreadable, and is back in use.
        putBack,
        // The last write failed; the change is lost.
        notWritten,
        // FileFault::notFlushed.
        notFlushed,
        // Written by a newer version; a copy was kept before it was overwritten.
        newerKept,
        // Most records had expired by the clock; a copy was kept before they were dropped.
        expiredKept
    };

    // A later incident replaces an earlier one with the same file and topic.
    enum class Topic : std::uint8_t { content, writing, copy };

    std::filesystem::path file;
    Kind kind{};
    // The failure in words: "Input/output error". Empty if nothing failed.
    std::string reason{};
    // Where the content is now; empty if it is in the file itself.
    std::filesystem::path copy{};

    bool operator==(const FileIncident&) const = default;

    [[nodiscard]] Topic topic() const;
    // False if nothing is wrong any more.
    [[nodiscard]] bool isTrouble() const;
};

namespace FileIncidentText {

// The enumerator's name: "unreadable".
[[nodiscard]] std::string name(FileIncident::Kind kind);

// A few words, for a menu.
[[nodiscard]] std::string headline(const FileIncident& incident);

// For the user: what happened, and where the content is. File names omit the folder.
[[nodiscard]] std::string sentence(const FileIncident& incident);

} // namespace FileIncidentText

} // namespace vantrel
