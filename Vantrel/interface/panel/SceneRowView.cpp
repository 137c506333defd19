#include "Vantrel/interface/panel/SceneRowView.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "VantrelCore/text/SceneExplanations.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr double rowHeight = 34;
constexpr double symbolSide = 16;
constexpr double leftMargin = 10;
constexpr double symbolGap = 12;

// The small pin of a row that shows no controls.
class PinnedSign final : public QWidget {
public:
    explicit PinnedSign(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAccessibleName(qtr("Pinned"));
        const int side = Metrics::points(*this, 13);
        setFixedSize(side, side);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        Symbols::paint(painter, "pin", rect(), DeskColors::of(palette()).secondText);
    }
};

} // namespace

// The row itself, behind its texts and controls.
class SceneRowView::Line final : public QAbstractButton {
public:
    explicit Line(SceneRowView& row) : QAbstractButton(&row), m_row(row) {
        setFocusPolicy(Qt::StrongFocus);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        setAttribute(Qt::WA_Hover);
        setMinimumHeight(Metrics::points(*this, rowHeight));
    }

    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            click();
            break;
        case Qt::Key_F2:
            m_row.startRenaming();
            break;
        case Qt::Key_Menu:
            m_row.showMenu();
            break;
        default:
            QAbstractButton::keyPressEvent(event);
        }
    }

    void contextMenuEvent(QContextMenuEvent* /*event*/) override { m_row.showMenu(); }

    void paintEvent(QPaintEvent* /*event*/) override {
        const auto colors = DeskColors::of(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (m_row.isBusy() || isDown()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(isDown() ? colors.selection : colors.hover);
            painter.drawRoundedRect(rect(), 6, 6);
        }
        if (hasFocus()) {
            painter.setPen(QPen(colors.accent, 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
        }
        const int side = Metrics::points(*this, symbolSide);
        const QRect square(Metrics::points(*this, leftMargin), (height() - side) / 2, side, side);
        Symbols::paint(painter, Symbols::ofSystemSymbol(m_row.m_row.symbol),
                       QStyle::visualRect(layoutDirection(), rect(), square),
                       m_row.m_row.isCurrent ? colors.accent : colors.secondText);
    }

private:
    SceneRowView& m_row;
};

SceneRowView::SceneRowView(const PanelContent::SceneRow& row, const PanelActions& actions, QWidget* parent)
    : QWidget(parent), m_row(row), m_actions(actions) {
    build();
    show(row);
}

void SceneRowView::build() {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_line = new Line(*this);
    column->addWidget(m_line);
    auto* const texts = new QHBoxLayout(m_line);
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(points(8));
    // Spaces are mirrored, margins are not.
    texts->addSpacing(points(leftMargin + symbolSide + symbolGap));
    m_name = new Label(Label::Role::strong, m_line);
    m_name->setElided(true);
    m_field = new QLineEdit(m_line);
    m_field->setAccessibleName(qtr("Name of the scene"));
    m_field->installEventFilter(this);
    m_field->hide();
    m_detail = new Label(Label::Role::second, m_line);
    m_detail->setElided(true);
    m_detail->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    for (Label* const label : {m_name, m_detail}) {
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    m_pinned = new PinnedSign(m_line);
    m_recorder = new HotKeyRecorder(
        HotKeySurface::scene(m_row.id), HotKeyRecording::Place::menuPanelScene,
        {.keyCode = [this](const QKeyEvent& event) { return m_actions.keyCode(event); },
         .taken = [this] { return m_actions.takenHotKeys(); },
         .store =
             [this](std::optional<HotKeyCombo> combo) { return m_actions.scenes.setHotkey(m_row.id, combo); },
         .problem = [this](const std::string& problem) { showProblem(problem); }},
        m_line);
    m_pin = new SymbolButton("pin", qtr("Pin"), 26, m_line);
    m_pin->setCheckable(true);
    m_more = new SymbolButton("dots", qtr("More"), 26, m_line);
    texts->addWidget(m_name);
    texts->addWidget(m_field, 1);
    texts->addWidget(m_detail, 1);
    auto* const controls = new QHBoxLayout;
    controls->setSpacing(points(4));
    for (QWidget* const control : {m_pinned, static_cast<QWidget*>(m_recorder), static_cast<QWidget*>(m_pin),
                                   static_cast<QWidget*>(m_more)}) {
        controls->addWidget(control);
    }
    texts->addLayout(controls);
    texts->addSpacing(points(8));
    m_problem = new Label(Label::Role::problem, this);
    m_problem->setContentsMargins(points(leftMargin + symbolSide + symbolGap), 0, points(8), points(4));
    m_problem->hide();
    column->addWidget(m_problem);

    connect(m_line, &QAbstractButton::clicked, this, [this] { m_actions.scenes.apply(m_row.id); });
    connect(m_pin, &QToolButton::clicked, this,
            [this](bool isChecked) { m_actions.scenes.setPinned(m_row.id, isChecked); });
    connect(m_more, &QToolButton::clicked, this, [this] { showMenu(); });
    connect(m_field, &QLineEdit::returnPressed, this, [this] { endRenaming(true); });
    connect(m_field, &QLineEdit::textEdited, this, [this](const QString& name) {
        showProblem(m_actions.scenes.problemWithRename(m_row.id, name.trimmed().toStdString()).value_or(""));
    });
    connect(qApp, &QApplication::focusChanged, this, [this] { showControls(); });
    setAttribute(Qt::WA_Hover);
}

void SceneRowView::show(const PanelContent::SceneRow& row) {
    m_row = row;
    m_name->show(qt(row.name));
    m_detail->show(qt(row.detail));
    m_recorder->setTitle(qt(row.name));
    m_recorder->setShortcut(qt(row.shortcut));
    m_recorder->setRefused(row.isShortcutRefused);
    m_pin->setChecked(row.isPinned);
    m_pin->setText(row.isPinned ? qtr("Unpin") : qtr("Pin"));
    m_pin->setAccessibleDescription(qt(row.name));
    m_more->setAccessibleDescription(qt(row.name));
    m_line->setAccessibleName(qt(row.name));
    m_line->setAccessibleDescription(qt(row.detail + (row.isPinned ? vantrel::tr(", pinned") : "") +
                                        (row.isCurrent ? vantrel::tr(", applied last") : "")));
    showControls();
    m_line->update();
}

bool SceneRowView::isBusy() const {
    const QWidget* const focus = QApplication::focusWidget();
    return m_isHighlighted || m_hasMenu || underMouse() || m_recorder->isRecording() ||
           (focus != nullptr && isAncestorOf(focus));
}

void SceneRowView::showControls() {
    const bool isShown = isBusy() && m_field->isHidden();
    m_pin->setVisible(isShown && !m_recorder->isRecording());
    m_more->setVisible(isShown && !m_recorder->isRecording());
    m_pinned->setVisible(!isShown && m_row.isPinned);
    m_recorder->setProminent(isShown);
    m_recorder->setVisible(m_field->isHidden());
    m_detail->setVisible(m_field->isHidden());
    m_line->update();
}

void SceneRowView::setHighlighted(bool isHighlighted) {
    m_isHighlighted = isHighlighted;
    showControls();
}

bool SceneRowView::event(QEvent* event) {
    const bool result = QWidget::event(event);
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        showControls();
    }
    return result;
}

bool SceneRowView::eventFilter(QObject* object, QEvent* event) {
    if (object == m_field && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        endRenaming(false);
        return true;
    }
    return QWidget::eventFilter(object, event);
}

void SceneRowView::showMenu() {
    QMenu menu(this);
    menu.addAction(qtr("&Apply"), this, [this] { m_actions.scenes.apply(m_row.id); });
    menu.addAction(qtr("&Rename…"), this, [this] { startRenaming(); });
    QAction* const update = menu.addAction(qtr("&Update to the desk as it is"), this,
                                           [this] { m_actions.scenes.update(m_row.id); });
    update->setEnabled(!m_row.isPinned);
    menu.addAction(m_row.shortcut.empty() ? qtr("Set &shortcut…") : qtr("Change &shortcut…"), this,
                   [this] { m_recorder->startRecording(); });
    if (!m_row.shortcut.empty()) {
        menu.addAction(qtr("Remove s&hortcut"), this, [this] {
            showProblem(m_actions.scenes.setHotkey(m_row.id, std::nullopt).value_or(""));
        });
    }
    menu.addSeparator();
    QAction* const remove = menu.addAction(qtr("&Delete"), this, [this] {
        const std::string name = m_row.name;
        const auto removed = onRemoved;
        if (const auto problem = m_actions.scenes.remove(m_row.id)) {
            showProblem(*problem);
        } else {
            removed(name);
        }
    });
    remove->setEnabled(!m_row.isPinned);
    remove->setToolTip(m_row.isPinned ? qtr(SceneExplanations::pinnedIsProtected) : QString());
    menu.setToolTipsVisible(true);
    m_hasMenu = true;
    menu.exec(m_more->mapToGlobal(QPoint(0, m_more->height())));
    m_hasMenu = false;
    showControls();
}

void SceneRowView::startRenaming() {
    m_field->setText(qt(m_row.name));
    m_name->hide();
    m_field->show();
    showControls();
    m_field->selectAll();
    m_field->setFocus();
}

void SceneRowView::endRenaming(bool isAccepted) {
    const std::string name = m_field->text().trimmed().toStdString();
    if (isAccepted && name != m_row.name) {
        if (const auto problem = m_actions.scenes.rename(m_row.id, name)) {
            showProblem(*problem);
            return;
        }
    }
    showProblem("");
    m_field->hide();
    m_name->show();
    m_line->setFocus();
    showControls();
}

void SceneRowView::showProblem(const std::string& problem) {
    m_problem->show(qt(problem));
    m_problem->setVisible(!problem.empty());
    showControls();
}

} // namespace vantrel
