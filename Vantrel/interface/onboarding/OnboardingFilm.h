// Plays the introduction's story in a drawing, a few times and only while it is visible. With reduced motion,
// shows a still picture.
#pragma once

#include "Vantrel/interface/desk/DeskView.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace vantrel {

class OnboardingFilm final : public QObject {
public:
    // The drawing owns the film.
    explicit OnboardingFilm(DeskView& drawing);

    [[nodiscard]] bool isRunning() const { return m_timer.isActive(); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void showNow();

    DeskView& m_drawing;
    QElapsedTimer m_clock;
    QTimer m_timer;
};

} // namespace vantrel
