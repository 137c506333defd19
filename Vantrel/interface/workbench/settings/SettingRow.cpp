#include "Vantrel/interface/workbench/settings/SettingRow.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

#include <string_view>

namespace vantrel {

namespace {

constexpr double symbolSide = 16;
constexpr double symbolGap = 12;

} // namespace

SettingRow::SettingRow(std::string symbol, QWidget* parent) : QWidget(parent), m_symbol(std::move(symbol)) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, points(8), 0, points(8));
    column->setSpacing(points(4));
    auto* const line = new QHBoxLayout;
    line->setSpacing(0);
    if (!m_symbol.empty()) {
        line->addSpacing(points(symbolSide + symbolGap));
    }
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(points(2));
    m_title = new Label(Label::Role::text, this);
    m_detail = new Label(Label::Role::second, this);
    m_warning = new Label(Label::Role::warning, this);
    m_detail->hide();
    m_warning->hide();
    texts->addStretch(1);
    texts->addWidget(m_title);
    texts->addWidget(m_detail);
    texts->addWidget(m_warning);
    texts->addStretch(1);
    line->addLayout(texts, 1);
    line->addSpacing(points(16));
    m_controls = new QHBoxLayout;
    m_controls->setSpacing(points(8));
    line->addLayout(m_controls);
    column->addLayout(line);
    m_problem = new Label(Label::Role::problem, this);
    m_problem->hide();
    auto* const below = new QHBoxLayout;
    below->setSpacing(0);
    if (!m_symbol.empty()) {
        below->addSpacing(points(symbolSide + symbolGap));
    }
    below->addWidget(m_problem, 1);
    column->addLayout(below);
    setMinimumHeight(points(46));
}

void SettingRow::setTexts(const std::string& title, const std::string& detail) {
    m_title->show(qt(title));
    m_detail->show(qt(detail));
    m_warning->show(qt(detail));
    m_detail->setVisible(!detail.empty() && !m_isWarning);
    m_warning->setVisible(!detail.empty() && m_isWarning);
}

void SettingRow::setWarning(bool isWarning) {
    m_isWarning = isWarning;
}

void SettingRow::addControl(QWidget* control) {
    m_controls->addWidget(control, 0, Qt::AlignVCenter);
}

void SettingRow::showProblem(const std::optional<std::string>& problem) {
    m_problem->show(qt(problem.value_or("")));
    m_problem->setVisible(problem && !problem->empty());
}

QString SettingRow::problem() const {
    return m_problem->isHidden() ? QString() : m_problem->accessibleName();
}

void SettingRow::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.fillRect(QRect(0, height() - 1, width(), 1), colors.hairline);
    if (!m_symbol.empty()) {
        const int side = Metrics::points(*this, symbolSide);
        const QRect square(0, m_title->geometry().center().y() - side / 2, side, side);
        const std::string_view symbol =
            Symbols::exists(m_symbol) ? m_symbol : Symbols::ofSystemSymbol(m_symbol);
        Symbols::paint(painter, symbol, QStyle::visualRect(layoutDirection(), rect(), square),
                       colors.secondText);
    }
}

} // namespace vantrel
