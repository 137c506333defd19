// What is wrong with the settings file that a person has edited.
#pragma once

#include "VantrelCore/ports/UserDefaults.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantrel {

// A line of the settings file that is ignored.
struct SettingMistake {
    // The file's name without its folder.
    std::string file;
    std::size_t line = 0;
    // What is wrong with it, as a sentence.
    std::string sentence;

    bool operator==(const SettingMistake&) const = default;

    // "Line 3 of settings.conf: There is no setting "setleDelay". Did you mean "settleDelay"?"
    [[nodiscard]] std::string text() const;
};

namespace SettingMistakes {

// In the order of the lines.
[[nodiscard]] std::vector<SettingMistake> in(const SettingsFile& file);

[[nodiscard]] std::vector<std::string> texts(const std::vector<SettingMistake>& mistakes);

} // namespace SettingMistakes

} // namespace vantrel
