#include "Vantrel/interface/workbench/WorkbenchWindow.h"

#include "Vantrel/controller/WorkbenchTabs.h"
#include "Vantrel/interface/PhaseIcon.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"

#include <QAction>
#include <QCloseEvent>
#include <QGridLayout>
#include <QPainter>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace vantrel {

namespace {

constexpr double sidebarWidth = 164;
constexpr double leastWidth = 740;
constexpr double leastHeight = 420;

constexpr QKeyCombination findKey = Qt::CTRL | Qt::Key_F;
constexpr QKeyCombination undoKey = Qt::CTRL | Qt::Key_Z;
constexpr QKeyCombination closeKey = Qt::CTRL | Qt::Key_W;
constexpr Qt::Key helpKey = Qt::Key_F1;

struct TabFacts {
    WorkbenchTab tab;
    const char* title;
    const char* symbol;
};

constexpr std::array tabs{
    TabFacts{WorkbenchTab::scenes, marked("Scenes"), "scenes"},
    TabFacts{WorkbenchTab::desks, marked("Desks"), "monitor"},
    TabFacts{WorkbenchTab::history, marked("History"), "clock"},
    TabFacts{WorkbenchTab::rules, marked("Rules"), "rules"},
    TabFacts{WorkbenchTab::settings, marked("Settings"), "gear"},
};

const TabFacts& factsOf(WorkbenchTab tab) {
    return *std::ranges::find(tabs, tab, &TabFacts::tab);
}

Topics everyTopic() {
    Topics all;
    for (std::size_t i = 0; i < topicCount; ++i) {
        all.add(static_cast<Topic>(i));
    }
    return all;
}

void add(Topics& topics, Topics more) {
    for (std::size_t i = 0; i < topicCount; ++i) {
        if (const auto topic = static_cast<Topic>(i); more.contains(topic)) {
            topics.add(topic);
        }
    }
}

} // namespace

// "9 windows kept", and of which desk.
class WorkbenchWindow::KeptLine final : public QWidget {
public:
    explicit KeptLine(QWidget* parent) : QWidget(parent) {
        auto* const row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(0);
        row->addSpacing(Metrics::points(*this, symbolSide + 10));
        auto* const texts = new QVBoxLayout;
        texts->setSpacing(0);
        m_count = new Label(Label::Role::strong, this);
        m_desk = new Label(Label::Role::second, this);
        for (Label* const label : {m_count, m_desk}) {
            label->setElided(true);
            texts->addWidget(label);
        }
        row->addLayout(texts, 1);
    }

    void show(const PublishedState& state) {
        m_phase = state.phase;
        const auto learned = state.windowsLearned();
        m_count->show(learned ? qt(trn("{} window kept", "{} windows kept", *learned))
                              : qtr("Nothing kept yet"));
        m_desk->show(state.configID.empty() ? qtr("No desk") : qt(state.deskName()));
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const int side = Metrics::points(*this, symbolSide);
        const QRect place =
            QStyle::visualRect(layoutDirection(), rect(), QRect(0, (height() - side) / 2, side, side));
        QPainter painter(this);
        PhaseIcon::icon(m_phase, PhaseIcon::toneOfDesktop()).paint(&painter, place);
    }

private:
    static constexpr double symbolSide = 20;

    Phase m_phase;
    Label* m_count = nullptr;
    Label* m_desk = nullptr;
};

WorkbenchWindow::WorkbenchWindow() : QWidget(nullptr, Qt::Window) {
    setWindowTitle("Vantrel");
    setMinimumSize(points(leastWidth), points(leastHeight));
    auto* const all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    m_sidebar = sidebar();
    all->addWidget(m_sidebar);
    auto* const content = new QVBoxLayout;
    content->setSpacing(0);
    m_pages = new QStackedWidget(this);
    m_notices = new NoticeBar(this);
    content->addWidget(m_pages, 1);
    content->addWidget(m_notices);
    all->addLayout(content, 1);
    addKeys();
}

int WorkbenchWindow::points(double length) const {
    return Metrics::points(*this, length);
}

QSize WorkbenchWindow::usualSize() const {
    return {points(1180), points(688)};
}

QWidget* WorkbenchWindow::sidebar() {
    auto* const side = new QWidget(this);
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(points(10), points(10), points(10), points(16));
    m_tabs = new ListRowsView(nullptr, side);
    m_tabs->setAccessibleName(qtr("Tabs"));
    m_tabs->delegate().setHasStrongSelection(true);
    m_tabs->onChosen = [this](const std::string& id) {
        if (const auto tab = WorkbenchTabs::named(id)) {
            choose(*tab);
        }
    };
    m_kept = new KeptLine(side);
    auto* const kept = new QHBoxLayout;
    kept->setContentsMargins(points(6), 0, 0, 0);
    kept->addWidget(m_kept);
    column->addWidget(m_tabs, 1);
    column->addLayout(kept);
    side->setFixedWidth(points(sidebarWidth) + 1);
    return side;
}

void WorkbenchWindow::addKeys() {
    const auto on = [this](const QKeySequence& keys, const std::function<void()>& act) {
        auto* const shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        on(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + i)), [this, i] {
            if (i < m_entries.size()) {
                choose(m_entries[i].tab);
            }
        });
    }
    // Not the standard keys, which depend on the desktop.
    on(findKey, [this] {
        if (page() != nullptr) {
            page()->focusSearch();
        }
    });
    // A button would take many presses of Tab to reach.
    on(undoKey, [this] { m_notices->undo(); });
    on(closeKey, [this] { close(); });
    on(helpKey, [this] { toggleHelp(); });
}

void WorkbenchWindow::add(WorkbenchTab tab, MakePage make) {
    m_entries.push_back({.tab = tab, .make = std::move(make)});
    std::vector<ListRow> rows;
    for (const Entry& entry : m_entries) {
        const TabFacts& facts = factsOf(entry.tab);
        rows.push_back({.id = std::string(WorkbenchTabs::name(entry.tab)),
                        .title = vantrel::tr(facts.title),
                        .symbol = facts.symbol});
    }
    m_tabs->show(rows);
}

const WorkbenchWindow::Entry* WorkbenchWindow::entryOf(WorkbenchTab tab) const {
    const auto found = std::ranges::find(m_entries, tab, &Entry::tab);
    return found == m_entries.end() ? nullptr : &*found;
}

WorkbenchWindow::Entry* WorkbenchWindow::entryOf(WorkbenchTab tab) {
    const auto found = std::ranges::find(m_entries, tab, &Entry::tab);
    return found == m_entries.end() ? nullptr : &*found;
}

WorkbenchPage* WorkbenchWindow::page() const {
    const Entry* const entry = m_hasTab ? entryOf(m_tab) : nullptr;
    return entry != nullptr ? entry->page : nullptr;
}

void WorkbenchWindow::show(const PublishedState& state, Topics changed) {
    m_state = &state;
    m_kept->show(state);
    for (Entry& entry : m_entries) {
        vantrel::add(entry.missed, changed);
    }
    if (Entry* const entry = m_hasTab ? entryOf(m_tab) : nullptr) {
        showPage(*entry);
    }
}

void WorkbenchWindow::choose(WorkbenchTab tab) {
    Entry* const entry = entryOf(tab);
    if (entry == nullptr || (m_hasTab && tab == m_tab)) {
        return;
    }
    m_hasTab = true;
    m_tab = tab;
    m_tabs->choose(std::string(WorkbenchTabs::name(tab)));
    if (m_state == nullptr) {
        return;
    }
    showPage(*entry);
    // While the user moves through the tabs with the arrow keys, the focus stays in the sidebar.
    if (!m_tabs->hasFocus()) {
        entry->page->focusFirst();
    }
    onSeenChanged();
}

void WorkbenchWindow::showPage(Entry& entry) {
    if (entry.page == nullptr) {
        entry.page = entry.make(this);
        entry.page->onWholeWindow = [this] { makeRoom(); };
        entry.missed = everyTopic();
        m_pages->addWidget(entry.page);
    }
    entry.page->show(*m_state, std::exchange(entry.missed, {}));
    m_pages->setCurrentWidget(entry.page);
    makeRoom();
}

void WorkbenchWindow::makeRoom() {
    m_sidebar->setVisible(page() == nullptr || !page()->wantsWholeWindow());
    update();
}

void WorkbenchWindow::toggleHelp() {
    if (m_help != nullptr) {
        m_help->close();
        return;
    }
    m_help = new QWidget(this, Qt::Popup);
    m_help->setAttribute(Qt::WA_DeleteOnClose);
    m_help->setAccessibleName(qtr("Keys"));
    connect(m_help, &QObject::destroyed, this, [this] { m_help = nullptr; });
    auto* const grid = new QGridLayout(m_help);
    grid->setContentsMargins(points(16), points(14), points(20), points(16));
    grid->setHorizontalSpacing(points(20));
    grid->setVerticalSpacing(points(4));
    const auto text = [](const QKeySequence& key) { return key.toString(QKeySequence::NativeText); };
    std::vector<std::pair<QString, QString>> keys{
        {text(Qt::CTRL | Qt::Key_1) + "…" + QString::number(m_entries.size()), qtr("Show a tab")},
        {text(findKey), qtr("Search in this tab")},
    };
    for (const auto& key : page() != nullptr ? page()->keys() : decltype(keys)()) {
        keys.push_back(key);
    }
    keys.emplace_back(text(undoKey), qtr("Undo the deletion"));
    keys.emplace_back(text(closeKey), qtr("Close the window"));
    for (const auto& [key, deed] : keys) {
        const int row = grid->rowCount();
        auto* const left = new Label(Label::Role::strong, m_help);
        left->setElided(true);
        left->show(key);
        auto* const right = new Label(Label::Role::text, m_help);
        right->setElided(true);
        right->show(deed);
        grid->addWidget(left, row, 0);
        grid->addWidget(right, row, 1);
    }
    m_help->adjustSize();
    m_help->move(mapToGlobal(rect().center()) - m_help->rect().center());
    m_help->show();
    // An open popup receives all keys, so it needs its own shortcut for closing.
    auto* const again = new QShortcut(helpKey, m_help);
    connect(again, &QShortcut::activated, m_help, &QWidget::close);
}

void WorkbenchWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        onSeenChanged();
    }
}

void WorkbenchWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    // Saves what is being edited.
    if (QWidget* const focus = focusWidget()) {
        focus->clearFocus();
    }
    std::exchange(onClosed, [] {})();
}

void WorkbenchWindow::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.window);
    if (m_sidebar->isHidden()) {
        return;
    }
    const int at = points(sidebarWidth);
    const QRect line(at, 0, 1, height());
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), line), colors.hairline);
}

} // namespace vantrel
