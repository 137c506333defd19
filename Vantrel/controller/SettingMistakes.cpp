#include "Vantrel/controller/SettingMistakes.h"

#include "Vantrel/controller/SettingKey.h"
#include "VantrelCore/text/SafeText.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <map>
#include <optional>
#include <string_view>

namespace vantrel {

namespace {

std::optional<std::string> problem(const SettingsLine& line) {
    if (line.key.empty()) {
        return tr("It is not of the form key = value.");
    }
    const SettingKey* const key = SettingKeys::named(line.key);
    if (key == nullptr) {
        return SettingKeys::unknown(line.key);
    }
    if (key->purpose == SettingKey::Purpose::note) {
        return trf("{0} is vantrel's own note and belongs in notes.json. Remove this line; to change the "
                   "note: vantrelctl settings set {0} VALUE",
                   key->name);
    }
    return key->problemWith(line);
}

} // namespace

std::string SettingMistake::text() const {
    return trf("Line {} of {}: {}", line, file, sentence);
}

std::vector<SettingMistake> SettingMistakes::in(const SettingsFile& file) {
    std::map<std::string_view, std::size_t> lastLine;
    for (const SettingsLine& line : file.lines) {
        lastLine[line.key] = line.number;
    }
    std::vector<SettingMistake> mistakes;
    for (const SettingsLine& line : file.lines) {
        auto sentence = problem(line);
        if (!sentence && lastLine.at(line.key) != line.number) {
            sentence = trf("Line {} sets {} again and takes precedence.", lastLine.at(line.key),
                           SafeText::line(line.key));
        }
        if (sentence) {
            mistakes.push_back({file.path.filename().string(), line.number, *std::move(sentence)});
        }
    }
    return mistakes;
}

std::vector<std::string> SettingMistakes::texts(const std::vector<SettingMistake>& mistakes) {
    std::vector<std::string> all;
    std::ranges::transform(mistakes, std::back_inserter(all), &SettingMistake::text);
    return all;
}

} // namespace vantrel
