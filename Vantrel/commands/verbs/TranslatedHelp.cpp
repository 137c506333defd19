#include "Vantrel/commands/verbs/TranslatedHelp.h"

#include <CLI/CLI.hpp>

#include <fmt/format.h>
#include <sstream>
#include <utility>

namespace vantrel {

TranslatedHelp::TranslatedHelp() {
    column_width(26);
    label("Usage", tr("Usage"));
    label("OPTIONS", tr("OPTIONS"));
    label("SUBCOMMAND", tr("COMMAND"));
    label("Positionals", tr("Arguments"));
    label("Excludes", tr("Excludes"));
    label("REQUIRED", "");
}

std::string TranslatedHelp::make_group(std::string group, bool isPositional,
                                       std::vector<const CLI::Option*> options) const {
    return Formatter::make_group(group == "Options" ? tr("Options") : std::move(group), isPositional,
                                 std::move(options));
}

std::string TranslatedHelp::make_subcommands(const CLI::App* app, CLI::AppFormatMode mode) const {
    std::string text = Formatter::make_subcommands(app, mode);
    if (const std::string heading = fmt::format("\n{}:\n", commands); text.starts_with(heading)) {
        text.replace(0, heading.size(), fmt::format("\n{}:\n", tr(commands)));
    }
    return text;
}

std::string TranslatedHelp::make_subcommand(const CLI::App* command) const {
    std::ostringstream text;
    CLI::detail::format_help(text, command->get_display_name(true), tr(command->get_description().c_str()),
                             get_column_width());
    return text.str();
}

std::string TranslatedHelp::make_description(const CLI::App* app) const {
    const std::string text = app->get_description();
    return text.empty() ? "" : std::string(tr(text.c_str())) + "\n";
}

std::string TranslatedHelp::make_option_desc(const CLI::Option* option) const {
    return tr(option->get_description().c_str());
}

} // namespace vantrel
