// The heads-up display: a small sign on the display where the pointer is, which goes by itself, takes neither
// focus nor clicks, and is managed by no window manager.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/HUDText.h"

#include <QTimer>
#include <QWidget>

namespace vantrel {

class HUDOverlay final : public QWidget {
public:
    HUDOverlay();

    // Shows what the controller tells, while the setting is on. Once this is gone the controller may tell
    // nothing more.
    void follow(AppController& controller);

    // In place of what it shows.
    void show(const HUDText& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Where the sign stands on a display: in the middle, well above the lower edge.
    void place();

    HUDText m_text;
    QTimer m_hide;
};

} // namespace vantrel
