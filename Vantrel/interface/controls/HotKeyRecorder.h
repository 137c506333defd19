// Shows a shortcut and records another one: takes the keyboard, shows the modifiers while they are held, and
// says conflicts in place.
#pragma once

#include "VantrelCore/commands/HotKeyRecording.h"

#include <QAbstractButton>
#include <QStringList>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class HotKeyRecorder final : public QAbstractButton {
public:
    // The Macintosh virtual key code of a key event, by the key's position; none for keys that shortcuts
    // cannot use.
    using KeyReader = std::function<std::optional<std::int64_t>(const QKeyEvent&)>;

    struct Handlers {
        KeyReader keyCode;
        std::function<std::vector<TakenHotKey>()> taken;
        // Stores the combination, none to clear it; returns why that is not possible.
        std::function<std::optional<std::string>(std::optional<HotKeyCombo>)> store;
        // What is wrong, to be shown beside the recorder; empty when nothing is any more.
        std::function<void(const std::string&)> problem;
    };

    HotKeyRecorder(HotKeySurface surface, HotKeyRecording::Place place, Handlers handlers,
                   QWidget* parent = nullptr);
    ~HotKeyRecorder() override;

    // Records for another command from now on.
    void setSurface(HotKeySurface surface);
    // What the shortcut does, for screen readers; needed where no other widget around it says so.
    void setTitle(const QString& title);
    // "Super+2"; empty without a shortcut.
    void setShortcut(const QString& shortcut);
    // Another program holds it.
    void setRefused(bool isRefused);
    // Whether it looks like something to click.
    void setProminent(bool isProminent);
    // Draws each key of the shortcut by itself, like the keys of a keyboard.
    void setHasKeyCaps(bool hasKeyCaps);
    [[nodiscard]] bool isRecording() const { return m_isRecording; }
    void startRecording();
    void stopRecording();
    // The text shown now: the shortcut, or the keys held while recording.
    [[nodiscard]] QString shownText() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void showText();
    // The keys to draw one by one; empty for a text in one piece.
    [[nodiscard]] QStringList keyCaps() const;
    void paintKeyCaps(QPainter& painter, const QStringList& keys) const;
    void record(HotKeyCombo combo);

    HotKeySurface m_surface;
    HotKeyRecording::Place m_place;
    Handlers m_handlers;
    QString m_title;
    QString m_shortcut;
    QString m_held;
    bool m_isRefused = false;
    bool m_isProminent = false;
    bool m_hasKeyCaps = false;
    bool m_isRecording = false;
};

} // namespace vantrel
