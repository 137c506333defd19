#include "Vantrel/interface/workbench/NoticeBar.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>

#include <chrono>
#include <utility>

namespace vantrel {

namespace {

constexpr std::chrono::seconds duration{10};

} // namespace

class NoticeBar::Sign final : public QWidget {
public:
    explicit Sign(QWidget* parent) : QWidget(parent) {
        const int side = Metrics::points(*this, 16);
        setFixedSize(side, side);
    }

    void show(const char* symbol, Tone tone) {
        m_symbol = symbol;
        m_tone = tone;
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto colors = DeskColors::of(palette());
        QPainter painter(this);
        Symbols::paint(painter, m_symbol, rect(),
                       m_tone == Tone::problem ? colors.warning : colors.secondText);
    }

private:
    const char* m_symbol = "info";
    Tone m_tone = Tone::plain;
};

NoticeBar::NoticeBar(QWidget* parent) : QWidget(parent) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::points(*this, 24), Metrics::points(*this, 8), Metrics::points(*this, 12),
                            Metrics::points(*this, 8));
    row->setSpacing(Metrics::points(*this, 12));
    m_sign = new Sign(this);
    m_text = new Label(Label::Role::text, this);
    m_button = new ActionButton("undo", ActionButton::Form::plain, this);
    m_button->setTexts(qtr("Undo"), "");
    m_button->setAccessibleName(qtr("Undo the deletion"));
    m_button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_button, &QPushButton::clicked, this, [this] { undo(); });
    auto* const close = new SymbolButton("close", qtr("Dismiss"), 26, this);
    connect(close, &QToolButton::clicked, this, [this] { dismiss(); });
    row->addWidget(m_sign);
    row->addWidget(m_text, 1);
    row->addWidget(m_button);
    row->addWidget(close);
    m_end.setSingleShot(true);
    m_end.setInterval(duration);
    m_end.callOnTimeout(this, [this] { dismiss(); });
    hide();
}

QString NoticeBar::text() const {
    return isHidden() ? QString() : m_text->accessibleName();
}

void NoticeBar::appear(const QString& text, const char* symbol, Tone tone) {
    m_sign->show(symbol, tone);
    m_text->show(text);
    m_button->setVisible(offersUndo());
    show();
    m_end.start();
    QAccessibleEvent event(m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void NoticeBar::say(const QString& text, Tone tone) {
    m_undo = nullptr;
    appear(text, tone == Tone::problem ? "warn" : "info", tone);
}

void NoticeBar::offerUndo(const QString& text, std::function<void()> undo) {
    m_undo = std::move(undo);
    appear(text, "trash", Tone::plain);
}

void NoticeBar::undo() {
    if (const auto undo = std::exchange(m_undo, nullptr)) {
        dismiss();
        undo();
    }
}

void NoticeBar::dismiss() {
    m_undo = nullptr;
    m_end.stop();
    hide();
}

void NoticeBar::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.window);
    painter.fillRect(QRect(0, 0, width(), 1), colors.hairline);
}

} // namespace vantrel
