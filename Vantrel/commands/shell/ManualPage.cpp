#include "Vantrel/commands/shell/ManualPage.h"

#include "Vantrel/commands/HotKeyNames.h"
#include "Vantrel/controller/SettingKey.h"
#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <type_traits>
#include <variant>

namespace vantrel::ManualPage {

namespace {

// Backslashes and dashes are special in roff, as are dots and apostrophes at the start of a line.
std::string escaped(const std::string& text) {
    std::string result = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (const char c : text) {
        switch (c) {
        case '\\':
            result += "\\e";
            break;
        case '-':
            result += "\\-";
            break;
        default:
            result += c;
        }
    }
    return result;
}

std::string option(const OptionShape& option) {
    std::vector<std::string> names;
    for (const auto& name : option.names) {
        names.push_back((option.isPositional ? "\\fI" : "\\fB") + escaped(name) + "\\fR");
    }
    std::string text = fmt::format(".TP\n{}", fmt::join(names, ", "));
    if (!option.value.empty() && !option.isPositional) {
        text += " \\fI" + escaped(option.value) + "\\fR";
    }
    return text + "\n" + escaped(option.description) + "\n";
}

bool isHelp(const OptionShape& option) {
    return std::ranges::find(option.names, "--help") != option.names.end();
}

// The command with its arguments and options, as one would type them.
std::string synopsis(const CommandShape& command, const std::string& name) {
    std::string text = "\\fB" + escaped(name) + "\\fR";
    for (const bool arePositional : {true, false}) {
        for (const OptionShape& option : command.options) {
            if (option.isPositional != arePositional || isHelp(option)) {
                continue;
            }
            const std::string& longest = option.names.back();
            std::string part = (arePositional ? "\\fI" : "\\fB") + escaped(longest) + "\\fR";
            if (!arePositional && !option.value.empty()) {
                part += " \\fI" + escaped(option.value) + "\\fR";
            }
            part += option.isRepeated ? "..." : "";
            text += option.isRequired ? " " + part : " [" + part + "]";
        }
    }
    if (!command.commands.empty()) {
        text += command.options.size() > 1 ? " [\\fICOMMAND\\fR ...]" : " \\fICOMMAND\\fR ...";
    }
    return text;
}

void addCommands(std::string& text, const CommandShape& command, const std::string& path) {
    for (const auto& below : command.commands) {
        const auto name = path.empty() ? below.name : path + " " + below.name;
        text += fmt::format(".SS {0}\n{1}\n.PP\n{2}.\n", escaped(name), synopsis(below, "vantrelctl " + name),
                            escaped(below.description));
        for (const auto& each : below.options) {
            // Every command has --help.
            if (!isHelp(each)) {
                text += option(each);
            }
        }
        addCommands(text, below, name);
    }
}

void addList(std::string& text, const char* title,
             const std::vector<std::pair<std::string, std::string>>& entries) {
    text += fmt::format(".SH {}\n", title);
    for (const auto& [name, meaning] : entries) {
        text += fmt::format(".TP\n\\fB{}\\fR\n{}\n", escaped(name), escaped(meaning));
    }
}

std::string valueText(const DefaultsValue& value) {
    return std::visit(
        []<typename Value>(const Value& plain) -> std::string {
            if constexpr (std::is_same_v<Value, Date>) {
                return iso8601Text(plain);
            } else if constexpr (std::is_same_v<Value, DefaultsData>) {
                return plain.bytes;
            } else {
                return fmt::format("{}", plain);
            }
        },
        value);
}

// Those that have an effect where there are manual pages.
std::vector<std::pair<std::string, std::string>> settings() {
    std::vector<std::pair<std::string, std::string>> entries;
    for (const SettingKey& key : SettingKeys::all()) {
        if (key.purpose == SettingKey::Purpose::preference && key.name != "showDockIcon") {
            entries.emplace_back(key.name,
                                 fmt::format("{}; {}{}.", key.description, key.typeText(),
                                             key.fallback ? ", by default " + valueText(*key.fallback) : ""));
        }
    }
    return entries;
}

std::vector<std::pair<std::string, std::string>> shortcuts() {
    std::vector<std::pair<std::string, std::string>> entries;
    const EnglishTexts english;
    for (const auto& command : HotKeyNames::commands) {
        entries.emplace_back(command.second,
                             fmt::format("{}.", HotKeyRecording::commandLabel(command.first)));
    }
    entries.emplace_back("SCENE", "The name of a scene: apply it.");
    return entries;
}

} // namespace

std::string roff(const CommandShape& program, const std::string& version) {
    std::string upper = program.name;
    std::ranges::transform(upper, upper.begin(), [](unsigned char c) { return std::toupper(c); });
    std::string text = fmt::format(".TH {} 1 \"\" \"Vantrel {}\" \"User Commands\"\n", upper, version);
    text += fmt::format(".SH NAME\n{} \\- query and control the running vantrel\n", program.name);
    text += fmt::format(".SH SYNOPSIS\n\\fB{}\\fR [\\fIOPTIONS\\fR] \\fICOMMAND\\fR [\\fIARGUMENTS\\fR]\n",
                        program.name);
    text +=
        ".SH DESCRIPTION\nCommunicates with a running vantrel over the session bus. Shows the current desk, "
        "what is "
        "saved and what the last restores did; saves, restores and changes what is saved. Most commands take "
        "\\-\\-json.\n.SH OPTIONS\n";
    for (const auto& each : program.options) {
        text += option(each);
    }
    text += ".SH COMMANDS\n";
    addCommands(text, program, "");
    addList(text, "SETTINGS", settings());
    addList(text, "COMMANDS OF SHORTCUTS", shortcuts());
    addList(text, "EXIT STATUS",
            {{"0", "Done."},
             {"1", "Failed, or a window could not be restored."},
             {"2", "Usage error."},
             {"3", "vantrel is not running."}});
    addList(text, "FILES",
            {{"$XDG_CONFIG_HOME/vantrel/settings.conf", "The settings."},
             {"$XDG_DATA_HOME/vantrel", "Layouts, scenes, stashes and history."},
             {"$XDG_STATE_HOME/vantrel", "The log and the program's own notes."}});
    addList(text, "EXAMPLES",
            {{"vantrelctl save", "Remember where the windows are now."},
             {"vantrelctl restore", "Put them back and list the result for each."},
             {"vantrelctl desks", "Draw every remembered desk."},
             {"vantrelctl log --follow", "Watch what vantrel does."}});
    return text + ".SH SEE ALSO\n\\fBvantrel\\fR(1)\n";
}

} // namespace vantrel::ManualPage
