#include "Vantrel/commands/methods/HotKeyMethods.h"

#include "Vantrel/commands/ControlNames.h"
#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/commands/HotKeyText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantrel {

namespace {

using Arguments = std::vector<std::string>;
using Kind = HotKeySurface::Kind;

constexpr std::array<std::pair<Kind, const char*>, 5> fixedNames{{{Kind::fixedRestore, "restore"},
                                                                  {Kind::fixedSave, "save"},
                                                                  {Kind::stash, "stash"},
                                                                  {Kind::undo, "undo"},
                                                                  {Kind::quickSwitcher, "quickSwitcher"}}};

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
                        {"available", status.state != HotKeyStatus::State::notAvailableYet}};
    if (taken.surface.kind == Kind::scene) {
        json["sceneID"] = taken.surface.sceneID;
    }
    return json;
}

nlohmann::json everyHotKey(const AppController& controller) {
    auto list = nlohmann::json::array();
    for (const auto& status : controller.published().hotKeys) {
        list.push_back(message(status));
    }
    return {{"hotKeys", std::move(list)}};
}

// Finds a fixed command or a scene by name.
std::optional<HotKeySurface> surface(const AppController& controller, const std::string& name) {
    for (const auto& [kind, fixed] : fixedNames) {
        if (name == fixed) {
            return HotKeySurface{kind, {}};
        }
    }
    for (const auto& scene : controller.published().scenes) {
        if (scene.name == name) {
            return HotKeySurface::scene(scene.id);
        }
    }
    return std::nullopt;
}

void change(AppController& controller, const std::string& name, std::optional<HotKeyCombo> combo,
            const ControlReply& reply) {
    const auto refuse = [&](std::string sentence) {
        reply(std::unexpected(ControlRefusal{ControlNames::refused, std::move(sentence)}));
    };
    const auto found = surface(controller, name);
    if (!found) {
        refuse("There is no command or scene \"" + name +
               "\". The commands are restore, save, stash and undo.");
        return;
    }
    if (combo && !found->isAvailable()) {
        refuse(std::string(HotKeyRecording::commandLabel(found->kind)) +
               " is not available yet. Nothing was changed.");
        return;
    }
    if (const auto changed = controller.setHotkey(*found, combo); !changed) {
        refuse(changed.error());
        return;
    }
    reply(everyHotKey(controller));
}

} // namespace

std::vector<ControlMethod> hotKeyMethods(AppController& controller) {
    return {
        {"HotKeys",
         {},
         "hotKeys",
         [&controller](const Arguments& /*none*/, const ControlReply& reply) {
             reply(everyHotKey(controller));
         }},
        {"SetHotKey",
         {"command", "keys"},
         "hotKeys",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             const auto combo = HotKeyText::parse(arguments[1]);
             if (!combo) {
                 reply(std::unexpected(ControlRefusal{ControlNames::refused, combo.error()}));
                 return;
             }
             change(controller, arguments[0], *combo, reply);
         }},
        {"ClearHotKey",
         {"command"},
         "hotKeys",
         [&controller](const Arguments& arguments, const ControlReply& reply) {
             change(controller, arguments[0], std::nullopt, reply);
         }},
    };
}

} // namespace vantrel
