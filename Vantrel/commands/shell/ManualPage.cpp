#include "Vantrel/commands/shell/ManualPage.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cctype>

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

void addCommands(std::string& text, const CommandShape& command, const std::string& path) {
    for (const auto& below : command.commands) {
        const auto name = path.empty() ? below.name : path + " " + below.name;
        text += fmt::format(".SS {}\n{}.\n", escaped(name), escaped(below.description));
        for (const auto& each : below.options) {
            // Every command has --help.
            if (std::ranges::find(each.names, "--help") == each.names.end()) {
                text += option(each);
            }
        }
        addCommands(text, below, name);
    }
}

void addList(std::string& text, const char* title,
             const std::vector<std::pair<std::string, std::string>>& entries) {
    if (!entries.empty()) {
        text += fmt::format(".SH {}\n", title);
        for (const auto& [name, meaning] : entries) {
            text += fmt::format(".TP\n\\fB{}\\fR\n{}\n", escaped(name), escaped(meaning));
        }
    }
}

} // namespace

std::string roff(const CommandShape& program, const Frame& frame) {
    std::string upper = program.name;
    std::ranges::transform(upper, upper.begin(), [](unsigned char c) { return std::toupper(c); });
    std::string text = fmt::format(".TH {} 1 \"\" \"Vantrel {}\" \"User Commands\"\n", upper, frame.version);
    text += fmt::format(".SH NAME\n{} \\- {}\n", program.name, escaped(frame.purpose));
    text += fmt::format(".SH SYNOPSIS\n\\fB{}\\fR [\\fIOPTIONS\\fR]{}\n", program.name,
                        program.commands.empty() ? "" : " \\fICOMMAND\\fR [\\fIARGUMENTS\\fR]");
    text += fmt::format(".SH DESCRIPTION\n{}\n", escaped(frame.description));
    text += ".SH OPTIONS\n";
    for (const auto& each : program.options) {
        text += option(each);
    }
    if (!program.commands.empty()) {
        text += ".SH COMMANDS\n";
        addCommands(text, program, "");
    }
    addList(text, "EXIT STATUS", frame.exitCodes);
    addList(text, "FILES", frame.files);
    addList(text, "EXAMPLES", frame.examples);
    if (!frame.seeAlso.empty()) {
        std::vector<std::string> pages;
        for (const auto& page : frame.seeAlso) {
            pages.push_back("\\fB" + escaped(page) + "\\fR(1)");
        }
        text += fmt::format(".SH SEE ALSO\n{}\n", fmt::join(pages, ", "));
    }
    return text;
}

} // namespace vantrel::ManualPage
