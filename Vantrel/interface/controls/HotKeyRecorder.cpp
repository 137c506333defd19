#include "Vantrel/interface/controls/HotKeyRecorder.h"

#include "Vantrel/interface/ShortcutText.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/KeyModifiers.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "VantrelCore/commands/HotKeyText.h"

#include <QKeyEvent>
#include <QPainter>

namespace vantrel {

namespace {

// Padding inside each key cap, and the gaps between two with and without a plus sign.
constexpr double capPadding = 16;
constexpr double wideCapGap = 16;
constexpr double narrowCapGap = 4;

double capGap() {
    return ShortcutText::separator().isEmpty() ? narrowCapGap : wideCapGap;
}

bool isModifier(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return true;
    default:
        return false;
    }
}

} // namespace

HotKeyRecorder::HotKeyRecorder(HotKeySurface surface, HotKeyRecording::Place place, Handlers handlers,
                               QWidget* parent)
    : QAbstractButton(parent), m_surface(std::move(surface)), m_place(place),
      m_handlers(std::move(handlers)) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    connect(this, &QAbstractButton::clicked, this, [this] { startRecording(); });
    showText();
}

HotKeyRecorder::~HotKeyRecorder() {
    if (m_isRecording) {
        releaseKeyboard();
    }
}

void HotKeyRecorder::setSurface(HotKeySurface surface) {
    stopRecording();
    m_surface = std::move(surface);
}

void HotKeyRecorder::setTitle(const QString& title) {
    m_title = title;
    showText();
}

void HotKeyRecorder::setShortcut(const QString& shortcut) {
    m_shortcut = shortcut;
    showText();
}

void HotKeyRecorder::setRefused(bool isRefused) {
    m_isRefused = isRefused;
    showText();
}

void HotKeyRecorder::setProminent(bool isProminent) {
    m_isProminent = isProminent;
    updateGeometry();
    update();
}

QString HotKeyRecorder::shownText() const {
    if (m_isRecording) {
        return m_held.isEmpty() ? QString::fromUtf8(HotKeyRecording::prompt(m_surface, m_place).data())
                                : m_held + QStringLiteral("…");
    }
    return m_shortcut.isEmpty() && m_isProminent ? qtr("Shortcut…") : m_shortcut;
}

void HotKeyRecorder::setHasKeyCaps(bool hasKeyCaps) {
    m_hasKeyCaps = hasKeyCaps;
    updateGeometry();
    update();
}

QStringList HotKeyRecorder::keyCaps() const {
    if (!m_hasKeyCaps || m_isRecording || m_shortcut.isEmpty()) {
        return {};
    }
    return ShortcutText::keys(m_shortcut);
}

void HotKeyRecorder::showText() {
    const QString name = m_title.isEmpty() ? qtr("Shortcut") : qtr("Shortcut for “%1”").arg(m_title);
    setAccessibleName(m_shortcut.isEmpty() ? name : name + " " + m_shortcut);
    setAccessibleDescription(m_isRefused ? qtr("Another program has taken this shortcut.") : QString());
    setToolTip(m_isRefused ? qtr("Another program has taken this shortcut.") : QString());
    updateGeometry();
    update();
}

void HotKeyRecorder::startRecording() {
    if (!m_isRecording) {
        m_isRecording = true;
        m_held.clear();
        m_handlers.problem("");
        setFocus();
        grabKeyboard();
        showText();
    }
}

void HotKeyRecorder::stopRecording() {
    if (m_isRecording) {
        m_isRecording = false;
        releaseKeyboard();
        showText();
    }
}

// While recording, no key is a shortcut of ours and Tab does not move the focus.
bool HotKeyRecorder::event(QEvent* event) {
    if (m_isRecording && event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (m_isRecording && event->type() == QEvent::KeyPress) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return QAbstractButton::event(event);
}

void HotKeyRecorder::keyPressEvent(QKeyEvent* event) {
    if (!m_isRecording) {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            click();
        } else if ((event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) &&
                   !m_shortcut.isEmpty()) {
            m_handlers.problem(m_handlers.store(std::nullopt).value_or(""));
        } else {
            QAbstractButton::keyPressEvent(event);
        }
        return;
    }
    if (isModifier(event->key())) {
        // The event's own modifiers do not include the key that is being pressed.
        Qt::KeyboardModifiers held = event->modifiers();
        held |= event->key() == Qt::Key_Shift     ? Qt::ShiftModifier
                : event->key() == Qt::Key_Control ? Qt::ControlModifier
                : event->key() == Qt::Key_Alt     ? Qt::AltModifier
                                                  : Qt::MetaModifier;
        m_held = qt(ShortcutText::ofModifiers(KeyModifiers::ofShortcut(held)));
        showText();
        return;
    }
    constexpr std::int64_t escape = 53;
    const auto keyCode = event->key() == Qt::Key_Escape ? std::optional(escape) : m_handlers.keyCode(*event);
    if (keyCode) {
        record({.keyCode = *keyCode, .modifiers = KeyModifiers::ofShortcut(event->modifiers())});
    } else {
        m_handlers.problem(vantrel::tr("This key cannot be used in a shortcut."));
    }
}

void HotKeyRecorder::keyReleaseEvent(QKeyEvent* event) {
    if (m_isRecording) {
        m_held.clear();
        showText();
    } else {
        QAbstractButton::keyReleaseEvent(event);
    }
}

void HotKeyRecorder::record(HotKeyCombo combo) {
    const auto outcome = HotKeyRecording::outcome(combo, m_surface, m_place, m_handlers.taken());
    if (const auto* const refusal = std::get_if<HotKeyRecording::Refuse>(&outcome)) {
        m_handlers.problem(refusal->message + ".");
        m_held.clear();
        showText();
        return;
    }
    const auto* const change = std::get_if<HotKeyRecording::Store>(&outcome);
    if (change != nullptr && change->combo && HotKeyText::blocksTyping(combo)) {
        m_handlers.problem(ShortcutText::needsModifier());
        m_held.clear();
        showText();
        return;
    }
    stopRecording();
    m_handlers.problem(change != nullptr ? m_handlers.store(change->combo).value_or("") : "");
}

void HotKeyRecorder::focusOutEvent(QFocusEvent* event) {
    stopRecording();
    QAbstractButton::focusOutEvent(event);
}

void HotKeyRecorder::hideEvent(QHideEvent* event) {
    stopRecording();
    QAbstractButton::hideEvent(event);
}

QSize HotKeyRecorder::sizeHint() const {
    if (const QStringList keys = keyCaps(); !keys.isEmpty()) {
        int width = 0;
        for (const QString& key : keys) {
            width += (width > 0 ? Metrics::points(*this, capGap()) : 0) +
                     fontMetrics().horizontalAdvance(key) + Metrics::points(*this, capPadding);
        }
        return {width, Metrics::points(*this, 28)};
    }
    const QFontMetrics metrics(Metrics::scaled(font(), 0.85, QFont::Medium));
    const QString text = shownText();
    const int frame = m_isProminent || m_isRecording ? Metrics::points(*this, 14) : 2;
    return {text.isEmpty() ? 0 : metrics.horizontalAdvance(text) + frame, Metrics::points(*this, 26)};
}

// From left to right in every language, as on the keyboard.
void HotKeyRecorder::paintKeyCaps(QPainter& painter, const QStringList& keys) const {
    const auto colors = DeskColors::of(palette());
    const double height = Metrics::points(*this, 24);
    const double gap = Metrics::points(*this, capGap());
    double left = 0;
    for (const QString& key : keys) {
        if (left > 0) {
            painter.setPen(colors.secondText);
            painter.drawText(QRectF(left, 0, gap, this->height()), Qt::AlignCenter,
                             ShortcutText::separator());
            left += gap;
        }
        const double width = fontMetrics().horizontalAdvance(key) + Metrics::points(*this, capPadding);
        const QRectF cap(left, (this->height() - height) / 2, width, height);
        painter.setPen(hasFocus() || underMouse() ? QPen(colors.accent, hasFocus() ? 1.5 : 1)
                                                  : QPen(DeskColors::translucent(colors.text, 0.16), 1));
        painter.setBrush(colors.base);
        painter.drawRoundedRect(cap.adjusted(0.75, 0.75, -0.75, -0.75), 4, 4);
        painter.setPen(m_isRefused ? colors.warning : colors.text);
        painter.drawText(cap, Qt::AlignCenter, key);
        left += width;
    }
}

void HotKeyRecorder::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (const QStringList keys = keyCaps(); !keys.isEmpty()) {
        paintKeyCaps(painter, keys);
        return;
    }
    const QString text = shownText();
    if (text.isEmpty()) {
        return;
    }
    const bool isFramed = m_isProminent || m_isRecording;
    if (isFramed) {
        const double height = Metrics::points(*this, 20);
        QRectF chip(0.75, 0, width() - 1.5, height);
        chip.moveCenter(QRectF(rect()).center());
        painter.setPen(
            QPen(m_isRecording || hasFocus() ? colors.accent : DeskColors::translucent(colors.text, 0.14),
                 m_isRecording || hasFocus() ? 1.5 : 1));
        painter.setBrush(colors.base);
        painter.drawRoundedRect(chip, 4, 4);
    }
    painter.setFont(Metrics::scaled(font(), 0.85, QFont::Medium));
    painter.setPen(m_isRefused && !m_isRecording ? colors.warning
                   : isFramed                    ? colors.text
                                                 : colors.secondText);
    painter.drawText(rect(), Qt::AlignCenter, text);
}

} // namespace vantrel
