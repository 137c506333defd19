#include "Vantrel/commands/verbs/VerbTexts.h"

#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/terminal/CommandTexts.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel::VerbTexts {

VerbText sentence(const char* english) {
    return [english](const nlohmann::json& reply, const VerbCall& call) {
        const std::string pattern = tr(english);
        std::string text;
        std::size_t at = 0;
        for (auto open = pattern.find('{'); open != std::string::npos; open = pattern.find('{', at)) {
            const auto close = pattern.find('}', open);
            const auto name = pattern.substr(open + 1, close - open - 1);
            text += pattern.substr(at, open - at);
            text += name.starts_with(':') ? call.typed[name.substr(1)]
                                          : JsonCoding::required<std::string>(reply, name.c_str());
            at = close + 1;
        }
        return text + pattern.substr(at) + '\n';
    };
}

std::string saved(const nlohmann::json& reply, const VerbCall& /*call*/) {
    const auto windows = JsonCoding::required<std::int64_t>(reply, "windows");
    const auto layout = JsonCoding::required<std::string>(reply, "layoutName");
    const auto desk = JsonCoding::required<std::string>(reply, "configName");
    const std::string counted = trn("{} window", "{} windows", windows);
    return layout == Layout::defaultName ? trf("Saved {} for {}.\n", counted, desk)
                                         : trf("Saved {} for {} as \"{}\".\n", counted, desk, layout);
}

std::string report(const nlohmann::json& reply, const VerbCall& call) {
    return CommandTexts::report(JsonCoding::value<RestoreReport>(reply), call.environment.drawing());
}

} // namespace vantrel::VerbTexts
