#include "Vantrel/interface/workbench/scenes/ScenesPage.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "Vantrel/interface/wallpaper/WallpaperPicker.h"
#include "Vantrel/interface/workbench/scenes/SceneDetailView.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

constexpr double railWidth = 236;

bool isItem(const ListRow& row) {
    return row.kind == ListRow::Kind::item;
}

} // namespace

ScenesPage::ScenesPage(ApplicationLooks& looks, ScenesActions actions, QWidget* parent)
    : WorkbenchPage(parent), m_actions(std::move(actions)) {
    auto* const all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    m_side = railSide();
    all->addWidget(m_side);
    all->addSpacing(1);
    m_scroll = new QScrollArea(this);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_detail = new SceneDetailView(looks, m_actions, this);
    m_detail->onWallpapers = [this] { openWallpaperPicker(); };
    m_detail->onMenu = [this](QPoint place) { showMenu(place); };
    m_detail->onEdit = [this] { edit(m_content.detail->id); };
    m_scroll->setWidget(m_detail);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_detail->setAutoFillBackground(false);
    all->addWidget(m_scroll, 1);
    m_empty = emptyHint(looks);
    all->addWidget(m_empty, 1);
}

QWidget* ScenesPage::railSide() {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const side = new QWidget(this);
    side->setFixedWidth(points(railWidth));
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, points(10), 0, points(12));
    column->setSpacing(0);
    const auto inset = [&](QWidget* widget, double margin) {
        auto* const framed = new QHBoxLayout;
        framed->setContentsMargins(points(margin), 0, points(margin), 0);
        framed->addWidget(widget);
        column->addLayout(framed, qobject_cast<QAbstractItemView*>(widget) != nullptr ? 1 : 0);
    };
    m_search = new QLineEdit(side);
    m_search->setPlaceholderText(qtr("Search scenes"));
    m_search->setAccessibleName(qtr("Search scenes"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumHeight(points(30));
    m_search->addAction(Symbols::icon("search", QPalette::Text), QLineEdit::LeadingPosition)
        ->setText(qtr("Search"));
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, [this] { refresh(); });
    inset(m_search, 12);
    column->addSpacing(points(8));
    m_rail = new ListRowsView(nullptr, side);
    m_rail->setAccessibleName(qtr("Scenes"));
    m_rail->installEventFilter(this);
    m_rail->onChosen = [this](const std::string& id) {
        m_chosen = id;
        refresh();
    };
    m_rail->onActivated = [this](const std::string& id) { m_actions.scenes.apply(id); };
    m_rail->onMenu = [this](const std::string& id, QPoint place) {
        m_rail->choose(id);
        m_chosen = id;
        refresh();
        showMenu(place);
    };
    m_rail->setMovable([this](const std::string& id, const std::string& before) { reorder(id, before); });
    inset(m_rail, 8);
    column->addWidget(new Hairline(side));
    column->addSpacing(points(12));
    m_name = new QLineEdit(side);
    m_name->setPlaceholderText(qtr("Save this desk as a scene…"));
    m_name->setAccessibleName(qtr("Save this desk as a scene"));
    m_name->setMinimumHeight(points(30));
    m_name->addAction(Symbols::icon("plus", QPalette::Text), QLineEdit::LeadingPosition)
        ->setText(qtr("New scene"));
    m_name->installEventFilter(this);
    connect(m_name, &QLineEdit::textChanged, this, [this] { nameEdited(); });
    connect(m_name, &QLineEdit::returnPressed, this, [this] { saveScene(); });
    m_createEmpty =
        new SymbolButton("pencil", qtr("Make an empty scene with this name and edit it"), 30, side);
    m_createEmpty->setAutoRaise(false);
    m_createEmpty->setEnabled(false);
    connect(m_createEmpty, &QToolButton::clicked, this, [this] { createEmpty(); });
    auto* const making = new QHBoxLayout;
    making->setContentsMargins(points(12), 0, points(12), 0);
    making->setSpacing(points(6));
    making->addWidget(m_name);
    making->addWidget(m_createEmpty);
    column->addLayout(making);
    m_nameProblem = new Label(Label::Role::problem, side);
    m_nameProblem->setContentsMargins(0, points(4), 0, 0);
    m_nameProblem->hide();
    inset(m_nameProblem, 14);
    m_room = new Label(Label::Role::second, side);
    m_room->setContentsMargins(0, points(4), 0, 0);
    inset(m_room, 14);
    return side;
}

QWidget* ScenesPage::emptyHint(ApplicationLooks& looks) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const hint = new QWidget(this);
    auto* const column = new QVBoxLayout(hint);
    column->setContentsMargins(points(48), points(24), points(48), points(24));
    column->setSpacing(points(8));
    m_emptyDrawing = new DeskView(looks, hint);
    m_emptyDrawing->setHighest(points(260));
    m_emptyTitle = new Label(Label::Role::heading, hint);
    m_emptyText = new Label(Label::Role::text, hint);
    column->addStretch(2);
    column->addWidget(m_emptyDrawing);
    column->addSpacing(points(16));
    column->addWidget(m_emptyTitle);
    column->addWidget(m_emptyText);
    column->addStretch(3);
    return hint;
}

void ScenesPage::show(const PublishedState& state, Topics changed) {
    m_state = &state;
    if (m_editor != nullptr && changed.contains(Topic::live)) {
        m_editor->showApplications(m_actions.applications());
    }
    if (changed.containsAnyOf({Topic::desk, Topic::layouts, Topic::scenes, Topic::history, Topic::settings,
                               Topic::status, Topic::live})) {
        refresh();
    }
}

void ScenesPage::refresh() {
    if (m_state == nullptr) {
        return;
    }
    if (m_chosen.empty()) {
        m_chosen = m_state->lastAppliedSceneID.value_or("");
    }
    ScenesContent::Context context = m_actions.context();
    context.search = m_search->text().toStdString();
    context.chosen = m_chosen;
    auto content = ScenesContent::of(*m_state, context);
    if (content.detail && content.detail->id != m_chosen && context.search.empty()) {
        context.chosen = neighbourOfChosen(content);
        content = ScenesContent::of(*m_state, context);
    }
    m_content = std::move(content);
    m_rail->show(m_content.rail);
    if (m_editor != nullptr) {
        const auto stored = std::ranges::find(m_state->scenes, m_edited, &Scene::id);
        m_editor->storedIsNow(stored == m_state->scenes.end() ? std::nullopt : std::optional(*stored));
    }
    showWallpapers();
    const bool isBrowsing = m_editor == nullptr && m_picker == nullptr;
    m_side->setVisible(isBrowsing);
    m_detail->setVisible(m_content.detail.has_value());
    m_scroll->setVisible(isBrowsing && m_content.detail.has_value());
    m_empty->setVisible(isBrowsing && !m_content.detail.has_value());
    if (m_content.detail) {
        // A search shows the first scene found, and afterwards again the one chosen before.
        if (context.search.empty()) {
            m_chosen = m_content.detail->id;
        }
        m_rail->choose(m_content.detail->id);
        m_detail->show(*m_content.detail);
    } else {
        m_emptyDrawing->setVisible(m_content.isEmpty);
        if (m_content.isEmpty) {
            m_emptyDrawing->show(DeskPicture::ofCurrentDesk(*m_state));
        }
        m_emptyTitle->show(m_content.isEmpty ? qtr("No scenes yet") : qtr("No scene found"));
        m_emptyText->show(m_content.isEmpty
                              ? qtr("A scene is a desk you can call back by name: one for writing, one for "
                                    "meetings. Arrange "
                                    "your windows, type a name below the list, and press Return.")
                              : qtr("Names of scenes and of their apps are searched."));
    }
    m_name->setEnabled(m_content.canSave);
    m_createEmpty->setVisible(m_content.canSave);
    m_room->show(qt(m_content.room));
    m_room->setVisible(!m_content.room.empty());
}

void ScenesPage::edit(const std::string& id) {
    if (m_editor != nullptr) {
        return;
    }
    if (m_picker != nullptr) {
        closeWallpaperPicker();
    }
    m_editor = m_actions.edit(id, [this] { leaveEditor(); }, this);
    if (m_editor == nullptr) {
        return;
    }
    m_edited = id;
    m_chosen = id;
    qobject_cast<QHBoxLayout*>(layout())->addWidget(m_editor, 1);
    refresh();
    onWholeWindow();
    m_editor->canvas().setFocus(Qt::OtherFocusReason);
}

// Called by the editor, which is deleted when it has returned.
void ScenesPage::leaveEditor() {
    m_editor->hide();
    std::exchange(m_editor, nullptr)->deleteLater();
    refresh();
    onWholeWindow();
    focusFirst();
}

void ScenesPage::openWallpaperPicker() {
    if (!m_content.detail || m_picker != nullptr || m_editor != nullptr) {
        return;
    }
    m_pickerScene = m_content.detail->id;
    m_picker = new WallpaperPicker(m_actions.wallpapers, this);
    m_picker->onChosen = [this](const auto& displays, const auto& file) {
        m_actions.setWallpaper(m_pickerScene, displays, file);
    };
    m_picker->onDone = [this] { closeWallpaperPicker(); };
    qobject_cast<QHBoxLayout*>(layout())->addWidget(m_picker, 1);
    refresh();
    m_picker->QWidget::show();
    m_picker->displays().setFocus(Qt::OtherFocusReason);
}

// Follows the scene while the picker is open, and closes it when another scene is shown.
void ScenesPage::showWallpapers() {
    if (m_picker == nullptr) {
        return;
    }
    const auto scene = std::ranges::find(m_state->scenes, m_pickerScene, &Scene::id);
    if (scene == m_state->scenes.end() || !m_content.detail || m_content.detail->id != m_pickerScene) {
        closeWallpaperPicker();
        return;
    }
    m_picker->show({.scene = scene->name,
                    .displays = scene->layout.displays,
                    .wallpaper = scene->wallpaper.value_or(SceneWallpaper{})});
}

void ScenesPage::closeWallpaperPicker() {
    const bool hadFocus = m_picker->isAncestorOf(focusWidget());
    // One of its own events may be closing it.
    m_picker->hide();
    m_picker->deleteLater();
    m_picker = nullptr;
    m_side->show();
    m_scroll->setVisible(m_content.detail.has_value());
    if (hadFocus) {
        m_detail->wallpaperButton().setFocus(Qt::OtherFocusReason);
    }
}

std::string ScenesPage::neighbourOfChosen(const ScenesContent& content) const {
    const auto& before = m_content.rail;
    const auto old = std::ranges::find(before, m_chosen, &ListRow::id);
    if (old == before.end()) {
        return "";
    }
    auto index = std::count_if(before.begin(), old, isItem);
    std::string last;
    for (const ListRow& row : content.rail) {
        if (isItem(row)) {
            last = row.id;
            if (index-- == 0) {
                break;
            }
        }
    }
    return last;
}

// A search hides scenes, so positions in the rail say nothing then.
void ScenesPage::reorder(const std::string& id, const std::string& before) {
    const auto& rail = m_content.rail;
    const auto moved = std::ranges::find(rail, id, &ListRow::id);
    if (moved == rail.end() || !m_search->text().isEmpty()) {
        return;
    }
    const auto first = std::find_if_not(std::make_reverse_iterator(moved), rail.rend(), isItem).base();
    const auto last = std::find_if_not(moved, rail.end(), isItem);
    const auto target = std::ranges::find(rail, before, &ListRow::id);
    // Above its desk's scenes means first, below them last.
    auto position = std::clamp(target, first, last) - first;
    position -= target > moved ? 1 : 0;
    m_actions.scenes.move(id, static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, position)));
}

void ScenesPage::focusSearch() {
    if (m_editor != nullptr) {
        m_editor->focusSearch();
    } else {
        WorkbenchPage::focusSearch();
    }
}

void ScenesPage::focusFirst() {
    if (m_editor != nullptr) {
        m_editor->canvas().setFocus(Qt::OtherFocusReason);
        return;
    }
    if (m_picker != nullptr) {
        m_picker->displays().setFocus(Qt::OtherFocusReason);
        return;
    }
    QWidget* const first = m_content.rail.empty() ? static_cast<QWidget*>(m_name) : m_rail;
    first->setFocus(Qt::OtherFocusReason);
}

std::vector<std::pair<QString, QString>> ScenesPage::keys() const {
    const auto native = [](QKeyCombination keys) {
        return QKeySequence(keys).toString(QKeySequence::NativeText);
    };
    if (m_editor != nullptr) {
        return {
            {qtr("Tab"), qtr("Walk the windows")},
            {qtr("Arrows"), qtr("Move by 1 point, with Shift by 10")},
            {native(Qt::CTRL | Qt::Key_Right) + "…", qtr("Resize")},
            {qtr("Page Up, Page Down"), qtr("Bring forward, send backward")},
            {native(Qt::CTRL | Qt::Key_D), qtr("Duplicate")},
            {native(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), qtr("Redo the change")},
            {native(Qt::CTRL | Qt::Key_S), qtr("Save")},
        };
    }
    return {
        {qtr("Return"), qtr("Apply the scene")},
        {qtr("F2"), qtr("Rename the scene")},
        {qtr("Delete"), qtr("Delete the scene")},
        {native(Qt::ALT | Qt::Key_Up) + ", " + native(Qt::ALT | Qt::Key_Down),
         qtr("Move the scene up or down")},
    };
}

void ScenesPage::nameEdited() {
    const std::string name = m_name->text().trimmed().toStdString();
    const auto problem = name.empty() ? std::nullopt : m_actions.scenes.problemWithName(name);
    m_nameProblem->show(qt(problem.value_or("")));
    m_nameProblem->setVisible(problem.has_value());
    m_createEmpty->setEnabled(!name.empty() && !problem);
}

void ScenesPage::createEmpty() {
    if (const auto id = m_actions.createEmpty(m_name->text().trimmed().toStdString())) {
        m_name->clear();
        edit(*id);
    }
}

void ScenesPage::saveScene() {
    const std::string name = m_name->text().trimmed().toStdString();
    if (!name.empty() && !m_actions.scenes.problemWithName(name)) {
        m_actions.scenes.save(name);
        m_name->clear();
    }
}

void ScenesPage::remove() {
    if (m_content.detail && m_content.detail->remove.isPossible) {
        m_actions.scenes.remove(m_content.detail->id);
    }
}

void ScenesPage::showMenu(QPoint place) {
    if (!m_content.detail) {
        return;
    }
    // A copy, as the menu stays open while the state changes.
    const auto detail = *m_content.detail;
    QMenu menu(this);
    menu.setToolTipsVisible(true);
    const auto add = [&](const QString& text, const ScenesContent::Deed& deed, const auto& act) {
        QAction* const action = menu.addAction(text, this, act);
        action->setEnabled(deed.isPossible);
        action->setToolTip(qt(deed.reason));
    };
    add(qtr("&Apply"), detail.apply, [this, detail] { m_actions.scenes.apply(detail.id); });
    add(qtr("Update to the desk as &it is"), detail.update,
        [this, detail] { m_actions.scenes.update(detail.id); });
    add(qtr("&Edit"), {}, [this, detail] { edit(detail.id); });
    add(qtr("&Rename"), {}, [this] { m_detail->startRenaming(); });
    add(qtr("D&uplicate"), {}, [this, detail] { m_actions.scenes.duplicate(detail.id); });
    menu.addSeparator();
    add(qtr("&Delete"), detail.remove, [this, detail] { m_actions.scenes.remove(detail.id); });
    menu.exec(place);
}

bool ScenesPage::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return WorkbenchPage::eventFilter(object, event);
    }
    const int key = static_cast<QKeyEvent*>(event)->key();
    auto* const field = object == m_search || object == m_name ? static_cast<QLineEdit*>(object) : nullptr;
    if (field != nullptr && key == Qt::Key_Escape && !field->text().isEmpty()) {
        field->clear();
        return true;
    }
    if (object == m_search && (key == Qt::Key_Down || key == Qt::Key_Return)) {
        m_rail->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (object == m_rail && key == Qt::Key_F2 && m_content.detail) {
        m_detail->startRenaming();
        return true;
    }
    if (object == m_rail && key == Qt::Key_Delete) {
        remove();
        return true;
    }
    return WorkbenchPage::eventFilter(object, event);
}

void ScenesPage::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.base);
    if (m_editor != nullptr || m_picker != nullptr) {
        return;
    }
    const QRect line(Metrics::points(*this, railWidth), 0, 1, height());
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), line), colors.hairline);
}

} // namespace vantrel
