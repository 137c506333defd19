#include "Vantrel/interface/onboarding/OnboardingFilm.h"

#include "Vantrel/interface/onboarding/OnboardingStory.h"

#include <QEvent>
#include <QStyle>

#include <cmath>

namespace vantrel {

namespace {

// In milliseconds.
constexpr double frame = 25;
constexpr int showings = 3;

} // namespace

OnboardingFilm::OnboardingFilm(DeskView& drawing) : QObject(&drawing), m_drawing(drawing) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.callOnTimeout(this, [this] { showNow(); });
    m_drawing.installEventFilter(this);
    m_drawing.show(OnboardingStory::still());
}

bool OnboardingFilm::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Show &&
        m_drawing.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &m_drawing) > 0) {
        m_clock.start();
        showNow();
    } else if (event->type() == QEvent::Hide) {
        m_timer.stop();
    }
    return QObject::eventFilter(object, event);
}

void OnboardingFilm::showNow() {
    const double seconds = static_cast<double>(m_clock.elapsed()) / 1000;
    if (seconds >= OnboardingStory::length * showings) {
        m_drawing.show(OnboardingStory::at(0));
        return;
    }
    m_drawing.show(OnboardingStory::at(seconds));
    m_timer.start(static_cast<int>(std::ceil(std::max(frame, OnboardingStory::rest(seconds) * 1000))));
}

} // namespace vantrel
