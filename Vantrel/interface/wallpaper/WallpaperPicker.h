// Chooses the wallpapers of a scene, display by display: from those used lately, those of the system, or a
// file. It shows in the place of what opened it.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/wallpaper/DisplayTiles.h"
#include "Vantrel/interface/wallpaper/WallpaperServices.h"
#include "Vantrel/interface/wallpaper/WallpaperTiles.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QScrollArea;

namespace vantrel {

class WallpaperPicker final : public QWidget {
public:
    struct Subject {
        // The scene's name.
        std::string scene;
        std::vector<DisplayInfo> displays;
        SceneWallpaper wallpaper{};
    };

    // Reads the recents and the system's pictures now.
    explicit WallpaperPicker(WallpaperServices services, QWidget* parent = nullptr);

    void show(const Subject& subject);
    using QWidget::show;
    // The display whose picture is chosen; the first one unless said otherwise.
    void chooseDisplay(const std::string& uuid);

    [[nodiscard]] WallpaperTiles& recent() { return *m_recent; }
    [[nodiscard]] WallpaperTiles& system() { return *m_system; }
    [[nodiscard]] DisplayTiles& displays() { return *m_displays; }
    // A sentence about a file that is no picture; empty without one.
    [[nodiscard]] QString message() const { return m_message->text(); }

    // Called with the displays that get another picture; none means that theirs stays as it is.
    std::function<void(const std::vector<std::string>& displays, const std::optional<std::string>& file)>
        onChosen = [](const auto&, const auto&) {};
    // Called when the user has finished.
    std::function<void()> onDone = [] {};

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* displaySide();
    [[nodiscard]] QWidget* pictureSide();
    [[nodiscard]] QWidget* footer();
    void refresh();
    void showFacts();
    void choose(const std::optional<std::string>& file);
    void chooseFile(const std::string& file);
    void showSameOnAll(bool isSame);
    [[nodiscard]] int points(double length) const;

    WallpaperServices m_services;
    Subject m_subject;
    WallpaperContent m_content;
    // The chosen display; empty for all of them.
    std::string m_display;
    std::vector<std::string> m_recents;
    std::optional<std::vector<SystemWallpaper>> m_known;

    QBoxLayout* m_columns = nullptr;
    QWidget* m_side = nullptr;
    Label* m_title = nullptr;
    DisplayTiles* m_displays = nullptr;
    QWidget* m_facts = nullptr;
    QCheckBox* m_same = nullptr;
    QScrollArea* m_scroll = nullptr;
    Label* m_recentTitle = nullptr;
    WallpaperTiles* m_recent = nullptr;
    WallpaperTiles* m_system = nullptr;
    Label* m_systemHint = nullptr;
    Label* m_message = nullptr;
    ActionButton* m_none = nullptr;
    // Expires with this object, for lists that arrive later.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
