// A check box painted as a switch, for settings that take effect at once.
#pragma once

#include <QCheckBox>

namespace vantrel {

class Switch final : public QCheckBox {
public:
    explicit Switch(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};

} // namespace vantrel
