// Completion in bash, zsh and fish: each shell gets a script that calls the program back with the words typed
// so far, and the program answers with what may follow.
#pragma once

#include "Vantrel/commands/shell/CommandShape.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::Completion {

// The name of the hidden verb that the scripts call: complete SHELL [WORD...], the word at the cursor last.
inline constexpr const char* verb = "complete";

struct Candidate {
    std::string word;
    std::string description;

    bool operator==(const Candidate&) const = default;
};

// What may stand at the cursor.
struct Expected {
    // Verbs, else options.
    std::vector<Candidate> words{};
    // The kind of value; none if no value may stand there.
    std::optional<ValueKind> kind{};
    // The values typed before, by the argument's or option's first name.
    std::map<std::string, std::string> typed{};

    bool operator==(const Expected&) const = default;
};

// `words` are those after the program's name, without the shell's quotes, the one at the cursor last.
[[nodiscard]] Expected expected(const CommandShape& program, const std::vector<std::string>& words);

// The script for a shell to read; empty for any other than bash, zsh and fish.
[[nodiscard]] std::string script(const std::string& shell, const std::string& program);

// A word as the user typed it in bash, without backslashes and quotes, even if the last quote is still open.
[[nodiscard]] std::string unquoted(const std::string& word);

// The candidates as the shell's script expects them, one a line. Bash gets those that begin with `current`,
// quoted like it; the other shells choose and quote by themselves. Safe to print; what would not be is left
// out.
[[nodiscard]] std::string answer(const std::string& shell, const std::vector<Candidate>& candidates,
                                 const std::string& current);

} // namespace vantrel::Completion
