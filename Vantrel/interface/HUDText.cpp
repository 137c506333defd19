#include "Vantrel/interface/HUDText.h"

#include "Vantrel/interface/ShortcutText.h"
#include "VantrelCore/scenes/SceneApplyCaption.h"
#include "VantrelCore/scenes/SceneSettlementCaption.h"
#include "VantrelCore/text/NumberText.h"
#include "VantrelCore/text/RestoreReasonCaption.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>
#include <initializer_list>

namespace vantrel {

namespace {

// A shorter wait is not noticeable, so its duration is not shown.
constexpr double noticeableSeconds = 1;

std::string duration(double seconds) {
    return seconds < noticeableSeconds ? "" : trf("in {} seconds", NumberText::oneDecimal(seconds));
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
        return tr("No windows were put back");
    }
    if (inPlace < windows.windows()) {
        return windows.moved == 0
                   ? trn("{1} of {0} window already in place", "{1} of {0} windows already in place",
                         windows.windows(), inPlace)
                   : trn("{1} of {0} window back", "{1} of {0} windows back", windows.windows(), inPlace);
    }
    if (windows.moved == 0) {
        return trn("{} window, already in place", "All {} windows already in place", inPlace);
    }
    return windows.alreadyRight == 0 ? trn("{} window back in place", "{} windows back in place", inPlace)
                                     : trf("{} moved, {} already right", windows.moved, windows.alreadyRight);
}

std::string problemsOf(const RestoreTally& windows) {
    std::string closed;
    if (windows.appsNotOpen > 0) {
        closed = trn("{} app not open", "{} apps not open", windows.appsNotOpen);
    } else if (windows.closed > 0) {
        closed = trn("{} window closed", "{} windows closed", windows.closed);
    }
    return joined({closed, windows.failed == 0 ? ""
                                               : trn("{} window could not be moved",
                                                     "{} windows could not be moved", windows.failed)});
}

std::string withoutFullStop(std::string_view sentence) {
    return std::string(sentence.ends_with('.') ? sentence.substr(0, sentence.size() - 1) : sentence);
}

struct Text {
    HUDText operator()(const HUD::Restoring& restoring) const {
        const char* const putting = tr("Putting windows back…");
        return restoring.cause.empty()
                   ? HUDText{putting, "", "restore"}
                   : HUDText{RestoreReasonCaption::caption(restoring.cause), putting, "restore"};
    }

    HUDText operator()(const HUD::Done& done) const {
        const std::string problems = problemsOf(done.windows);
        return {headlineOf(done.windows),
                joined({RestoreReasonCaption::caption(done.cause),
                        problems.empty() ? duration(done.seconds) : problems}),
                done.windows.failed > 0       ? "warn"
                : done.windows.inPlace() == 0 ? "info"
                                              : "check"};
    }

    HUDText operator()(const HUD::Saved& saved) const {
        return {tr("Layout saved"), trn("{} window", "{} windows", saved.windows), "check"};
    }

    HUDText operator()(const HUD::Stashed& stashed) const {
        return {
            tr("Desk put aside"),
            joined({trn("{} window", "{} windows", stashed.windows),
                    stashed.shortcut ? trf("{} brings it back", ShortcutText::of(*stashed.shortcut)) : ""}),
            "stash"};
    }

    HUDText operator()(const HUD::Refused& refused) const {
        const std::string_view text = refused.text;
        const auto end = text.find(". ");
        const bool isOne = end == std::string_view::npos;
        return {withoutFullStop(text.substr(0, end)),
                joined({isOne ? "" : withoutFullStop(text.substr(end + 2)),
                        refused.saveShortcut ? trf("{} remembers it", ShortcutText::of(*refused.saveShortcut))
                                             : ""}),
                "info"};
    }

    HUDText operator()(const HUD::SceneApplied& scene) const {
        return {scene.name, SceneApplyCaption::detail(scene.moved, scene.opened, scene.notOpen), "check"};
    }

    HUDText operator()(const HUD::AppPlaced& placed) const {
        return {trf("{} is in its place", placed.app), placed.desk, "check"};
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
