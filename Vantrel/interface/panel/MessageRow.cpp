#include "Vantrel/interface/panel/MessageRow.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/controls/SymbolButton.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr double symbolSide = 16;
constexpr double leftMargin = 12;
constexpr double symbolGap = 10;
constexpr double controlHeight = 26;

} // namespace

MessageRow::MessageRow(const PanelContent::Message& message, const PanelActions& actions, QWidget* parent)
    : QWidget(parent), m_message(message), m_actions(actions) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    setAccessibleName(qt(message.title));
    setAccessibleDescription(qt(message.detail));
    // Spaces are mirrored, margins are not.
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, points(6), 0,
                            points(message.detail.empty() && message.actions.size() < 2 ? 6 : 10));
    row->setSpacing(0);
    row->addSpacing(points(leftMargin + symbolSide + symbolGap));
    auto* const column = new QVBoxLayout;
    row->addLayout(column, 1);
    row->addSpacing(points(6));
    m_column = column;
    column->setSpacing(points(4));
    auto* const top = new QHBoxLayout;
    top->setSpacing(points(4));
    auto* const title = new Label(message.detail.empty() ? Label::Role::text : Label::Role::strong, this);
    title->show(qt(message.title));
    title->setMinimumHeight(points(controlHeight));
    top->addWidget(title, 1);
    // A second action stands below the text, as both would leave the title no room.
    if (!message.actions.empty()) {
        top->addWidget(actionButton(message.actions.front()), 0, Qt::AlignTop);
    }
    if (message.isDismissible) {
        auto* const dismiss = new SymbolButton("close", qtr("Dismiss"), controlHeight, this);
        connect(dismiss, &QToolButton::clicked, this, [this] { m_actions.dismiss(m_message.kind); });
        top->addWidget(dismiss, 0, Qt::AlignTop);
    }
    column->addLayout(top);
    if (!message.detail.empty()) {
        auto* const detail = new Label(Label::Role::second, this);
        detail->show(qt(message.detail));
        column->addWidget(detail);
    }
    if (message.actions.size() > 1) {
        auto* const more = new QHBoxLayout;
        for (std::size_t i = 1; i < message.actions.size(); ++i) {
            more->addWidget(actionButton(message.actions[i]));
        }
        more->addStretch(1);
        column->addSpacing(points(2));
        column->addLayout(more);
    }
}

QWidget* MessageRow::actionButton(const PanelContent::Message::Action& action) {
    auto* const button = new QPushButton(qt(action.text), this);
    button->setAutoDefault(false);
    button->setFixedHeight(Metrics::points(*this, controlHeight));
    // Some styles leave short texts no air.
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) +
                            Metrics::points(*this, 22));
    connect(button, &QPushButton::clicked, this, [this, deed = action.deed] {
        using Deed = PanelContent::Message::Deed;
        if (deed == Deed::enterKey) {
            askForKey();
        } else if (deed == Deed::recordSwitcherShortcut) {
            recordSwitcherShortcut();
        } else {
            m_actions.perform(deed, "");
        }
    });
    return button;
}

void MessageRow::askForKey() {
    if (auto* const shown = findChild<QLineEdit*>()) {
        shown->setFocus();
        return;
    }
    auto* const field = new QLineEdit(this);
    field->setPlaceholderText(qtr("License key"));
    field->setAccessibleName(qtr("License key"));
    field->setMinimumHeight(Metrics::points(*this, 30));
    connect(field, &QLineEdit::returnPressed, this, [this, field] {
        m_actions.perform(PanelContent::Message::Deed::enterKey, field->text().trimmed().toStdString());
    });
    m_column->addWidget(field);
    field->setFocus();
}

void MessageRow::recordSwitcherShortcut() {
    if (m_recorder == nullptr) {
        auto* const problem = new Label(Label::Role::problem, this);
        problem->hide();
        m_recorder = new HotKeyRecorder(HotKeySurface{HotKeySurface::Kind::quickSwitcher, {}},
                                        HotKeyRecording::Place::settings,
                                        {.keyCode = m_actions.keyCode,
                                         .taken = m_actions.takenHotKeys,
                                         .store = m_actions.setSwitcherHotkey,
                                         .problem =
                                             [problem](const std::string& text) {
                                                 problem->show(qt(text));
                                                 problem->setVisible(!text.empty());
                                             }},
                                        this);
        m_recorder->setTitle(qtr("Quick switcher"));
        m_recorder->setProminent(true);
        m_column->addWidget(m_recorder);
        m_column->addWidget(problem);
    }
    m_recorder->startRecording();
}

void MessageRow::paintEvent(QPaintEvent* /*event*/) {
    using Tone = PanelContent::Message::Tone;
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.ground);
    painter.drawRoundedRect(rect(), 8, 8);
    const int side = Metrics::points(*this, symbolSide);
    const QRect square(Metrics::points(*this, leftMargin),
                       Metrics::points(*this, 6) + (Metrics::points(*this, controlHeight) - side) / 2, side,
                       side);
    const QColor color = m_message.tone == Tone::warning  ? colors.warning
                         : m_message.tone == Tone::accent ? colors.accent
                                                          : colors.secondText;
    Symbols::paint(painter, m_message.symbol, QStyle::visualRect(layoutDirection(), rect(), square), color);
}

} // namespace vantrel
