// The commands for keyboard shortcuts.
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/HotKeyNames.h"
#include "Vantrel/controller/AppController.h"
#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/commands/HotKeyText.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

namespace {

using namespace ControlAnswers;
using Kind = HotKeySurface::Kind;

constexpr const auto& fixedNames = HotKeyNames::commands;

nlohmann::json message(const HotKeyStatus& status) {
    const auto& taken = status.taken;
    const auto* const fixed =
        std::ranges::find(fixedNames, taken.surface.kind, &std::pair<Kind, const char*>::first);
    nlohmann::json json{{"command", fixed == fixedNames.end() ? "scene" : fixed->second},
                        {"label", taken.label},
                        {"keys", HotKeyText::text(taken.combo)},
                        {"keyCode", taken.combo.keyCode},
                        {"modifiers", taken.combo.modifiers},
                        {"refused", status.state == HotKeyStatus::State::refused},
                        // Once false for the quick switcher; kept for other programs.
                        {"available", true}};
    if (taken.surface.kind == Kind::scene) {
        json["sceneID"] = taken.surface.sceneID;
    }
    return json;
}

ControlAnswer hotKeys(const BusCall& call) {
    auto list = nlohmann::json::array();
    for (const auto& status : call.controller.published().hotKeys) {
        list.push_back(message(status));
    }
    return nlohmann::json{{"hotKeys", std::move(list)}};
}

// Finds a fixed command by its name, or a scene.
std::optional<HotKeySurface> surface(const AppController& controller, const std::string& name) {
    for (const auto& [kind, fixed] : fixedNames) {
        if (name == fixed) {
            return HotKeySurface{kind, {}};
        }
    }
    const auto scene = sceneCalled(controller.published(), name);
    return scene ? std::optional(HotKeySurface::scene(scene->id)) : std::nullopt;
}

ControlAnswer change(const BusCall& call, std::optional<HotKeyCombo> combo) {
    const auto found = surface(call.controller, call[0]);
    if (!found) {
        return refused(
            trf("There is no command or scene \"{}\". The commands are restore, save, stash, undo and "
                "quickSwitcher.",
                call[0]));
    }
    const auto changed = call.controller.setHotkey(*found, combo);
    return changed ? hotKeys(call) : refused(changed.error());
}

ControlAnswer set(const BusCall& call) {
    const auto combo = HotKeyText::parse(call[1]);
    return combo ? change(call, *combo) : refused(combo.error());
}

ControlAnswer clear(const BusCall& call) {
    return change(call, std::nullopt);
}

std::string remark(const nlohmann::json& hotKey) {
    return hotKey.at("refused").get<bool>()
               ? fmt::format("  ({})",
                             tr("refused: another program holds it, or this keyboard has no such key"))
               : "";
}

std::string hotKeysText(const nlohmann::json& reply, const VerbCall& /*call*/) {
    std::string text;
    for (const auto& each : reply.at("hotKeys")) {
        text += fmt::format("{:<20} {}{}\n", each.at("keys").get<std::string>(),
                            each.at("label").get<std::string>(), remark(each));
    }
    return text;
}

constexpr Word command{"command", marked("restore, save, stash, undo, quickSwitcher, or a scene's name"),
                       ValueKind::shortcut};

} // namespace

std::vector<Command> hotKeyCommands() {
    return {
        {.signature = "HotKeys() hotKeys",
         .handler = hotKeys,
         .verbs = {{"hotkeys", marked("List the keyboard shortcuts; set or clear one")}},
         .text = hotKeysText},
        {.signature = "SetHotKey(command, keys) hotKeys",
         .handler = set,
         .verbs = {{"hotkeys set",
                    marked("Give a command or scene a shortcut"),
                    {command, {"keys", marked("Like Super+Shift+R or F9")}}}},
         .text = hotKeysText},
        {.signature = "ClearHotKey(command) hotKeys",
         .handler = clear,
         .verbs = {{"hotkeys clear",
                    marked("Clear a shortcut; restore, save and stash return to their defaults"),
                    {command}}},
         .text = hotKeysText},
    };
}

} // namespace vantrel
