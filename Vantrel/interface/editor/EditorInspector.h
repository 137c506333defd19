// The editor's right side: what is known of the selected boxes, or of the scene when none is selected.
#pragma once

#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/Switch.h"
#include "Vantrel/interface/editor/BoxInspector.h"
#include "Vantrel/interface/editor/GroupInspector.h"
#include "Vantrel/interface/wallpaper/WallpaperFacts.h"

#include <set>

namespace vantrel {

class EditorInspector final : public QWidget {
public:
    using BoxID = SceneDraft::BoxID;

    // Both outlive the inspector; without thumbnails there are no pictures.
    EditorInspector(ApplicationLooks& looks, Thumbnails* thumbnails, QWidget* parent = nullptr);

    // A read-only draft is only looked at. The draft outlives the inspector or the next call.
    void show(const SceneDraft& draft, const std::set<BoxID>& selection, bool isReadOnly);
    using QWidget::show;
    // The frame of the only selected box while it is dragged.
    void showFrame(const Rect& frame);

    // Called with every change of the user's.
    std::function<void(const SceneDraft::Command&)> onCommand = [](const auto&) {};
    // Called when the wallpapers are to be changed.
    std::function<void()> onWallpapers = [] {};
    [[nodiscard]] QWidget& wallpaperButton() { return m_wallpapers->button(); }

private:
    [[nodiscard]] QWidget* scenePart(Thumbnails* thumbnails);

    QWidget* m_scene = nullptr;
    Label* m_count = nullptr;
    Switch* m_opens = nullptr;
    Label* m_always = nullptr;
    WallpaperFacts* m_wallpapers = nullptr;
    BoxInspector* m_box = nullptr;
    GroupInspector* m_group = nullptr;
};

} // namespace vantrel
