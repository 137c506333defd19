#include "Vantrel/interface/HUDText.h"

#include "Vantrel/interface/ShortcutText.h"
#include "VantrelCore/scenes/SceneApplyCaption.h"
#include "VantrelCore/scenes/SceneSettlementCaption.h"
#include "VantrelCore/text/CountedNoun.h"

#include <fmt/format.h>
#include <initializer_list>

namespace vantrel {

namespace {

// A shorter wait is not noticeable, so its duration is not shown.
constexpr double noticeableSeconds = 1;

std::string duration(double seconds) {
    return seconds < noticeableSeconds ? "" : fmt::format("in {:.1f} seconds", seconds);
}

// Joins the non-empty parts into one caption.
std::string joined(std::initializer_list<std::string> parts) {
    std::string result;
    for (const std::string& part : parts) {
        result += (result.empty() || part.empty() ? "" : " · ") + part;
    }
    return result;
}

std::string headlineOf(const RestoreTally& windows) {
    const std::int64_t inPlace = windows.inPlace();
    if (inPlace == 0) {
        return "No windows were put back";
    }
    if (inPlace < windows.windows()) {
        return fmt::format("{} of {} {}", inPlace, countedNoun(windows.windows(), "window"),
                           windows.moved == 0 ? "already in place" : "back");
    }
    if (windows.moved == 0) {
        return inPlace == 1 ? "1 window, already in place"
                            : fmt::format("All {} windows already in place", inPlace);
    }
    return windows.alreadyRight == 0
               ? countedNoun(inPlace, "window") + " back in place"
               : fmt::format("{} moved, {} already right", windows.moved, windows.alreadyRight);
}

std::string problemsOf(const RestoreTally& windows) {
    std::string closed;
    if (windows.appsNotOpen > 0) {
        closed = countedNoun(windows.appsNotOpen, "app") + " not open";
    } else if (windows.closed > 0) {
        closed = countedNoun(windows.closed, "window") + " closed";
    }
    return joined(
        {closed, windows.failed == 0 ? "" : countedNoun(windows.failed, "window") + " could not be moved"});
}

std::string withoutFullStop(std::string_view sentence) {
    return std::string(sentence.ends_with('.') ? sentence.substr(0, sentence.size() - 1) : sentence);
}

struct Text {
    HUDText operator()(const HUD::Restoring& restoring) const {
        constexpr const char* putting = "Putting windows back…";
        return restoring.cause.empty() ? HUDText{putting, "", "restore"}
                                       : HUDText{restoring.cause, putting, "restore"};
    }

    HUDText operator()(const HUD::Done& done) const {
        const std::string problems = problemsOf(done.windows);
        return {headlineOf(done.windows),
                joined({done.cause, problems.empty() ? duration(done.seconds) : problems}),
                done.windows.failed > 0       ? "warn"
                : done.windows.inPlace() == 0 ? "info"
                                              : "check"};
    }

    HUDText operator()(const HUD::Saved& saved) const {
        return {"Layout saved", countedNoun(saved.windows, "window"), "check"};
    }

    HUDText operator()(const HUD::Stashed& stashed) const {
        return {"Desk put aside",
                joined({countedNoun(stashed.windows, "window"),
                        stashed.shortcut ? ShortcutText::of(*stashed.shortcut) + " brings it back" : ""}),
                "stash"};
    }

    HUDText operator()(const HUD::Refused& refused) const {
        const std::string_view text = refused.text;
        const auto end = text.find(". ");
        const bool isOne = end == std::string_view::npos;
        return {
            withoutFullStop(text.substr(0, end)),
            joined({isOne ? "" : withoutFullStop(text.substr(end + 2)),
                    refused.saveShortcut ? ShortcutText::of(*refused.saveShortcut) + " remembers it" : ""}),
            "info"};
    }

    HUDText operator()(const HUD::SceneApplied& scene) const {
        return {scene.name, SceneApplyCaption::detail(scene.moved, scene.opened, scene.notOpen), "check"};
    }

    HUDText operator()(const HUD::AppPlaced& placed) const {
        return {placed.app + " is in its place", placed.desk, "check"};
    }

    HUDText operator()(const HUD::SceneSettled& scene) const {
        return {scene.name, SceneSettlementCaption::detail(scene.opened, scene.placed, scene.stragglers),
                "check"};
    }
};

} // namespace

HUDText HUDText::of(const HUDEvent& event) {
    return std::visit(Text{}, event);
}

} // namespace vantrel
