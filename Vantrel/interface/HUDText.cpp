#include "Vantrel/interface/HUDText.h"

#include "VantrelCore/scenes/SceneApplyCaption.h"
#include "VantrelCore/scenes/SceneSettlementCaption.h"
#include "VantrelCore/text/CountedNoun.h"

#include <fmt/format.h>

namespace vantrel {

namespace {

// A shorter wait is not noticeable, so its duration is not shown.
constexpr double noticeableSeconds = 1;

std::string duration(double seconds) {
    return seconds < noticeableSeconds ? "" : fmt::format("in {:.1f} seconds", seconds);
}

// Joins the non-empty parts into one caption.
std::string joined(const std::string& first, const std::string& second) {
    return first + (first.empty() || second.empty() ? "" : " · ") + second;
}

struct Text {
    HUDText operator()(const HUD::Restoring& restoring) const {
        constexpr const char* putting = "Putting windows back…";
        return restoring.cause.empty() ? HUDText{putting, ""} : HUDText{restoring.cause, putting};
    }

    HUDText operator()(const HUD::Done& done) const {
        if (done.windows == 0) {
            // Windows that were already in place count too.
            return {"No windows were put back", done.cause};
        }
        return {countedNoun(done.windows, "window") + " back in place",
                joined(done.cause, duration(done.seconds))};
    }

    HUDText operator()(const HUD::Saved& saved) const {
        return {"Layout saved", countedNoun(saved.windows, "window")};
    }

    HUDText operator()(const HUD::SceneApplied& scene) const {
        return {scene.name, SceneApplyCaption::detail(scene.moved, scene.opened, scene.notOpen)};
    }

    HUDText operator()(const HUD::AppPlaced& placed) const {
        return {placed.app + " is in its place", placed.desk};
    }

    HUDText operator()(const HUD::SceneSettled& scene) const {
        return {scene.name, SceneSettlementCaption::detail(scene.opened, scene.placed, scene.stragglers)};
    }
};

} // namespace

HUDText HUDText::of(const HUDEvent& event) {
    return std::visit(Text{}, event);
}

} // namespace vantrel
