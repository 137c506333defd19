// The quick switcher with few, many and no scenes.
#include "Vantrel/interface/switcher/QuickSwitcherView.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "tools/pictures/SampleDesks.h"
#include "tools/pictures/StandInIcons.h"
#include "tools/pictures/Surface.h"

namespace vantrel::pictures {

namespace {

std::unique_ptr<QWidget> strip(std::size_t count, const std::string& filter) {
    static StandInIcons icons;
    static ApplicationLooks looks(&icons);
    const auto state = SampleDesks::state();
    const auto stored = SceneRail::scenes(state.configID, state.scenes);
    std::vector<Scene> scenes;
    for (std::size_t index = 0; index < count; ++index) {
        scenes.push_back(stored[index % stored.size()]);
        scenes.back().id = std::to_string(index);
        if (index >= stored.size()) {
            scenes.back().name += " " + std::to_string(index / stored.size() + 1);
        }
    }
    QuickSwitcherStrip strip(scenes, {"0"}, "0");
    strip.type(filter);
    std::map<std::string, DeskPicture> pictures;
    for (const Scene* const scene : strip.shown()) {
        pictures.emplace(scene->id, DeskPicture::ofScene(*scene, state));
    }
    auto view = std::make_unique<QuickSwitcherView>(looks, QuickSwitcherView::Kind::held,
                                                    QuickSwitcherView::Handlers{});
    view->show(strip, pictures);
    return view;
}

} // namespace

std::vector<Surface> switcherSurfaces() {
    return {{"switcher", [] { return strip(4, ""); }},
            {"switcher-twelve", [] { return strip(12, ""); }},
            {"switcher-filtered", [] { return strip(12, "m"); }},
            {"switcher-nothing-found", [] { return strip(4, "x"); }},
            {"switcher-one", [] { return strip(1, ""); }},
            {"switcher-none", [] { return strip(0, ""); }}};
}

} // namespace vantrel::pictures
