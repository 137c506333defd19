#include "Vantrel/commands/verbs/UsageMistake.h"

#include "VantrelCore/text/SafeText.h"
#include "VantrelCore/text/SimilarName.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/ranges.h>
#include <iterator>
#include <vector>

namespace vantrel::UsageMistake {

namespace {

const CLI::App& innermost(const CLI::App& app) {
    const auto inside = app.get_subcommands();
    return inside.empty() ? app : innermost(*inside.front());
}

std::string withGuess(const std::string& sentence, const std::string& typed,
                      const std::vector<std::string>& known) {
    const auto meant = SimilarName::of(typed, {known.begin(), known.end()});
    return meant ? sentence + " " + trf("Did you mean \"{}\"?", *meant) : sentence;
}

std::vector<std::string> commandsOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
        // Commands without a description are for programs.
        if (!command->get_description().empty()) {
            names.push_back(command->get_name());
        }
    }
    return names;
}

std::vector<std::string> optionsOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

// `name` is that of `app` with the commands above it.
std::string unknownCommand(const CLI::App& app, const std::string& name, const std::string& word) {
    return withGuess(trf("There is no command \"{} {}\".", name, SafeText::line(word)), word,
                     commandsOf(app));
}

std::string unexpected(const CLI::App& app, const std::string& word) {
    const CLI::App& last = innermost(app);
    const std::string shown = SafeText::line(word);
    if (word.starts_with('-') && word.size() > 1) {
        return withGuess(trf("\"{}\" has no option {}.", command(app), shown), word, optionsOf(last));
    }
    if (!commandsOf(last).empty()) {
        return unknownCommand(last, command(app), word);
    }
    return trf("\"{}\" is one word too many for \"{}\".", shown, command(app));
}

// "--lines, -n" and the like; empty for an argument.
std::string kindOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    if (type.starts_with("UINT") || type.starts_with("INT")) {
        return tr("a whole number");
    }
    return "";
}

// CLI11 puts the option's names and the value into the message: "Could not convert: --lines = x".
std::string unconvertible(const CLI::App& app, const std::string& message) {
    const auto equals = message.find(" = ");
    const std::string value = equals == std::string::npos ? "" : SafeText::line(message.substr(equals + 3));
    for (const CLI::Option* const option : innermost(app).get_options()) {
        if (option->count() > 0 && !kindOf(*option).empty()) {
            return trf("{} takes {}, not \"{}\".", option->get_name(), kindOf(*option), value);
        }
    }
    return SafeText::line(message) + ".";
}

// "shell: foo not in {bash,fish,zsh}", from CLI::IsMember.
std::string notAChoice(const std::string& message) {
    constexpr std::string_view separator = " not in {";
    const auto colon = message.find(": ");
    const auto list = message.find(separator);
    if (colon == std::string::npos || list == std::string::npos || !message.ends_with('}')) {
        return message + ".";
    }
    std::string choices =
        message.substr(list + separator.size(), message.size() - list - separator.size() - 1);
    for (auto comma = choices.find(','); comma != std::string::npos; comma = choices.find(',', comma + 2)) {
        choices.insert(comma + 1, " ");
    }
    return trf("{} is one of {}, not \"{}\".", message.substr(0, colon), choices,
               message.substr(colon + 2, list - colon - 2));
}

std::string missing(const CLI::App& app) {
    const CLI::App& last = innermost(app);
    std::vector<std::string> names;
    for (const CLI::Option* const option : last.get_options()) {
        if (option->get_required() && option->count() == 0) {
            names.push_back(option->get_name());
        }
    }
    if (!names.empty()) {
        return trn("\"{1}\" needs the argument {2}.", "\"{1}\" needs the arguments {2}.", std::ssize(names),
                   command(app), fmt::format("{}", fmt::join(names, ", ")));
    }
    return trf("\"{}\" needs a command: {}.", command(app),
               fmt::format("{}", fmt::join(commandsOf(last), ", ")));
}

} // namespace

std::string command(const CLI::App& app) {
    const auto inside = app.get_subcommands();
    return inside.empty() ? app.get_name() : app.get_name() + " " + command(*inside.front());
}

std::string sentence(const CLI::App& app, const CLI::ParseError& error) {
    switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::ExtrasError:
        if (const auto words = app.remaining(true); !words.empty()) {
            return unexpected(app, words.front());
        }
        break;
    case CLI::ExitCodes::RequiredError: {
        // An unknown command counts as a missing one.
        const auto words = app.remaining(true);
        return words.empty() ? missing(app) : unexpected(app, words.front());
    }
    case CLI::ExitCodes::ConversionError:
        return unconvertible(app, error.what());
    case CLI::ExitCodes::ArgumentMismatch:
        // "--lines: 1 required UINT missing".
        if (const std::string text = error.what(); text.ends_with("missing")) {
            return trf("{} needs a value.", text.substr(0, text.find(':')));
        }
        break;
    case CLI::ExitCodes::ValidationError:
        return notAChoice(SafeText::line(error.what()));
    default:
        break;
    }
    const std::string message = SafeText::line(error.what());
    return message.ends_with('.') ? message : message + ".";
}

std::expected<std::string, std::string> help(const CLI::App& app, const std::vector<std::string>& path) {
    const CLI::App* found = &app;
    std::string name = app.get_name();
    for (const std::string& word : path) {
        const auto inside =
            found->get_subcommands([&](const CLI::App* command) { return command->get_name() == word; });
        if (inside.empty()) {
            return std::unexpected(unknownCommand(*found, name, word));
        }
        found = inside.front();
        name += " " + word;
    }
    // Not App::help, which prints that of the command being run.
    return found->get_formatter()->make_help(found, name, CLI::AppFormatMode::Normal);
}

} // namespace vantrel::UsageMistake
