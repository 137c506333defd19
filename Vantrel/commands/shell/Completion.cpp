#include "Vantrel/commands/shell/Completion.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <functional>

namespace vantrel::Completion {

namespace {

// Single quotes work the same in all three shells.
std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char c : text) {
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return result + "'";
}

// Calls `visit` for every command with the words typed to reach it, without the program's name.
void visitAll(const CommandShape& command, const std::vector<std::string>& path,
              const std::function<void(const CommandShape&, const std::vector<std::string>&)>& visit) {
    visit(command, path);
    for (const auto& below : command.commands) {
        auto deeper = path;
        deeper.push_back(below.name);
        visitAll(below, deeper, visit);
    }
}

std::vector<std::string> words(const CommandShape& command) {
    std::vector<std::string> result;
    for (const auto& below : command.commands) {
        result.push_back(below.name);
    }
    for (const auto& option : command.options) {
        if (!option.isPositional) {
            result.insert(result.end(), option.names.begin(), option.names.end());
        }
    }
    return result;
}

// Whether the option takes a display label, as listed by the verb "displays".
bool isDisplay(const OptionShape& option) {
    return std::ranges::find(option.names, "--display") != option.names.end();
}

} // namespace

std::string bash(const CommandShape& program) {
    std::string cases;
    visitAll(program, {}, [&](const CommandShape& command, const std::vector<std::string>& path) {
        cases += fmt::format("        {}) words={} ;;\n", quoted(fmt::format("{}", fmt::join(path, " "))),
                             quoted(fmt::format("{}", fmt::join(words(command), " "))));
    });
    // Words before the cursor that are not options select the command; words that are not verbs are
    // arguments.
    return fmt::format(R"(# bash completion for {0}
_{0}() {{
    local current="${{COMP_WORDS[COMP_CWORD]}}" path='' words='' next word
    COMPREPLY=()
    if [[ ${{COMP_WORDS[COMP_CWORD-1]}} == --display ]]; then
        while IFS= read -r next; do
            printf -v next %q "$next"
            [[ $next == "$current"* ]] && COMPREPLY+=("$next")
        done < <({0} displays 2>/dev/null)
        return
    fi
    _{0}_words ''
    for word in "${{COMP_WORDS[@]:1:COMP_CWORD-1}}"; do
        [[ $word == -* ]] && continue
        [[ " $words " == *" $word "* ]] || continue
        path="${{path:+$path }}$word"
        _{0}_words "$path"
    done
    while IFS= read -r next; do COMPREPLY+=("$next"); done < <(compgen -W "$words" -- "$current")
}}
_{0}_words() {{
    case $1 in
{1}    esac
}}
complete -F _{0} {0}
)",
                       program.name, cases);
}

std::string zsh(const CommandShape& program) {
    const auto described = [](const std::string& word, const std::string& description) {
        std::string escaped;
        for (const char c : word) {
            escaped += c == ':' ? std::string("\\:") : std::string(1, c);
        }
        return quoted(escaped + ":" + description);
    };
    std::string cases;
    visitAll(program, {}, [&](const CommandShape& command, const std::vector<std::string>& path) {
        std::vector<std::string> entries;
        for (const auto& below : command.commands) {
            entries.push_back(described(below.name, below.description));
        }
        for (const auto& option : command.options) {
            for (const auto& name : option.names) {
                if (!option.isPositional) {
                    entries.push_back(described(name, option.description));
                }
            }
        }
        cases += fmt::format("        {}) entries=({}) ;;\n", quoted(fmt::format("{}", fmt::join(path, " "))),
                             fmt::join(entries, " "));
    });
    return fmt::format(R"(#compdef {0}
_{0}_entries() {{
    case $1 in
{1}    esac
}}
_{0}() {{
    local -a entries
    local word commandPath=''
    if [[ $words[CURRENT-1] == --display ]]; then
        local -a labels=("${{(@f)$({0} displays 2>/dev/null)}}")
        compadd -a labels
        return
    fi
    _{0}_entries ''
    for word in ${{words[2,CURRENT-1]}}; do
        [[ $word == -* ]] && continue
        (( ${{entries[(I)$word:*]}} )) || continue
        commandPath="${{commandPath:+$commandPath }}$word"
        _{0}_entries $commandPath
    done
    _describe -V {0} entries
}}
if [[ $funcstack[1] == _{0} ]]; then _{0} "$@"; else compdef _{0} {0}; fi
)",
                       program.name, cases);
}

std::string fish(const CommandShape& program) {
    const std::string labels = fmt::format(" -x -a '({} displays 2>/dev/null)'", program.name);
    std::string script = fmt::format("# fish completion for {0}\ncomplete -c {0} -f\n", program.name);
    visitAll(program, {}, [&](const CommandShape& command, const std::vector<std::string>& path) {
        std::vector<std::string> conditions;
        for (const auto& word : path) {
            conditions.push_back("__fish_seen_subcommand_from " + word);
        }
        if (!command.commands.empty()) {
            std::vector<std::string> names;
            for (const auto& below : command.commands) {
                names.push_back(below.name);
            }
            conditions.push_back(fmt::format("not __fish_seen_subcommand_from {}", fmt::join(names, " ")));
        }
        const auto condition = quoted(fmt::format("{}", fmt::join(conditions, "; and ")));
        for (const auto& below : command.commands) {
            script += fmt::format("complete -c {} -n {} -a {} -d {}\n", program.name, condition, below.name,
                                  quoted(below.description));
        }
        for (const auto& option : command.options) {
            if (option.isPositional) {
                continue;
            }
            std::string names;
            for (const auto& name : option.names) {
                names += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
            }
            script += fmt::format("complete -c {} -n {}{}{} -d {}\n", program.name, condition, names,
                                  option.value.empty() ? ""
                                  : isDisplay(option)  ? labels
                                                       : " -x",
                                  quoted(option.description));
        }
    });
    return script;
}

} // namespace vantrel::Completion
