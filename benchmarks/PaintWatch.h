// Notices when a widget is painted.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>

namespace vantrel::bench {

class PaintWatch final : public QObject {
public:
    // Handles events until the widget is painted; false when it is not. The windows' own platform paints on
    // its own time; offscreen, a few turns suffice.
    [[nodiscard]] bool awaitPaint() const {
        for (int turn = 0; turn < 100 && !m_hasPainted; ++turn) {
            QApplication::processEvents();
        }
        return m_hasPainted;
    }

    void reset() { m_hasPainted = false; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        m_hasPainted = m_hasPainted || event->type() == QEvent::Paint;
        return QObject::eventFilter(object, event);
    }

private:
    bool m_hasPainted = false;
};

} // namespace vantrel::bench
