// Paints the card of a desk: the drawing of what is remembered there, with its name below.
#pragma once

#include "Vantrel/interface/desk/ApplicationLooks.h"
#include "Vantrel/interface/desk/DeskPicture.h"

#include <QCache>
#include <QPixmap>
#include <QStyledItemDelegate>

#include <functional>
#include <string>

namespace vantrel {

class DeskCardDelegate final : public QStyledItemDelegate {
public:
    using Drawing = std::function<DeskPicture(const std::string& configID)>;

    // Only for views of a ListRowsModel. `looks` outlives it. `drawing` is asked for what is seen.
    DeskCardDelegate(ApplicationLooks& looks, Drawing drawing, QObject* parent = nullptr);

    // To be called when drawings or colours have changed.
    void forget() { m_drawn.clear(); }
    void setCardSize(QSize size);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    [[nodiscard]] QPixmap drawn(const std::string& configID, QSize size,
                                const QStyleOptionViewItem& option) const;

    ApplicationLooks& m_looks;
    Drawing m_drawing;
    QSize m_size;
    // Of the cards seen last, by configID.
    mutable QCache<QString, QPixmap> m_drawn;
};

} // namespace vantrel
