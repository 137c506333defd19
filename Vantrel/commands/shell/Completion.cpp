#include "Vantrel/commands/shell/Completion.h"

#include "VantrelCore/text/SafeText.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>

namespace vantrel::Completion {

namespace {

constexpr const char* bashScript = R"sh(# bash completion for {0}
_{0}() {{
    local answer
    COMPREPLY=()
    answer=$({0} {1} bash "${{COMP_WORDS[@]:1:COMP_CWORD}}" 2>/dev/null) || compopt -o default
    [[ -z $answer ]] || mapfile -t COMPREPLY <<<"$answer"
}}
complete -F _{0} {0}
)sh";

constexpr const char* zshScript = R"sh(#compdef {0}
_{0}() {{
    local answer
    local -a candidates
    answer="$({0} {1} zsh "${{(@Q)words[2,CURRENT]}}" 2>/dev/null)" || {{ _files; return }}
    [[ -n $answer ]] || return 1
    candidates=("${{(@f)answer}}")
    _describe -V {0} candidates
}}
if [[ $funcstack[1] == _{0} ]]; then _{0} "$@"; else compdef _{0} {0}; fi
)sh";

constexpr const char* fishScript = R"sh(# fish completion for {0}
function __{0}_candidates
    set -l before (commandline -opc)
    set -l current (commandline -ct)
    {0} {1} fish $before[2..] "$current" 2>/dev/null
    or __fish_complete_path "$current"
end
complete -c {0} -f -a '(__{0}_candidates)'
)sh";

// The option with this name, null if there is none.
const OptionShape* optionNamed(const CommandShape& command, const std::string& name) {
    const auto found = std::ranges::find_if(command.options, [&](const OptionShape& option) {
        return !option.isPositional && std::ranges::find(option.names, name) != option.names.end();
    });
    return found == command.options.end() ? nullptr : &*found;
}

// The argument at this position, null beyond the last.
const OptionShape* argumentAt(const CommandShape& command, std::size_t position) {
    const OptionShape* last = nullptr;
    for (const OptionShape& option : command.options) {
        if (option.isPositional) {
            last = &option;
            if (position-- == 0) {
                return last;
            }
        }
    }
    return last != nullptr && last->isRepeated ? last : nullptr;
}

// The command line up to the cursor.
struct Typed {
    const CommandShape* command;
    // The option that the next word is the value of.
    const OptionShape* option = nullptr;
    std::size_t arguments = 0;
    bool areOptionsOver = false;
    std::map<std::string, std::string> values{};

    void add(const std::string& word) {
        if (option != nullptr) {
            values[option->names.front()] = word;
            option = nullptr;
        } else if (word == "--" && !areOptionsOver) {
            areOptionsOver = true;
        } else if (word.starts_with('-') && !areOptionsOver) {
            const OptionShape* const named = optionNamed(*command, word);
            option = named == nullptr || named->value.empty() ? nullptr : named;
        } else if (const auto below = std::ranges::find(command->commands, word, &CommandShape::name);
                   arguments == 0 && below != command->commands.end()) {
            command = &*below;
        } else {
            if (const OptionShape* const argument = argumentAt(*command, arguments)) {
                values[argument->names.front()] = word;
            }
            ++arguments;
        }
    }
};

bool isIn(std::string_view characters, char c) {
    return characters.find(c) != std::string_view::npos;
}

// Whether bash takes it for more than a part of a word. A colon, an equals sign and an at sign separate words
// while it completes.
bool isSpecial(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 && std::isalnum(byte) == 0 && !isIn("-_./,+%", c);
}

template <typename IsMeant>
std::string backslashed(const std::string& word, IsMeant&& isMeant) {
    std::string result;
    for (const char c : word) {
        result += isMeant(c) ? std::string{'\\', c} : std::string(1, c);
    }
    return result;
}

// Replaces `from` wherever it stands in the text.
std::string replaced(std::string text, std::string_view from, std::string_view with) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + with.size())) {
        text.replace(at, from.size(), with);
    }
    return text;
}

} // namespace

Expected expected(const CommandShape& program, const std::vector<std::string>& words) {
    Typed typed{.command = &program};
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        typed.add(words[i]);
    }
    Expected expected{.typed = typed.values};
    if (typed.option != nullptr) {
        expected.kind = typed.option->kind;
        return expected;
    }
    const std::string current = words.empty() ? "" : words.back();
    const bool isOption = current.starts_with('-') && !typed.areOptionsOver;
    if (!isOption && typed.arguments == 0) {
        for (const CommandShape& below : typed.command->commands) {
            expected.words.push_back({below.name, tr(below.description.c_str())});
        }
    }
    if (const OptionShape* const argument = argumentAt(*typed.command, typed.arguments);
        argument != nullptr && !isOption) {
        expected.kind = argument->kind;
    }
    if (expected.words.empty() && !expected.kind && !typed.areOptionsOver) {
        for (const OptionShape& option : typed.command->options) {
            for (const auto& name : option.names) {
                if (!option.isPositional) {
                    expected.words.push_back({name, tr(option.description.c_str())});
                }
            }
        }
    }
    return expected;
}

std::string script(const std::string& shell, const std::string& program) {
    const char* const text = shell == "bash"   ? bashScript
                             : shell == "zsh"  ? zshScript
                             : shell == "fish" ? fishScript
                                               : "";
    return fmt::format(fmt::runtime(text), program, verb);
}

std::string unquoted(const std::string& word) {
    std::string result;
    char quote = '\0';
    for (std::size_t i = 0; i < word.size(); ++i) {
        const char c = word[i];
        if (c == quote) {
            quote = '\0';
        } else if (quote == '\0' && (c == '"' || c == '\'')) {
            quote = c;
        } else if (c == '\\' && quote != '\'' && i + 1 < word.size()) {
            result += word[++i];
        } else {
            result += c;
        }
    }
    return result;
}

std::string answer(const std::string& shell, const std::vector<Candidate>& candidates,
                   const std::string& current) {
    const char quote = current.empty() ? '\0' : current.front();
    std::string text;
    for (const auto& [word, unsafe] : candidates) {
        if (SafeText::line(word) != word) {
            continue;
        }
        const std::string description = SafeText::line(unsafe);
        if (shell == "bash") {
            if (word.starts_with(unquoted(current))) {
                text += (quote == '"'    ? backslashed(word, [](char c) { return isIn("\"\\$`", c); })
                         : quote == '\'' ? replaced(word, "'", "'\\''")
                                         : backslashed(word, isSpecial)) +
                        '\n';
            }
        } else if (shell == "zsh") {
            text += replaced(replaced(word, "\\", "\\\\"), ":", "\\:") +
                    (description.empty() ? "" : ":" + description) + '\n';
        } else {
            text += word + '\t' + description + '\n';
        }
    }
    return text;
}

} // namespace vantrel::Completion
