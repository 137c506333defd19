// A fine line between two groups.
#pragma once

#include "Vantrel/interface/desk/DeskColors.h"

#include <QPainter>
#include <QWidget>

namespace vantrel {

class Hairline final : public QWidget {
public:
    explicit Hairline(QWidget* parent = nullptr) : QWidget(parent) { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter(this).fillRect(rect(), DeskColors::of(palette()).hairline);
    }
};

} // namespace vantrel
