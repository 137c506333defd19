// Draws the desk's displays small and to scale; a click chooses one.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QAbstractButton;

namespace vantrel {

class DisplayPicker final : public QWidget {
public:
    explicit DisplayPicker(QWidget* parent = nullptr);

    // `subject` is what is placed there: "Chat". `chosen` is empty for none.
    void show(const QString& subject, const std::vector<DisplayInfo>& displays, const std::string& chosen);
    using QWidget::show;

    [[nodiscard]] QAbstractButton* buttonFor(const std::string& uuid) const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    std::function<void(const std::string& uuid)> onChosen = [](const auto&) {};

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Tile;

    void place();

    std::vector<DisplayInfo> m_displays;
    std::vector<Tile*> m_tiles;
};

} // namespace vantrel
