// A grid of wallpapers, as high as all its rows; what is around it scrolls. Thumbnails are read for what can
// be seen.
#pragma once

#include "Vantrel/interface/ports/Thumbnails.h"
#include "Vantrel/interface/wallpaper/WallpaperContent.h"

#include <QCache>
#include <QListView>
#include <QPixmap>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

class WallpaperTiles final : public QListView {
public:
    // `thumbnails` outlives the view; null for no pictures.
    explicit WallpaperTiles(Thumbnails* thumbnails, QWidget* parent = nullptr);
    ~WallpaperTiles() override;

    void show(const std::vector<WallpaperContent::Tile>& tiles);
    using QListView::show;
    [[nodiscard]] const std::vector<WallpaperContent::Tile>& tiles() const { return m_tiles; }
    // None before it is known.
    [[nodiscard]] std::optional<FileThumbnail::State> stateOf(const std::string& path) const;

    // Called on a click, Return and Space.
    std::function<void(const std::string& path)> onChosen = [](const auto&) {};
    // Called when what is around should scroll to show this place in the view.
    std::function<void(QRect place)> onReached = [](QRect) {};
    // Called when a picture's state is known.
    std::function<void()> onLoaded = [] {};

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    class Model;
    class Delegate;
    struct Loaded {
        FileThumbnail::State state = FileThumbnail::State::unreadable;
        QPixmap pixmap;
    };

    [[nodiscard]] QSize cell() const;
    [[nodiscard]] QSize imageSize() const;
    void loadVisible();
    void load(const std::string& path);
    void loaded(const std::string& path, const FileThumbnail& thumbnail);
    void fitHeight();
    [[nodiscard]] std::string textOf(const WallpaperContent::Tile& tile) const;

    Thumbnails* m_thumbnails;
    std::vector<WallpaperContent::Tile> m_tiles;
    std::unique_ptr<Model> m_model;
    std::unique_ptr<Delegate> m_delegate;
    // The newest that were seen, by path.
    mutable QCache<QString, Loaded> m_loaded;
    // Those that are gone or cannot be read, however many.
    std::map<std::string, FileThumbnail::State> m_failed;
    std::map<std::string, std::shared_ptr<void>> m_requests;
};

} // namespace vantrel
