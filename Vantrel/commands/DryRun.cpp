#include "Vantrel/commands/DryRun.h"

#include "Vantrel/commands/ControlAnswers.h"
#include "Vantrel/commands/terminal/TextColumns.h"
#include "Vantrel/commands/verbs/VerbPrinting.h"
#include "Vantrel/commands/verbs/VerbTexts.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <iterator>

namespace vantrel {

namespace {

using JsonCoding::required;

const char* nameOf(RestorePreview::Fate fate) {
    switch (fate) {
    case RestorePreview::Fate::inPlace:
        return "inPlace";
    case RestorePreview::Fate::wouldMove:
        return "wouldMove";
    case RestorePreview::Fate::noSuchWindow:
        return "noSuchWindow";
    case RestorePreview::Fate::notRunning:
        return "notRunning";
    case RestorePreview::Fate::wouldOpen:
        break;
    }
    return "wouldOpen";
}

nlohmann::json describe(const WindowRecord& window) {
    return {{"appName", window.appName},
            {"bundleID", window.bundleID},
            {"title", window.title},
            {"frame", window.frame}};
}

} // namespace

void to_json(nlohmann::json& json, const RestorePreview& preview) {
    auto windows = nlohmann::json::array();
    for (const RestorePreview::Window& window : preview.windows) {
        windows.push_back(describe(window.saved));
        nlohmann::json& last = windows.back();
        last["fate"] = nameOf(window.fate);
        last["text"] = RestorePreviews::text(window.fate);
        if (window.match) {
            last["pairedBy"] = RestorePreviews::text(*window.match);
            last["currentTitle"] = window.match->title;
            last["currentFrame"] = window.match->frame;
        }
    }
    auto others = nlohmann::json::array();
    for (const WindowRecord& window : preview.unremembered) {
        others.push_back(describe(window));
    }
    json = {{"summary", RestorePreviews::summary(preview)},
            {"windows", std::move(windows)},
            {"unremembered", std::move(others)}};
}

namespace DryRun {

RestorePreviewFlow::Done reply(const ControlReply& reply) {
    return [reply](const RestorePreviewFlow::Result& preview) {
        reply(preview ? ControlAnswer(nlohmann::json(*preview)) : ControlAnswers::refused(preview.error()));
    };
}

std::string text(const nlohmann::json& preview, const DeskDrawing::Options& drawing) {
    std::vector<std::vector<std::string>> rows;
    std::vector<std::vector<std::string>> inPlace;
    for (const auto& window : preview.at("windows")) {
        const bool isInPlace = required<std::string>(window, "fate") == nameOf(RestorePreview::Fate::inPlace);
        (isInPlace ? inPlace : rows)
            .push_back({required<std::string>(window, "text"), required<std::string>(window, "appName"),
                        required<std::string>(window, "title"), window.value("pairedBy", "")});
    }
    std::ranges::move(inPlace, std::back_inserter(rows));
    for (const auto& window : preview.at("unremembered")) {
        rows.push_back({tr("not remembered"), required<std::string>(window, "appName"),
                        required<std::string>(window, "title")});
    }
    return required<std::string>(preview, "summary") + '\n' + TextColumns::lines(rows, drawing.columns);
}

ExitCode run(const VerbCall& call, const char* method, const char* preview,
             const std::vector<std::string>& arguments) {
    return call.typed.has(option.name)
               ? VerbPrinting::show(ControlClient::call(preview, arguments),
                                    VerbTexts::of<nlohmann::json>(text), call)
               : VerbPrinting::show(ControlClient::call(method, arguments), VerbTexts::report, call);
}

} // namespace DryRun

} // namespace vantrel
