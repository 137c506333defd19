#include "Vantrel/interface/workbench/desks/DesksPage.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "Vantrel/interface/workbench/desks/DeskDetailView.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel {

namespace {

constexpr double margin = 24;
constexpr double halfGap = 8;
constexpr double cardHeight = 232;
constexpr double leastCardWidth = 270;

} // namespace

DesksPage::DesksPage(ApplicationLooks& looks, DesksActions actions, QWidget* parent)
    : WorkbenchPage(parent), m_looks(looks), m_actions(std::move(actions)) {
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(header());
    m_scroll = new QScrollArea(this);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_body = body();
    m_scroll->setWidget(m_body);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_body->setAutoFillBackground(false);
    all->addWidget(m_scroll, 1);
}

int DesksPage::points(double length) const {
    return Metrics::points(*this, length);
}

QWidget* DesksPage::header() {
    auto* const widget = new QWidget(this);
    auto* const row = new QHBoxLayout(widget);
    row->setContentsMargins(points(margin), points(16), points(margin), points(12));
    auto* const title = new Label(Label::Role::title, widget);
    title->show(qtr("Desks"));
    m_search = new QLineEdit(widget);
    m_search->setPlaceholderText(qtr("Search desks"));
    m_search->setAccessibleName(qtr("Search desks"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumHeight(points(30));
    m_search->setFixedWidth(points(256));
    m_search->addAction(Symbols::icon("search", QPalette::Text), QLineEdit::LeadingPosition)
        ->setText(qtr("Search"));
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, [this] { refresh(); });
    row->addWidget(title, 1);
    row->addWidget(m_search);
    return widget;
}

QWidget* DesksPage::body() {
    auto* const widget = new QWidget(this);
    auto* const column = new QVBoxLayout(widget);
    // The cards have half of the gap between them around them.
    column->setContentsMargins(points(margin - halfGap), 0, points(margin - halfGap), points(margin));
    column->setSpacing(points(8));
    m_detail = new DeskDetailView(m_looks, m_actions, widget);
    m_detail->onLayout = [this](const std::string& layout) {
        m_layout = layout;
        refresh();
    };
    m_detail->onInPlace = [this] {
        m_showsInPlace = !m_showsInPlace;
        refresh();
    };
    m_empty = new Label(Label::Role::text, widget);
    for (QWidget* const part : {static_cast<QWidget*>(m_detail), static_cast<QWidget*>(m_empty)}) {
        auto* const inset = new QHBoxLayout;
        inset->setContentsMargins(points(halfGap), 0, points(halfGap), 0);
        inset->addWidget(part);
        column->addLayout(inset);
    }
    m_cards = new ListRowsView(nullptr, widget);
    m_cards->setAccessibleName(qtr("Remembered desks"));
    m_delegate = new DeskCardDelegate(
        m_looks, [this](const std::string& configID) { return drawing(configID); }, m_cards);
    m_cards->setItemDelegate(m_delegate);
    m_cards->setViewMode(QListView::IconMode);
    m_cards->setMovement(QListView::Static);
    m_cards->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_cards->installEventFilter(this);
    m_cards->onChosen = [this](const std::string& id) {
        m_chosen = id;
        m_layout.clear();
        m_showsInPlace = false;
        refresh();
    };
    m_cards->onActivated = [this](const std::string& /*id*/) { m_scroll->verticalScrollBar()->setValue(0); };
    m_cards->onMenu = [this](const std::string& id, QPoint place) {
        m_cards->choose(id);
        m_cards->onChosen(id);
        m_detail->showMenu(place);
    };
    column->addWidget(m_cards);
    column->addStretch(1);
    return widget;
}

DeskPicture DesksPage::drawing(const std::string& configID) const {
    const auto desk = std::ranges::find(m_state->desks, configID, &RememberedDesk::configID);
    if (desk == m_state->desks.end()) {
        return {};
    }
    const auto* const shown = desk->shownLayout();
    const Layout* const layout = shown != nullptr ? m_library.layout(configID, shown->name) : nullptr;
    if (layout == nullptr) {
        return {.displays = desk->displays, .windows = {}};
    }
    return DeskPicture::ofLayout(*layout);
}

void DesksPage::show(const PublishedState& state, Topics changed) {
    m_state = &state;
    if (changed.containsAnyOf({Topic::desks, Topic::layouts})) {
        m_library = DeskLibrary(m_actions.layouts());
        m_delegate->forget();
        m_cards->viewport()->update();
    }
    if (changed.containsAnyOf({Topic::desk, Topic::desks, Topic::layouts, Topic::live})) {
        m_asksAgain = true;
    }
    if (changed.containsAnyOf({Topic::desk, Topic::desks, Topic::layouts, Topic::stashes, Topic::history,
                               Topic::settings, Topic::status, Topic::live})) {
        refresh();
    }
}

void DesksPage::refresh() {
    if (m_state == nullptr) {
        return;
    }
    const auto content = [this] {
        return DesksContent::of(*m_state, {.now = m_actions.now(),
                                           .zone = m_actions.zone(),
                                           .library = m_library,
                                           .search = m_search->text().toStdString(),
                                           .chosen = m_chosen,
                                           .layout = m_layout,
                                           .preview = m_preview,
                                           .showsInPlace = m_showsInPlace});
    };
    m_content = content();
    if (m_content.detail) {
        const std::pair shown(m_content.detail->configID, m_content.detail->layout);
        if (shown != m_previewed) {
            m_previewed = shown;
            m_preview.reset();
            m_asksAgain = true;
            m_content = content();
        }
    }
    m_cards->show(m_content.cards);
    m_detail->setVisible(m_content.detail.has_value());
    m_empty->setVisible(!m_content.detail.has_value());
    if (m_content.detail) {
        m_cards->choose(m_content.detail->configID);
        m_detail->show(*m_content.detail, m_showsInPlace);
        askForPreview();
    } else {
        m_empty->show(m_content.isEmpty
                          ? qtr("No desk is remembered yet. A desk is a set of displays with the "
                                "windows on them.")
                          : qtr("No desk found. Names of desks, of layouts and of apps are "
                                "searched."));
    }
    // With one desk, its card would say the same as what is above it.
    m_cards->setVisible(m_content.cards.size() > 1 || !m_search->text().isEmpty());
    placeCards();
}

// One at a time; each reads the desk.
void DesksPage::askForPreview() {
    if (m_isAsking || !m_asksAgain || m_content.detail->isEmpty) {
        return;
    }
    m_isAsking = true;
    m_asksAgain = false;
    m_actions.preview(m_previewed.first, m_previewed.second,
                      [this, alive = std::weak_ptr(m_alive), asked = m_previewed](const auto& result) {
                          if (alive.expired()) {
                              return;
                          }
                          m_isAsking = false;
                          if (asked == m_previewed) {
                              m_preview = result;
                          } else {
                              m_asksAgain = true;
                          }
                          refresh();
                      });
}

void DesksPage::placeCards() {
    const int room = m_body->width() - 2 * points(margin - halfGap);
    const int columns = std::max(1, room / points(leastCardWidth));
    const QSize size(std::max(1, room / columns), points(cardHeight));
    m_delegate->setCardSize(size);
    if (m_cards->gridSize() != size) {
        m_cards->setGridSize(size);
    }
    const auto count = static_cast<int>(m_content.cards.size());
    m_cards->setFixedHeight((count + columns - 1) / columns * size.height());
}

void DesksPage::focusFirst() {
    QWidget* const first = m_cards->isHidden() ? static_cast<QWidget*>(m_search) : m_cards;
    first->setFocus(Qt::OtherFocusReason);
}

std::vector<std::pair<QString, QString>> DesksPage::keys() const {
    return {{qtr("F2"), qtr("Rename the desk")}, {qtr("Delete"), qtr("Forget the desk")}};
}

bool DesksPage::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (object == m_search && key == Qt::Key_Escape && !m_search->text().isEmpty()) {
            m_search->clear();
            return true;
        }
        if (object == m_search && (key == Qt::Key_Down || key == Qt::Key_Return)) {
            m_cards->setFocus(Qt::TabFocusReason);
            return true;
        }
        if (object == m_cards && m_content.detail && !m_content.detail->isEmpty) {
            if (key == Qt::Key_F2) {
                m_detail->startRenaming();
                return true;
            }
            if (key == Qt::Key_Delete) {
                m_actions.forget(m_content.detail->configID);
                return true;
            }
        }
    }
    if (object == m_cards && event->type() == QEvent::Resize) {
        placeCards();
    }
    return WorkbenchPage::eventFilter(object, event);
}

void DesksPage::changeEvent(QEvent* event) {
    WorkbenchPage::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        m_delegate->forget();
    }
}

void DesksPage::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), DeskColors::of(palette()).window);
}

} // namespace vantrel
