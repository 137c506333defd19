// The heads-up display: a small overlay on the display with the pointer. It dismisses itself, takes neither
// focus nor clicks, and bypasses the window manager.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/HUDText.h"

#include <QTimer>
#include <QWidget>

namespace vantrel {

class HUDOverlay final : public QWidget {
public:
    HUDOverlay();

    // Shows the controller's events while the setting is on. The controller must not send events once this
    // object is destroyed.
    void follow(AppController& controller);

    // Replaces the text that is shown.
    void show(const HUDText& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Positions the overlay on its display: centered, well above the lower edge.
    void place();

    HUDText m_text;
    QTimer m_hide;
};

} // namespace vantrel
