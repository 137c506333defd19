#include "Vantrel/interface/editor/SceneEditor.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "VantrelCore/studio/TakenFromDesk.h"
#include "VantrelCore/windows/GhostPlacement.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr double listWidth = 212;
constexpr double inspectorWidth = 274;

bool isEditorKey(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::ControlModifier) &&
           (event.key() == Qt::Key_Z || event.key() == Qt::Key_S);
}

} // namespace

SceneEditor::SceneEditor(ApplicationLooks& looks, Start start, SceneEditorActions actions, QWidget* parent)
    : QWidget(parent), m_actions(std::move(actions)), m_limits(std::move(start.limits)),
      m_applications(std::move(start.applications)),
      m_draft(start.draft ? std::make_unique<SceneDraft>(std::move(*start.draft))
                          : std::make_unique<SceneDraft>(std::move(start.scene), m_limits)) {
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    m_toolbar = new EditorToolbar(toolbarActions(), this);
    all->addWidget(m_toolbar);
    all->addWidget(new Hairline(this));
    m_work = new QWidget(this);
    auto* const middle = new QHBoxLayout(m_work);
    middle->setContentsMargins(0, 0, 0, 0);
    middle->setSpacing(1);
    m_applicationSide = applicationSide(looks);
    middle->addWidget(m_applicationSide);
    auto* const centre = new QVBoxLayout;
    centre->setSpacing(0);
    auto* const framed = new QVBoxLayout;
    framed->setContentsMargins(points(16), points(16), points(16), points(16));
    m_canvas = new EditorCanvas(looks, this);
    framed->addWidget(m_canvas);
    m_foot = new EditorFoot(this);
    centre->addLayout(framed, 1);
    centre->addWidget(new Hairline(this));
    centre->addWidget(m_foot);
    middle->addLayout(centre, 1);
    m_inspectorSide = inspectorSide(looks);
    middle->addWidget(m_inspectorSide);
    all->addWidget(m_work, 1);
    connectCanvas();
    m_canvas->show(*m_draft, isReadOnly());
    showFoundApplications();
    refresh();
    if (m_draft->isDirty()) {
        showFoot(qtr("Your changes are as you left them."));
    }
}

SceneEditor::~SceneEditor() {
    // The canvas refers to the draft.
    delete m_canvas;
    if (!m_isSettled && m_draft->isDirty()) {
        m_actions.kept(std::move(*m_draft));
    }
}

int SceneEditor::points(double length) const {
    return Metrics::points(*this, length);
}

void SceneEditor::connectCanvas() {
    m_canvas->onChanged = [this] {
        m_inspector->show(*m_draft, m_canvas->selection(), isReadOnly());
        showToolbar();
        showFoot();
    };
    m_canvas->onDragged = [this] {
        if (const auto frame = m_canvas->draggedFrame()) {
            m_inspector->showFrame(*frame);
        } else if (!m_canvas->isDragging()) {
            m_inspector->show(*m_draft, m_canvas->selection(), isReadOnly());
        }
        showFoot();
    };
    m_canvas->onCommand = [this](const SceneDraft::Command& command) { return apply(command); };
    m_canvas->onUndo = [this] { undo(); };
    m_canvas->onRedo = [this] { redo(); };
    m_canvas->newSlot = [this](const std::string& bundleID) { return newSlot(bundleID); };
    m_inspector->onWallpapers = [this] { openWallpapers(); };
    m_inspector->onCommand = [this](const SceneDraft::Command& command) { apply(command); };
}

EditorToolbar::Actions SceneEditor::toolbarActions() {
    return {.back = [this] { m_actions.close(); },
            .undo = [this] { undo(); },
            .redo = [this] { redo(); },
            .takeAll = [this] { takeAll(); },
            .takeSelected = [this] { takeSelected(); },
            .tryOrGoBack = [this] { tryOrGoBack(); },
            .discard = [this] { discard(); },
            .save = [this] { save(); },
            .problemWithName = [this](const std::string& name) { return m_actions.problemWithName(name); },
            .saveAsNew =
                [this](const std::string& name) {
                    auto problem = m_actions.saveAsNew(m_draft->scene(), name);
                    if (!problem) {
                        m_isSettled = true;
                        m_actions.close();
                    }
                    return problem;
                }};
}

QWidget* SceneEditor::applicationSide(ApplicationLooks& looks) {
    auto* const side = new QWidget(this);
    side->setFixedWidth(points(listWidth));
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(points(12), points(12), points(6), points(12));
    column->setSpacing(points(6));
    m_search = new QLineEdit(side);
    m_search->setPlaceholderText(qtr("Search apps"));
    m_search->setAccessibleName(qtr("Search apps"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumHeight(points(30));
    m_search->addAction(Symbols::icon("search", QPalette::Text), QLineEdit::LeadingPosition)
        ->setText(qtr("Search"));
    connect(m_search, &QLineEdit::textChanged, this, [this] { showFoundApplications(); });
    m_list = new ListRowsView(&looks, side);
    m_list->setAccessibleName(qtr("Apps"));
    m_list->setSource();
    m_list->onActivated = [this](const std::string& bundleID) { addSlot(bundleID); };
    auto* const hint = new Label(Label::Role::second, side);
    hint->show(qtr("Drag an app onto a display, or press Return, to keep a place for it."));
    column->addWidget(m_search);
    column->addWidget(m_list, 1);
    column->addWidget(hint);
    return side;
}

QWidget* SceneEditor::inspectorSide(ApplicationLooks& looks) {
    auto* const scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFixedWidth(points(inspectorWidth));
    scroll->setFocusPolicy(Qt::NoFocus);
    m_inspector = new EditorInspector(looks, m_actions.wallpapers.thumbnails, scroll);
    scroll->setWidget(m_inspector);
    scroll->viewport()->setAutoFillBackground(false);
    m_inspector->setAutoFillBackground(false);
    return scroll;
}

std::vector<SceneDraft::BoxID> SceneEditor::apply(const SceneDraft::Command& command) {
    if (isReadOnly()) {
        return {};
    }
    auto added = m_draft->apply(command);
    refresh();
    return added;
}

void SceneEditor::undo() {
    m_draft->undo();
    refresh();
}

void SceneEditor::redo() {
    m_draft->redo();
    refresh();
}

WindowRecord SceneEditor::newSlot(const std::string& bundleID) const {
    const auto known = std::ranges::find(m_applications, bundleID, &EditorApplication::bundleID);
    WindowRecord slot;
    if (known == m_applications.end()) {
        return slot;
    }
    slot.bundleID = known->bundleID;
    slot.appName = known->name;
    slot.isGhost = true;
    std::vector<Rect> taken;
    std::ranges::transform(m_draft->boxes(), std::back_inserter(taken),
                           [](const SceneDraft::Box& box) { return box.record.frame; });
    if (const auto display = GhostPlacement::largestDisplay(m_draft->displays())) {
        slot.frame = GhostPlacement::defaultFrame(*display, taken);
    }
    return slot;
}

void SceneEditor::addSlot(const std::string& bundleID) {
    const WindowRecord slot = newSlot(bundleID);
    if (slot.frame.isEmpty() || isReadOnly()) {
        return;
    }
    const auto added = apply(SceneDraft::Add{{slot}});
    m_canvas->select({added.begin(), added.end()});
    m_canvas->setFocus(Qt::OtherFocusReason);
}

// The editor may be gone when a capture ends.
void SceneEditor::takeAll() {
    m_actions.captureDesk([self = QPointer(this)](const SceneEditorActions::Captured& windows) {
        if (self == nullptr) {
            return;
        }
        if (!windows) {
            self->showFoot(qt(windows.error()), EditorFoot::Tone::warning);
            return;
        }
        self->apply(SceneDraft::Replace{TakenFromDesk::all(*self->m_draft, *windows)});
        self->showFoot(qtr("The scene has the windows of the desk. Undo brings the former ones back."));
    });
}

void SceneEditor::takeSelected() {
    m_actions.captureDesk([self = QPointer(this),
                           selection = m_canvas->selection()](const SceneEditorActions::Captured& windows) {
        if (self == nullptr) {
            return;
        }
        if (!windows) {
            self->showFoot(qt(windows.error()), EditorFoot::Tone::warning);
            return;
        }
        const auto frames = TakenFromDesk::frames(*self->m_draft, selection, *windows);
        const auto missing = std::ssize(selection) - std::ssize(frames);
        self->apply(SceneDraft::Place{frames});
        if (missing > 0) {
            self->showFoot(
                qt(trn("{} window of the scene is not open now and stays where it is.",
                       "{} windows of the scene are not open now and stay where they are.", missing)),
                EditorFoot::Tone::warning);
        }
    });
}

void SceneEditor::tryOrGoBack() {
    if (std::exchange(m_isTrying, false)) {
        m_actions.goBack();
    } else {
        m_isTrying = m_actions.tryOut(m_draft->scene());
    }
    showToolbar();
    showFoot(m_isTrying ? qtr("Your windows are placed like this scene. Go back puts them where they were.")
                        : QString());
}

void SceneEditor::save() {
    const Scene edited = m_draft->scene();
    const auto problem = m_actions.save(edited);
    if (!problem) {
        m_draft->saved(edited);
    }
    refresh();
    showFoot(problem ? qt(*problem) : qtr("The scene was saved."),
             problem ? EditorFoot::Tone::warning : EditorFoot::Tone::plain);
}

void SceneEditor::discard() {
    if (std::exchange(m_isTrying, false)) {
        m_actions.goBack();
    }
    m_isSettled = true;
    if (m_draft->isDirty()) {
        m_actions.discarded(*m_draft);
    }
    m_actions.close();
}

void SceneEditor::replaceDraft(const Scene& stored) {
    auto former = std::exchange(m_draft, std::make_unique<SceneDraft>(stored, m_limits));
    m_canvas->show(*m_draft, isReadOnly());
    refresh();
}

void SceneEditor::storedIsNow(const std::optional<Scene>& stored) {
    const bool wasTold = m_conflict || m_isDeleted;
    m_isDeleted = !stored;
    m_conflict.reset();
    if (stored && m_draft->conflictsWith(*stored)) {
        if (m_draft->isDirty()) {
            m_conflict = stored;
        } else {
            replaceDraft(*stored);
            showFoot(qtr("This scene was changed elsewhere. You see it as it is now."));
        }
    } else if (stored && m_draft->mergedInto(*stored) != m_draft->scene()) {
        // Renamed, pinned or unpinned.
        const auto selection = m_canvas->selection();
        m_draft->storedIs(*stored);
        m_canvas->show(*m_draft, isReadOnly());
        m_canvas->select(selection);
    }
    // Otherwise a sentence stays until there is something newer to say.
    if (wasTold || m_conflict || m_isDeleted) {
        showToolbar();
        showFoot();
    }
}

void SceneEditor::refresh() {
    m_canvas->refresh();
    showWallpapers();
}

void SceneEditor::openWallpapers() {
    if (m_picker != nullptr || isReadOnly()) {
        return;
    }
    m_picker = new WallpaperPicker(m_actions.wallpapers, this);
    m_picker->onChosen = [this](const auto& displays, const auto& file) {
        for (const std::string& display : displays) {
            apply(SceneDraft::SetWallpaper{display, file});
        }
        showWallpapers();
    };
    m_picker->onDone = [this] { closeWallpapers(); };
    static_cast<QVBoxLayout*>(layout())->addWidget(m_picker, 1);
    m_work->hide();
    showWallpapers();
    m_picker->QWidget::show();
    m_picker->displays().setFocus(Qt::OtherFocusReason);
}

// As they are in the draft, also after undo.
void SceneEditor::showWallpapers() {
    if (m_picker != nullptr) {
        const Scene scene = m_draft->scene();
        m_picker->show({.scene = scene.name,
                        .displays = m_draft->displays(),
                        .wallpaper = scene.wallpaper.value_or(SceneWallpaper{})});
    }
}

// One of its own events may be closing it.
void SceneEditor::closeWallpapers() {
    m_picker->hide();
    std::exchange(m_picker, nullptr)->deleteLater();
    m_work->show();
    m_inspector->wallpaperButton().setFocus(Qt::OtherFocusReason);
}

void SceneEditor::showFoundApplications() {
    m_list->show(EditorApplications::rows(m_applications, m_search->text().toStdString()));
}

void SceneEditor::showApplications(std::vector<EditorApplication> applications) {
    m_applications = std::move(applications);
    showFoundApplications();
}

void SceneEditor::focusSearch() {
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void SceneEditor::showToolbar() {
    m_toolbar->show({.name = m_draft->scene().name,
                     .changes = m_draft->changeCount(),
                     .isDirty = m_draft->isDirty(),
                     .canUndo = !isReadOnly() && m_draft->canUndo(),
                     .canRedo = !isReadOnly() && m_draft->canRedo(),
                     .canSave = !isReadOnly() && !m_isDeleted && !m_conflict,
                     .canChange = !isReadOnly(),
                     .hasSelection = !m_canvas->selection().empty(),
                     .isTrying = m_isTrying});
}

void SceneEditor::showFoot(const QString& sentence, EditorFoot::Tone tone) {
    using Tone = EditorFoot::Tone;
    if (m_conflict) {
        m_foot->say(
            qtr("This scene was changed elsewhere meanwhile. Nothing was overwritten."), Tone::warning,
            {{qtr("Take the other version"), [this] { replaceDraft(*std::exchange(m_conflict, {})); }},
             {qtr("Keep mine"), [this] {
                  // From now on, saving replaces the other version knowingly.
                  m_draft->storedIs(*std::exchange(m_conflict, {}));
                  refresh();
              }}});
    } else if (m_isDeleted) {
        m_foot->say(qtr("This scene was deleted elsewhere. Save it as new to keep it."), Tone::warning);
    } else if (isReadOnly()) {
        m_foot->say(qtr("This scene is pinned, so it cannot be changed."), Tone::plain,
                    {{qtr("Unpin"), [this] { m_actions.unpin(); }}});
    } else if (!sentence.isEmpty()) {
        m_foot->say(sentence, tone);
    } else {
        m_foot->say(m_canvas->hint());
    }
}

bool SceneEditor::event(QEvent* event) {
    // The window's own shortcuts with these keys are for what is outside the editor.
    if (event->type() == QEvent::ShortcutOverride && isEditorKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void SceneEditor::keyPressEvent(QKeyEvent* event) {
    if (!isEditorKey(*event)) {
        QWidget::keyPressEvent(event);
    } else if (event->key() == Qt::Key_S) {
        if (m_draft->isDirty() && !isReadOnly() && !m_isDeleted && !m_conflict) {
            save();
        }
    } else if (!isReadOnly()) {
        event->modifiers().testFlag(Qt::ShiftModifier) ? redo() : undo();
    }
}

void SceneEditor::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.window);
    if (m_picker != nullptr) {
        return;
    }
    for (const QWidget* const side : {m_applicationSide, m_inspectorSide}) {
        const QRect place(side->mapTo(this, QPoint()), side->size());
        painter.fillRect(place, colors.base);
        const bool isAtLeft = place.left() == 0;
        painter.fillRect(
            QRect(isAtLeft ? place.right() + 1 : place.left() - 1, place.top(), 1, place.height()),
            colors.hairline);
    }
}

} // namespace vantrel
