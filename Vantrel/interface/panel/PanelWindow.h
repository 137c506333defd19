// The window of the panel: a frameless popover at the tray icon, or an ordinary window where there is no
// tray.
#pragma once

#include "Vantrel/interface/panel/PanelView.h"

#include <QWidget>

#include <cstdint>
#include <functional>

namespace vantrel {

class PanelWindow final : public QWidget {
public:
    enum class Kind : std::uint8_t { popover, window };

    PanelWindow(ApplicationLooks& looks, PanelActions actions, Kind kind);

    [[nodiscard]] PanelView& view() { return *m_view; }
    [[nodiscard]] Kind kind() const { return m_kind; }

    // Shows it, a popover as near to `anchor` (the icon, in global coordinates) as its screen permits.
    void open(const QRect& anchor);
    // Adjusts the height to the content.
    void fit();

    // Called once when it has been closed.
    std::function<void()> onClosed = [] {};

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QPoint cornerFor(const QRect& anchor, const QRect& area) const;
    void shape();

    Kind m_kind;
    PanelView* m_view;
    QRect m_anchor;
};

} // namespace vantrel
