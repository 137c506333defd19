// A scene's wallpapers as small pictures with their names, and the button that changes them.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/ports/Thumbnails.h"
#include "Vantrel/interface/wallpaper/WallpaperContent.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QVBoxLayout;

namespace vantrel {

class WallpaperFacts final : public QWidget {
public:
    // `thumbnails` outlives the widget; null for no pictures.
    explicit WallpaperFacts(Thumbnails* thumbnails, QWidget* parent = nullptr);

    void show(const std::vector<WallpaperContent::Fact>& facts);
    using QWidget::show;

    [[nodiscard]] QWidget& button() { return *m_change; }

    // Called when the wallpapers are to be changed.
    std::function<void()> onChange = [] {};

private:
    void add(const WallpaperContent::Fact& fact);

    Thumbnails* m_thumbnails;
    std::optional<std::vector<WallpaperContent::Fact>> m_facts;
    QVBoxLayout* m_rows = nullptr;
    ActionButton* m_change = nullptr;
};

} // namespace vantrel
