// The displays of a desk with their wallpapers, drawn small and to scale; one of them can be chosen.
#pragma once

#include "Vantrel/interface/ports/Thumbnails.h"
#include "Vantrel/interface/wallpaper/WallpaperContent.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace vantrel {

class DisplayTiles final : public QWidget {
public:
    // `thumbnails` outlives the view; null for no pictures.
    explicit DisplayTiles(Thumbnails* thumbnails, QWidget* parent = nullptr);

    // `chosen` is a DisplayInfo::uuid, or empty for all displays.
    void show(const std::vector<WallpaperContent::Display>& displays, const std::string& chosen);
    using QWidget::show;

    // None before the picture has been looked at, and for a display without one.
    [[nodiscard]] const FileThumbnail* found(const std::string& uuid) const;

    std::function<void(const std::string& uuid)> onChosen = [](const auto&) {};
    // Called when a picture has been looked at.
    std::function<void()> onLoaded = [] {};

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {80, sizeHint().height()}; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Tile;

    void place();

    Thumbnails* m_thumbnails;
    std::vector<WallpaperContent::Display> m_displays;
    std::vector<Tile*> m_tiles;
};

} // namespace vantrel
