// The bar at the bottom of the workbench: the outcome of a request, or what was deleted, with "Undo". It
// disappears by itself.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Label.h"

#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <functional>

namespace vantrel {

class NoticeBar final : public QWidget {
public:
    enum class Tone : std::uint8_t { plain, problem };

    explicit NoticeBar(QWidget* parent = nullptr);

    // For ten seconds.
    void say(const QString& text, Tone tone = Tone::plain);
    // For ten seconds; `undo` is called at most once.
    void offerUndo(const QString& text, std::function<void()> undo);
    // Triggers the offered action, if there is one.
    void undo();
    void dismiss();
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool offersUndo() const { return static_cast<bool>(m_undo); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Sign;

    void appear(const QString& text, const char* symbol, Tone tone);

    Sign* m_sign = nullptr;
    Label* m_text = nullptr;
    ActionButton* m_button = nullptr;
    std::function<void()> m_undo{};
    QTimer m_end;
};

} // namespace vantrel
