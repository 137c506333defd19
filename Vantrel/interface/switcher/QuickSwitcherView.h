// The quick switcher's strip of cards, painted: a scene's drawing, symbol, name and number each, and below
// them what the keys do.
#pragma once

#include "Vantrel/interface/desk/DeskPainter.h"
#include "VantrelCore/ports/HeldKeyboard.h"
#include "VantrelCore/scenes/QuickSwitcherStrip.h"

#include <QWidget>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace vantrel {

class QuickSwitcherView final : public QWidget {
public:
    enum class Kind : std::uint8_t {
        // The keyboard is held; the window manager does not see the window.
        held,
        // An ordinary window, which takes the keys itself.
        window,
    };

    struct Handlers {
        std::function<void(const HeldKeyboard::Key&)> pressed = [](const auto&) {};
        // One of these modifiers was released in an ordinary window.
        std::function<void(Qt::KeyboardModifiers)> released = [](Qt::KeyboardModifiers) {};
        std::function<void(std::size_t)> pointed = [](std::size_t) {};
        std::function<void(std::size_t)> clicked = [](std::size_t) {};
        std::function<void()> left = [] {};
    };

    // `looks` outlives the view.
    QuickSwitcherView(ApplicationLooks& looks, Kind kind, Handlers handlers);

    // `pictures` by scene id.
    void show(const QuickSwitcherStrip& strip, const std::map<std::string, DeskPicture>& pictures);
    using QWidget::show;
    // Shows it in the middle of the screen with the pointer.
    void open();

    [[nodiscard]] QSize sizeHint() const override;
    // What is said below the cards, or instead of them.
    [[nodiscard]] QString hint() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct Lengths;

    void place();
    [[nodiscard]] QRect card(std::size_t index) const;
    [[nodiscard]] std::optional<std::size_t> cardAt(QPoint point) const;
    [[nodiscard]] const DeskPainter& drawing(const Scene& scene);
    void paintCard(QPainter& painter, std::size_t index, const Scene& scene);
    void paintHints(QPainter& painter);
    [[nodiscard]] Lengths lengths() const;

    ApplicationLooks& m_looks;
    Kind m_kind;
    Handlers m_handlers;
    QuickSwitcherStrip m_strip;
    std::map<std::string, DeskPicture> m_pictures;
    // The part of the screen that it may cover.
    QSize m_room{1152, 720};
    // Made when first painted, by scene id.
    std::map<std::string, DeskPainter> m_drawings;
    // Where the pointer was when the strip opened: a card below it is selected only once it moves.
    std::optional<QPoint> m_restingPointer;
};

} // namespace vantrel
