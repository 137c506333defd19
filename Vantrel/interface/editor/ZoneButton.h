// A small button that shows a part of a display and stands for it.
#pragma once

#include "VantrelCore/studio/Zones.h"

#include <QToolButton>

namespace vantrel {

class ZoneButton final : public QToolButton {
public:
    explicit ZoneButton(Zone zone, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Zone m_zone;
};

} // namespace vantrel
