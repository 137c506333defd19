#include "Vantrel/interface/onboarding/OnboardingWindow.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/ChoiceButton.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/onboarding/OnboardingFilm.h"
#include "Vantrel/interface/onboarding/OnboardingStory.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QPainter>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantrel {

namespace {

constexpr std::chrono::seconds checkInterval{1};

// A symbol in front of a row.
class Sign final : public QWidget {
public:
    Sign(std::string symbol, std::function<QColor(const DeskColors&)> color, QWidget* parent)
        : QWidget(parent), m_symbol(std::move(symbol)), m_color(std::move(color)) {
        const int side = Metrics::points(*this, 16);
        setFixedSize(side, side);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        Symbols::paint(painter, m_symbol, rect(), m_color(DeskColors::of(palette())));
    }

private:
    std::string m_symbol;
    std::function<QColor(const DeskColors&)> m_color;
};

QVBoxLayout* titleAndDetail(const QString& title, const QString& detail, QWidget* parent) {
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(0);
    auto* const first = new Label(Label::Role::strong, parent);
    first->show(title);
    auto* const second = new Label(Label::Role::second, parent);
    second->show(detail);
    texts->addWidget(first);
    texts->addWidget(second);
    return texts;
}

} // namespace

// Where one is: a dot per page, the present one longer.
class OnboardingWindow::Dots final : public QWidget {
public:
    explicit Dots(QWidget* parent) : QWidget(parent) {
        setFixedSize(Metrics::points(*this, 66), Metrics::points(*this, 7));
    }

    void setPage(int page) {
        m_page = page;
        setAccessibleName(qtr("Page %1 of %2").arg(page + 1).arg(pageCount));
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto colors = DeskColors::of(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        const double side = height();
        double x = 0;
        for (int i = 0; i < pageCount; ++i) {
            const double length = i == m_page ? side * 2.8 : side;
            const QRectF dot(x, 0, length, side);
            painter.setBrush(i == m_page ? colors.accent : DeskColors::mix(colors.window, colors.text, 0.25));
            painter.drawRoundedRect(
                layoutDirection() == Qt::RightToLeft ? QRectF(width() - dot.right(), 0, length, side) : dot,
                side / 2, side / 2);
            x += length + side * 1.2;
        }
    }

private:
    int m_page = 0;
};

OnboardingWindow::OnboardingWindow(ApplicationLooks& looks, const Start& start, Actions actions)
    : QWidget(nullptr, Qt::Window | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_actions(std::move(actions)), m_pages(new QStackedWidget(this)) {
    setWindowTitle(qtr("Welcome to Vantrel"));
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(points(32), points(28), points(24), points(20));
    m_pages->addWidget(drawingPage(looks, start.wantsMotion));
    m_pages->addWidget(checksPage());
    m_checking.setInterval(checkInterval);
    m_checking.callOnTimeout([this] { showChecks(); });
    m_pages->addWidget(answersPage(start));
    m_pages->addWidget(shortcutsPage());
    all->addWidget(m_pages, 1);
    auto* const foot = new QHBoxLayout;
    m_dots = new Dots(this);
    m_back = new ActionButton("", ActionButton::Form::plain, this);
    m_back->setFlat(true);
    m_forward = new ActionButton("", ActionButton::Form::plain, this);
    m_forward->setFilled(true);
    for (ActionButton* const button : {m_back, m_forward}) {
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    connect(m_back, &QPushButton::clicked, this, [this] { back(); });
    connect(m_forward, &QPushButton::clicked, this, [this] { forward(); });
    foot->addWidget(m_dots);
    foot->addStretch(1);
    foot->addWidget(m_back);
    foot->addSpacing(points(8));
    foot->addWidget(m_forward);
    all->addLayout(foot);
    // The last page has the longest buttons.
    showPage(pageCount - 1);
    showPage(0);
}

int OnboardingWindow::points(double length) const {
    return Metrics::points(*this, length);
}

int OnboardingWindow::page() const {
    return m_pages->currentIndex();
}

QWidget* OnboardingWindow::newPage(const QString& title, const QString& text, QVBoxLayout*& column) {
    auto* const page = new QWidget(this);
    column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, points(8), 0);
    column->setSpacing(points(4));
    auto* const heading = new Label(Label::Role::title, page);
    heading->show(title);
    auto* const below = new Label(Label::Role::text, page);
    below->show(text);
    column->addWidget(heading);
    column->addWidget(below);
    column->addSpacing(points(12));
    return page;
}

QWidget* OnboardingWindow::drawingPage(ApplicationLooks& looks, bool wantsMotion) {
    QVBoxLayout* column = nullptr;
    auto* const page = newPage(qtr("Your windows, where you left them"),
                               qtr("A display goes, and windows pile up. It comes back, and Vantrel puts "
                                   "every window where it was."),
                               column);
    auto* const drawing = new DeskView(looks, page);
    drawing->setHighest(points(200));
    if (wantsMotion) {
        new OnboardingFilm(*drawing);
    } else {
        drawing->show(OnboardingStory::still());
    }
    column->addWidget(drawing);
    column->addStretch(1);
    return page;
}

QWidget* OnboardingWindow::checksPage() {
    QVBoxLayout* column = nullptr;
    auto* const page = newPage(qtr("What it needs"), QString(), column);
    m_checkSummary = page->findChildren<Label*>().at(1);
    m_checks = new QWidget(page);
    auto* const rows = new QVBoxLayout(m_checks);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(points(10));
    column->addWidget(m_checks);
    column->addStretch(1);
    return page;
}

void OnboardingWindow::showChecks() {
    auto checks = m_actions.checks();
    if (checks == m_shownChecks) {
        return;
    }
    qDeleteAll(m_checks->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    m_checkSummary->show(qt(OnboardingContent::checkSummary(checks)));
    for (const auto& check : checks) {
        auto* const line = new QWidget(m_checks);
        line->setAccessibleName(
            qt(check.title + (check.isThere ? vantrel::tr(", there") : vantrel::tr(", missing"))));
        auto* const row = new QHBoxLayout(line);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(points(12));
        const bool isThere = check.isThere;
        row->addWidget(
            new Sign(
                isThere ? "check" : "warn",
                [isThere](const DeskColors& colors) { return isThere ? colors.good : colors.warning; }, line),
            0, Qt::AlignTop);
        row->addLayout(titleAndDetail(qt(check.title), qt(check.detail), line), 1);
        if (!check.action.empty()) {
            auto* const button = new ActionButton("", ActionButton::Form::plain, line);
            button->setTexts(qt(check.action), "");
            button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
            connect(button, &QPushButton::clicked, this, [this] { m_actions.openPermissionSettings(); });
            row->addWidget(button);
        }
        m_checks->layout()->addWidget(line);
        m_checks->layout()->addWidget(new Hairline(m_checks));
    }
    m_shownChecks = std::move(checks);
}

QWidget* OnboardingWindow::answersPage(const Start& start) {
    QVBoxLayout* column = nullptr;
    auto* const page = newPage(qtr("How you work"), qtr("How often do displays come and go?"), column);
    auto* const group = new QButtonGroup(page);
    for (const auto& each : OnboardingContent::answers()) {
        auto* const button = new ChoiceButton(qt(each.title), qt(each.detail), page);
        button->setChecked(start.answer == each.frequency);
        group->addButton(button);
        connect(button, &ChoiceButton::clicked, this, [this, frequency = each.frequency] {
            showAnswerProblem(m_actions.answer(frequency));
            m_startsWithSession->setChecked(OnboardingContent::suggestion(frequency).startsWithSession);
        });
        column->addWidget(button);
    }
    column->addSpacing(points(4));
    column->addWidget(new Hairline(page));
    column->addSpacing(points(6));
    auto* const row = new QHBoxLayout;
    row->addLayout(titleAndDetail(qtr("Start with the session"),
                                  qtr("So that the desk is kept from the first minute"), page),
                   1);
    m_startsWithSession = new Switch(page);
    m_startsWithSession->setAccessibleName(qtr("Start with the session"));
    m_startsWithSession->setChecked(start.startsWithSession);
    connect(m_startsWithSession, &Switch::clicked, this,
            [this](bool isOn) { showAnswerProblem(m_actions.setStartsWithSession(isOn)); });
    row->addWidget(m_startsWithSession);
    column->addLayout(row);
    m_answerProblem = new Label(Label::Role::problem, page);
    m_answerProblem->hide();
    column->addWidget(m_answerProblem);
    column->addStretch(1);
    return page;
}

void OnboardingWindow::showAnswerProblem(const std::optional<std::string>& problem) {
    m_answerProblem->show(qt(problem.value_or("")));
    m_answerProblem->setVisible(problem.has_value());
    fit();
}

QWidget* OnboardingWindow::shortcutsPage() {
    QVBoxLayout* column = nullptr;
    auto* const page = newPage(qtr("Three shortcuts"),
                               qtr("They work in every program. Click one to record other keys."), column);
    column->setSpacing(points(8));
    for (std::size_t i = 0; i < m_actions.shortcuts().size(); ++i) {
        column->addWidget(shortcutRow(i, page));
        column->addWidget(new Hairline(page));
    }
    column->addStretch(1);
    showShortcuts();
    return page;
}

QWidget* OnboardingWindow::shortcutRow(std::size_t index, QWidget* page) {
    const auto shortcut = m_actions.shortcuts()[index];
    auto* const line = new QWidget(page);
    auto* const rows = new QVBoxLayout(line);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(points(2));
    auto* const row = new QHBoxLayout;
    row->setSpacing(points(12));
    row->addWidget(
        new Sign(shortcut.symbol, [](const DeskColors& colors) { return colors.secondText; }, line));
    row->addLayout(titleAndDetail(qt(shortcut.title), qt(shortcut.detail), line), 1);
    ShortcutRow& widgets = m_shortcuts.emplace_back();
    widgets.problem = new Label(Label::Role::problem, line);
    widgets.problem->hide();
    widgets.recorder =
        new HotKeyRecorder(shortcut.surface, HotKeyRecording::Place::settings,
                           {.keyCode = m_actions.keyCode,
                            .taken = m_actions.takenHotKeys,
                            .store =
                                [this, surface = shortcut.surface](std::optional<HotKeyCombo> combo) {
                                    auto problem = m_actions.setHotkey(surface, combo);
                                    showShortcuts();
                                    return problem;
                                },
                            .problem =
                                [label = widgets.problem](const std::string& problem) {
                                    label->show(qt(problem));
                                    label->setVisible(!problem.empty());
                                }},
                           line);
    widgets.recorder->setProminent(true);
    widgets.recorder->setHasKeyCaps(true);
    widgets.recorder->setTitle(qt(shortcut.title));
    row->addWidget(widgets.recorder);
    rows->addLayout(row);
    rows->addWidget(widgets.problem);
    return line;
}

void OnboardingWindow::showShortcuts() {
    const auto shortcuts = m_actions.shortcuts();
    for (std::size_t i = 0; i < m_shortcuts.size(); ++i) {
        m_shortcuts[i].recorder->setShortcut(qt(shortcuts[i].keys));
        m_shortcuts[i].recorder->setRefused(shortcuts[i].isRefused);
        m_shortcuts[i].problem->show(shortcuts[i].isRefused ? qtr("Another program has taken this shortcut.")
                                                            : QString());
        m_shortcuts[i].problem->setVisible(shortcuts[i].isRefused);
    }
}

void OnboardingWindow::showPage(int page) {
    m_pages->setCurrentIndex(page);
    m_dots->setPage(page);
    const bool isLast = page == pageCount - 1;
    // Trays may come at any time, and another program may have let go of a shortcut.
    m_checking.stop();
    if (page == 1) {
        showChecks();
        m_checking.start();
    } else if (isLast) {
        showShortcuts();
    }
    m_back->setTexts(page == 0 ? qtr("Skip") : isLast ? qtr("Not now") : qtr("Back"), "");
    m_forward->setTexts(isLast ? qtr("Save this desk now") : qtr("Continue"), "");
    m_forward->setFocus();
    fit();
}

void OnboardingWindow::fit() {
    const QMargins margins = layout()->contentsMargins();
    const int buttons = m_dots->width() + m_back->sizeHint().width() + m_forward->sizeHint().width();
    const int width =
        std::max({points(450), minimumWidth(), margins.left() + buttons + points(24) + margins.right()});
    int highest = 0;
    for (int i = 0; i < m_pages->count(); ++i) {
        highest = std::max(highest, m_pages->widget(i)->layout()->totalHeightForWidth(width - margins.left() -
                                                                                      margins.right()));
    }
    const int foot = layout()->spacing() + m_forward->sizeHint().height();
    setFixedSize(width, std::max(points(400), margins.top() + highest + foot + margins.bottom()));
}

void OnboardingWindow::forward() {
    if (page() == pageCount - 1) {
        m_actions.save();
        close();
    } else {
        showPage(page() + 1);
    }
}

void OnboardingWindow::back() {
    if (page() == 0 || page() == pageCount - 1) {
        close();
    } else {
        showPage(page() - 1);
    }
}

void OnboardingWindow::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        close();
        break;
    case Qt::Key_PageUp:
        showPage(std::max(0, page() - 1));
        break;
    case Qt::Key_PageDown:
        showPage(std::min(pageCount - 1, page() + 1));
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void OnboardingWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    std::exchange(m_actions.finished, [] {})();
}

} // namespace vantrel
