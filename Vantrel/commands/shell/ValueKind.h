// What a command's argument or option means. It decides what a shell offers for it (CompletionValues).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel {

enum class ValueKind : std::uint8_t {
    // Anything; there is nothing to offer.
    text,
    // Nothing: the word itself says it.
    flag,
    number,
    // The path of a file.
    file,
    // A copy of a store's file, in the support folder.
    storeCopy,
    desk,
    display,
    // A layout of the desk that --desk names, by default of this desk.
    layout,
    scene,
    stash,
    trigger,
    application,
    // An application that has a rule.
    ruledApplication,
    settingKey,
    // A value for the setting that the argument KEY names.
    settingValue,
    // A command that can have a keyboard shortcut, or a scene.
    shortcut,
    workbenchTab,
    yesOrNo,
    shell,
};

// The only words that a value of this kind may be; none if it may be others.
[[nodiscard]] inline std::vector<std::string> choicesOf(ValueKind kind) {
    return kind == ValueKind::yesOrNo ? std::vector<std::string>{"yes", "no"}
           : kind == ValueKind::shell ? std::vector<std::string>{"bash", "fish", "zsh"}
           : kind == ValueKind::workbenchTab
               ? std::vector<std::string>{"scenes", "desks", "history", "rules", "settings"}
               : std::vector<std::string>();
}

} // namespace vantrel
