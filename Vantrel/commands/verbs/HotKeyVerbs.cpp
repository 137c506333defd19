#include "Vantrel/commands/verbs/HotKeyVerbs.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace vantrel {

namespace {

using namespace VerbPrinting;

struct Keys {
    std::string command;
    std::string keys;
};

const char* remark(const nlohmann::json& hotKey) {
    if (!hotKey.value("available", true)) {
        return "  (not available yet)";
    }
    return hotKey.at("refused").get<bool>()
               ? "  (refused: another program holds it, or this keyboard has no such key)"
               : "";
}

ExitCode list(const ControlClient::Result<nlohmann::json>& answer, VerbOutput output) {
    return show<nlohmann::json>(answer, output, [](const nlohmann::json& shown) {
        std::string text;
        for (const auto& each : shown.at("hotKeys")) {
            text += fmt::format("{:<20} {}{}\n", each.at("keys").get<std::string>(),
                                each.at("label").get<std::string>(), remark(each));
        }
        return text;
    });
}

} // namespace

void addHotKeyVerbs(VerbTable& table, CLI::App& app) {
    auto& hotKeys = table.add(app, "hotkeys", "List the keyboard shortcuts; set or clear one",
                              [](VerbOutput output) { return list(ControlClient::call("HotKeys"), output); });
    const auto typed = std::make_shared<Keys>();
    constexpr const char* what = "restore, save, stash, undo, or a scene's name";
    auto& set = table.add(hotKeys, "set", "Give a command or scene a shortcut", [typed](VerbOutput output) {
        return list(ControlClient::call("SetHotKey", {typed->command, typed->keys}), output);
    });
    table.takes(ValueKind::shortcut, set.add_option("command", typed->command, what))->required();
    set.add_option("keys", typed->keys, "Like Super+Shift+R or F9")->required();
    auto& clear =
        table.add(hotKeys, "clear", "Clear a shortcut; restore, save and stash return to their defaults",
                  [typed](VerbOutput output) {
                      return list(ControlClient::call("ClearHotKey", {typed->command}), output);
                  });
    table.takes(ValueKind::shortcut, clear.add_option("command", typed->command, what))->required();
}

} // namespace vantrel
