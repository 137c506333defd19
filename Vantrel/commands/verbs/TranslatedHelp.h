// The help of vantrelctl in the user's language. The parser's descriptions stay in English, for the manual
// page.
#pragma once

#include "VantrelCore/text/Translation.h"

#include <CLI/App.hpp>
#include <CLI/FormatterFwd.hpp>

#include <string>
#include <vector>

namespace vantrel {

class TranslatedHelp final : public CLI::Formatter {
public:
    TranslatedHelp();

    std::string make_group(std::string group, bool isPositional,
                           std::vector<const CLI::Option*> options) const override;
    std::string make_subcommands(const CLI::App* app, CLI::AppFormatMode mode) const override;
    std::string make_subcommand(const CLI::App* command) const override;
    std::string make_description(const CLI::App* app) const override;
    std::string make_option_desc(const CLI::Option* option) const override;

    // The heading above the list of commands.
    static constexpr const char* commands = marked("Commands");
};

} // namespace vantrel
