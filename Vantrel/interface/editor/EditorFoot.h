// The line below the canvas: what a drop does, what became of a request, or what has to be decided.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Label.h"

#include <QWidget>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace vantrel {

class EditorFoot final : public QWidget {
public:
    enum class Tone : std::uint8_t { plain, warning };

    struct Offer {
        QString text;
        std::function<void()> act;
    };

    explicit EditorFoot(QWidget* parent = nullptr);

    // At most two offers. Nothing is shown for an empty text.
    void say(const QString& text, Tone tone = Tone::plain, std::vector<Offer> offers = {});
    [[nodiscard]] QString text() const;

private:
    class Sign;

    Sign* m_sign = nullptr;
    Label* m_text = nullptr;
    std::array<ActionButton*, 2> m_buttons{};
    std::vector<Offer> m_offers;
};

} // namespace vantrel
