#include "Vantrel/interface/pictures/Thumbnail.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr double radius = 3;

QString sentence(FileThumbnail::State state) {
    switch (state) {
    case FileThumbnail::State::gone:
        return qtr("The file is gone.");
    case FileThumbnail::State::unreadable:
        return qtr("There is no preview of this picture.");
    case FileThumbnail::State::picture:
        break;
    }
    return {};
}

} // namespace

Thumbnail::Thumbnail(Thumbnails* thumbnails, std::string path, QSize size, QWidget* parent)
    : QWidget(parent), m_thumbnails(thumbnails), m_path(std::move(path)) {
    setFixedSize(size);
}

void Thumbnail::paintEvent(QPaintEvent* /*event*/) {
    if (m_thumbnails != nullptr && !m_request) {
        m_request =
            m_thumbnails->request(m_path, size() * devicePixelRatioF(), [this](const FileThumbnail& found) {
                m_found = found;
                setToolTip(sentence(found.state));
                update();
                onLoaded(found.state);
            });
    }
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath shape;
    shape.addRoundedRect(rect(), radius, radius);
    painter.fillPath(shape, colors.panel);
    if (m_found && !m_found->image.isNull()) {
        painter.setClipPath(shape);
        painter.drawImage(QRectF(rect()), m_found->image);
    } else if (m_found) {
        const int side = std::min(width(), height()) / 2;
        Symbols::paint(painter, "warn",
                       QRect(rect().center() - QPoint(side / 2, side / 2), QSize(side, side)),
                       colors.warning);
    }
}

} // namespace vantrel
