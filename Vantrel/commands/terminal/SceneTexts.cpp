#include "Vantrel/commands/terminal/SceneTexts.h"

#include "Vantrel/commands/terminal/TextCells.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel::SceneTexts {

namespace {

using DeskDrawing::line, DeskDrawing::separator;

std::string traits(const SceneMessage& message, const DeskDrawing::Options& options) {
    const Scene& scene = message.scene;
    std::string text = trn("{} window", "{} windows", std::ssize(scene.layout.windows));
    const auto add = [&](bool holds, std::string_view trait) {
        if (holds) {
            text += fmt::format("{}{}", separator(options), trait);
        }
    };
    add(!message.isCurrentDesk, message.deskName);
    add(scene.isPinned(), tr("pinned"));
    add(!scene.effectiveOpensMissingApps(), tr("opens no apps"));
    add(scene.hasWallpaper(), tr("wallpaper"));
    return text;
}

} // namespace

std::string list(const ScenesMessage& message, const DeskDrawing::Options& options) {
    int columns = 0;
    for (const SceneMessage& each : message.scenes) {
        columns = std::max(columns, TextCells::width(each.scene.name));
    }
    std::string text;
    for (const SceneMessage& each : message.scenes) {
        text += line(fmt::format("{} {}  {}", each.isLastApplied ? '*' : ' ',
                                 TextCells::padded(each.scene.name, columns, DeskDrawing::ellipsis(options)),
                                 traits(each, options)),
                     options);
    }
    if (message.driftNudge) {
        text += line(trn("{0} window moved away from {1}. To put them back: vantrelctl scenes reapply",
                         "{0} windows moved away from {1}. To put them back: vantrelctl scenes reapply",
                         message.driftNudge->movedCount, message.driftNudge->sceneName),
                     options);
    }
    return text;
}

std::string scene(const SceneMessage& message, const DeskDrawing::Options& options,
                  const std::function<std::string(Date)>& dateText) {
    const Scene& scene = message.scene;
    std::string text =
        line(fmt::format("{}{}{}{}{}", scene.name, separator(options), traits(message, options),
                         separator(options), trf("saved {}", dateText(scene.layout.savedAt))),
             options);
    text += DeskDrawing::drawing(scene.layout.displays, scene.layout.windows, options);
    text += DeskDrawing::windowList(scene.layout.displays, scene.layout.windows, options);
    if (scene.wallpaper) {
        const auto labels = DisplayLabels::of(scene.layout.displays);
        for (const auto& [display, path] : scene.wallpaper->perDisplay) {
            const auto label = labels.find(display);
            text += line(label == labels.end() ? trf("wallpaper: {}", path)
                                               : trf("wallpaper on {}: {}", label->second, path),
                         options);
        }
    }
    return text;
}

} // namespace vantrel::SceneTexts
