// The widget that shows the drawing of a desk: lifts the window under the pointer, and lets the keyboard walk
// the windows and read them out.
#pragma once

#include "Vantrel/interface/desk/AccessibleDrawing.h"
#include "Vantrel/interface/desk/DeskPainter.h"

#include <QPixmap>
#include <QWidget>

#include <memory>
#include <optional>

namespace vantrel {

class DeskView final : public QWidget, public AccessibleDrawing {
public:
    // `looks` outlives the view.
    explicit DeskView(ApplicationLooks& looks, QWidget* parent = nullptr);

    void show(const DeskPicture& picture);
    using QWidget::show;
    [[nodiscard]] const DeskPicture& picture() const { return m_picture; }

    // The drawing grows with the width up to this height.
    void setHighest(int height);

    [[nodiscard]] std::optional<std::size_t> selectedWindow() const { return m_emphasis.selected; }
    void select(std::optional<std::size_t> window);
    void lift(std::optional<std::size_t> window);
    [[nodiscard]] QRect frameOf(std::size_t window);
    // In reading order.
    [[nodiscard]] const std::vector<std::size_t>& order() const { return m_order; }

    [[nodiscard]] std::size_t itemCount() override { return m_order.size(); }
    [[nodiscard]] Item item(std::size_t place) override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    [[nodiscard]] DeskPainter& painter();
    void picturesChanged();
    void emphasise(const DeskPainter::Emphasis& emphasis);
    void walk(int step);
    [[nodiscard]] QString toolTipAt(QPointF point);

    ApplicationLooks& m_looks;
    DeskPicture m_picture;
    std::vector<std::size_t> m_order;
    // Made when needed.
    std::optional<DeskPainter> m_painter;
    DeskPainter::Emphasis m_emphasis;
    // The last painting; null when it is no longer true.
    QPixmap m_cache;
    std::shared_ptr<void> m_pictureWatch;
    int m_highest = 200;
};

} // namespace vantrel
