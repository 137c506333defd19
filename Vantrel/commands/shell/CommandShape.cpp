#include "Vantrel/commands/shell/CommandShape.h"

#include <CLI/CLI.hpp>

namespace vantrel {

namespace {

using KindOf = std::function<ValueKind(const CLI::Option&)>;

OptionShape shape(const CLI::Option& option, const KindOf& kindOf) {
    OptionShape shape;
    shape.isPositional = option.get_positional();
    if (shape.isPositional) {
        shape.names.push_back(option.get_name(true));
    } else {
        for (const auto& name : option.get_snames()) {
            shape.names.push_back("-" + name);
        }
        for (const auto& name : option.get_lnames()) {
            shape.names.push_back("--" + name);
        }
    }
    shape.description = option.get_description();
    const bool takesValue = option.get_items_expected_max() > 0;
    shape.value = takesValue ? option.get_type_name() : "";
    shape.kind = kindOf(option);
    shape.isRequired = option.get_required();
    shape.isRepeated = option.get_items_expected_max() > 1;
    return shape;
}

} // namespace

CommandShape CommandShape::of(const CLI::App& app, const KindOf& kindOf) {
    CommandShape result{
        .name = app.get_name(), .description = app.get_description(), .options = {}, .commands = {}};
    for (const auto* const option :
         app.get_options([](const CLI::Option* each) { return !each->get_group().empty(); })) {
        result.options.push_back(shape(*option, kindOf));
    }
    for (const auto* const command :
         app.get_subcommands([](const CLI::App* each) { return !each->get_group().empty(); })) {
        result.commands.push_back(of(*command, kindOf));
    }
    return result;
}

} // namespace vantrel
