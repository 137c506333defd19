#include "Vantrel/interface/editor/EditorFoot.h"

#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>

#include <utility>

namespace vantrel {

class EditorFoot::Sign final : public QWidget {
public:
    explicit Sign(QWidget* parent) : QWidget(parent) {
        const int side = Metrics::points(*this, 16);
        setFixedSize(side, side);
    }

    void show(Tone tone) {
        m_tone = tone;
        update();
    }
    using QWidget::show;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto colors = DeskColors::of(palette());
        QPainter painter(this);
        const bool isWarning = m_tone == Tone::warning;
        Symbols::paint(painter, isWarning ? "warn" : "info", rect(),
                       isWarning ? colors.warning : colors.secondText);
    }

private:
    Tone m_tone = Tone::plain;
};

EditorFoot::EditorFoot(QWidget* parent) : QWidget(parent) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(points(20), points(6), points(12), points(6));
    row->setSpacing(points(8));
    m_sign = new Sign(this);
    m_text = new Label(Label::Role::second, this);
    m_text->setMinimumWidth(points(120));
    row->addWidget(m_sign);
    row->addWidget(m_text, 1);
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        auto* const button = new ActionButton("", ActionButton::Form::plain, this);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        button->hide();
        // A copy, as acting may change what is offered.
        connect(button, &QPushButton::clicked, this,
                [this, i] { std::function<void()>(m_offers.at(i).act)(); });
        row->addWidget(button);
        m_buttons.at(i) = button;
    }
    setMinimumHeight(points(42));
}

void EditorFoot::say(const QString& text, Tone tone, std::vector<Offer> offers) {
    const bool isNews = text != m_text->accessibleName();
    m_offers = std::move(offers);
    m_sign->show(tone);
    m_sign->setVisible(!text.isEmpty());
    if (isNews) {
        m_text->show(text);
    }
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        m_buttons.at(i)->setVisible(i < m_offers.size());
        if (i < m_offers.size()) {
            m_buttons.at(i)->setTexts(m_offers[i].text, "");
        }
    }
    if (isNews && tone == Tone::warning) {
        QAccessibleEvent event(m_text, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

QString EditorFoot::text() const {
    return m_text->accessibleName();
}

} // namespace vantrel
