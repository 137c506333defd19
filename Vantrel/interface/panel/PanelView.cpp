// The panel's parts and how they are put together; PanelViewShowing.cpp fills them.
#include "Vantrel/interface/panel/PanelView.h"

#include "Vantrel/interface/PhaseIcon.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionFrame>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr double margin = 16;

// The program's own symbol, with the phase.
class PhaseSymbol final : public QWidget {
public:
    PhaseSymbol(const PanelContent& content, QWidget* parent) : QWidget(parent), m_content(content) {
        const int side = Metrics::points(*this, 24);
        setFixedSize(side, side);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        PhaseIcon::icon(m_content.phase, PhaseIcon::toneOfDesktop()).paint(&painter, rect());
    }

private:
    const PanelContent& m_content;
};

QVBoxLayout* column(QWidget* parent, int spacing) {
    auto* const layout = new QVBoxLayout(parent);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

} // namespace

PanelView::PanelView(ApplicationLooks& looks, PanelActions actions, QWidget* parent)
    : QWidget(parent), m_looks(looks), m_actions(std::move(actions)) {
    auto* const all = column(this, 0);
    m_header = header();
    all->addWidget(m_header);
    m_scroll = new QScrollArea(this);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidget(body());
    // The ground is the window's.
    m_scroll->viewport()->setAutoFillBackground(false);
    m_body->setAutoFillBackground(false);
    all->addWidget(m_scroll, 1);
    m_footer = footer();
    all->addWidget(m_footer);
    setScrolling(false);
    constexpr int undoStays = 10'000;
    m_undoEnds.setSingleShot(true);
    m_undoEnds.setInterval(undoStays);
    m_undoEnds.callOnTimeout(this, [this] { m_undoLine->hide(); });
}

int PanelView::points(double length) const {
    return Metrics::points(*this, length);
}

QWidget* PanelView::header() {
    auto* const header = new QWidget(this);
    auto* const row = new QHBoxLayout(header);
    row->setContentsMargins(points(margin), points(16), points(margin - 4), points(12));
    row->setSpacing(points(12));
    m_symbol = new PhaseSymbol(m_content, header);
    row->addWidget(m_symbol, 0, Qt::AlignVCenter);
    auto* const texts = column(nullptr, 0);
    m_deskName = new QLineEdit(header);
    // Above the phase, whatever its script.
    m_deskName->setAlignment(Qt::AlignAbsolute | Qt::AlignVCenter |
                             (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft));
    m_deskName->setFrame(false);
    m_deskName->setAccessibleName(qtr("Name of this desk"));
    m_deskName->setFont(Metrics::scaled(font(), 1.15, QFont::DemiBold));
    // Flush with the line below it in every style.
    QStyleOptionFrame frame;
    frame.initFrom(m_deskName);
    frame.rect = QRect(0, 0, points(200), points(30));
    const int padding = style()->subElementRect(QStyle::SE_LineEditContents, &frame, m_deskName).left();
    constexpr int ownMargin = 2;
    const int before = -padding - ownMargin;
    m_deskName->setTextMargins(isRightToLeft() ? 0 : before, 0, isRightToLeft() ? before : 0, 0);
    // A label until somebody edits it.
    QPalette clear = m_deskName->palette();
    clear.setColor(QPalette::Base, Qt::transparent);
    m_deskName->setPalette(clear);
    m_deskName->installEventFilter(this);
    connect(m_deskName, &QLineEdit::textEdited, this, [this](const QString& name) {
        const auto problem = m_actions.problemWithDeskName(name.trimmed().toStdString());
        m_deskProblem->show(qt(problem.value_or("")));
        m_deskProblem->setVisible(problem.has_value());
    });
    connect(m_deskName, &QLineEdit::editingFinished, this, [this] {
        const std::string name = m_deskName->text().trimmed().toStdString();
        if (name != m_content.deskName && m_content.canRename) {
            const auto problem = m_actions.renameDesk(name);
            m_deskProblem->show(qt(problem.value_or("")));
            m_deskProblem->setVisible(problem.has_value());
            if (problem) {
                return;
            }
        }
        showDeskName();
    });
    m_phase = new Label(Label::Role::second, header);
    m_phase->setElided(true);
    m_deskProblem = new Label(Label::Role::problem, header);
    m_deskProblem->hide();
    texts->addWidget(m_deskName);
    texts->addWidget(m_phase);
    texts->addWidget(m_deskProblem);
    row->addLayout(texts, 1);
    m_switch = new Switch(header);
    m_switch->setAccessibleName(qtr("Learn and restore automatically"));
    connect(m_switch, &Switch::clicked, this, [this](bool isOn) { m_actions.setEnabled(isOn); });
    row->addWidget(m_switch, 0, Qt::AlignVCenter);
    return header;
}

QWidget* PanelView::body() {
    m_body = new QWidget(this);
    auto* const parts = column(m_body, 0);
    addMessages(*parts);
    m_drawing = new DeskView(m_looks, m_body);
    m_drawing->setHighest(points(190));
    auto* const framed = new QHBoxLayout;
    framed->setContentsMargins(points(margin), points(2), points(margin), points(8));
    framed->addWidget(m_drawing);
    parts->addLayout(framed);
    addButtons(*parts);
    addLayouts(*parts);
    addScenes(*parts);
    addResult(*parts);
    parts->addStretch(1);
    m_body->installEventFilter(this);
    return m_body;
}

void PanelView::addMessages(QBoxLayout& parts) {
    m_messages = new QWidget(m_body);
    column(m_messages, points(8))->setContentsMargins(points(margin), 0, points(margin), points(10));
    parts.addWidget(m_messages);
}

void PanelView::addButtons(QBoxLayout& parts) {
    using Form = ActionButton::Form;
    m_emptyHint = new QWidget(m_body);
    auto* const hint = column(m_emptyHint, points(2));
    hint->setContentsMargins(points(margin + 2), points(8), points(margin), points(14));
    auto* const title = new Label(Label::Role::strong, m_emptyHint);
    title->show(qtr("Nothing is remembered here yet"));
    auto* const text = new Label(Label::Role::text, m_emptyHint);
    text->show(
        qtr("Put your windows where you like them. Once they have stood still for a while, Vantrel remembers "
            "their places."));
    hint->addWidget(title);
    hint->addWidget(text);
    parts.addWidget(m_emptyHint);

    auto* const buttons = column(nullptr, points(8));
    buttons->setContentsMargins(points(margin), points(4), points(margin), points(14));
    m_restore = new ActionButton("restore", Form::wide, m_body);
    m_restore->setFilled(true);
    connect(m_restore, &QPushButton::clicked, this, [this] { m_actions.restore(); });
    m_remember = new ActionButton("save", Form::wide, m_body);
    m_remember->setFilled(true);
    connect(m_remember, &QPushButton::clicked, this, [this] { m_actions.save(); });
    m_secondary = new QWidget(m_body);
    auto* const row = new QHBoxLayout(m_secondary);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(points(8));
    m_save = new ActionButton("save", Form::high, m_secondary);
    connect(m_save, &QPushButton::clicked, this, [this] { m_actions.save(); });
    m_stash = new ActionButton("stash", Form::high, m_secondary);
    connect(m_stash, &QPushButton::clicked, this, [this] { m_actions.stash(); });
    m_undo = new ActionButton("undo", Form::high, m_secondary);
    connect(m_undo, &QPushButton::clicked, this, [this] { m_actions.undo(); });
    for (ActionButton* const button : {m_save, m_stash, m_undo}) {
        row->addWidget(button);
    }
    buttons->addWidget(m_restore);
    buttons->addWidget(m_remember);
    buttons->addWidget(m_secondary);
    parts.addLayout(buttons);
}

void PanelView::addLayouts(QBoxLayout& parts) {
    m_layouts = new LayoutRow(m_actions, m_body);
    m_layouts->onRemoved = [this](const std::string& name) { offerUndo(name, m_actions.putBackLayout); };
    parts.addWidget(m_layouts);
}

void PanelView::addScenes(QBoxLayout& parts) {
    parts.addWidget(new Hairline(m_body));
    auto* const group = column(nullptr, 0);
    group->setContentsMargins(points(8), points(10), points(8), points(14));
    auto* const heading = new Label(Label::Role::group, m_body);
    heading->show(qtr("Scenes"));
    heading->setContentsMargins(points(10), 0, points(10), points(6));
    m_scenesHint = new Label(Label::Role::text, m_body);
    m_scenesHint->show(
        qtr("A scene is a desk you can call back by name: one for writing, one for meetings."));
    m_scenesHint->setContentsMargins(points(10), 0, points(8), points(8));
    m_sceneList = new QWidget(m_body);
    column(m_sceneList, 0);

    m_undoLine = new QWidget(m_body);
    auto* const line = new QHBoxLayout(m_undoLine);
    line->setContentsMargins(points(10), points(4), points(8), points(4));
    m_undoText = new Label(Label::Role::second, m_undoLine);
    m_undoText->setElided(true);
    auto* const undo = new QPushButton(qtr("Undo"), m_undoLine);
    undo->setAccessibleName(qtr("Undo the deletion"));
    undo->setAutoDefault(false);
    undo->setFixedHeight(points(26));
    connect(undo, &QPushButton::clicked, this, [this] {
        m_undoLine->hide();
        m_undoDeletion();
    });
    line->addWidget(m_undoText, 1);
    line->addWidget(undo);
    m_undoLine->hide();

    m_others = new ActionButton("right", ActionButton::Form::wide, m_body);
    m_others->setFlat(true);
    connect(m_others, &QPushButton::clicked, this, [this] {
        m_otherList->setVisible(m_otherList->isHidden());
        m_others->setSymbol(m_otherList->isHidden() ? "right" : "down");
        showScenes();
    });
    m_otherList = new QWidget(m_body);
    column(m_otherList, 0);
    m_otherList->hide();

    m_sceneField = new QLineEdit(m_body);
    m_sceneField->setPlaceholderText(qtr("Save this desk as a scene…"));
    m_sceneField->setAccessibleName(qtr("Save this desk as a scene"));
    m_sceneField->setMinimumHeight(points(30));
    m_sceneField->addAction(Symbols::icon("plus", QPalette::Text), QLineEdit::LeadingPosition)
        ->setText(qtr("New scene"));
    m_sceneSave =
        m_sceneField->addAction(Symbols::icon("check", QPalette::Text), QLineEdit::TrailingPosition);
    m_sceneSave->setText(qtr("Save"));
    m_sceneSave->setVisible(false);
    m_sceneField->installEventFilter(this);
    const auto save = [this] {
        const std::string name = m_sceneField->text().trimmed().toStdString();
        if (!name.empty() && !m_actions.scenes.problemWithName(name)) {
            m_actions.scenes.save(name);
            m_sceneField->clear();
        }
    };
    connect(m_sceneField, &QLineEdit::returnPressed, this, save);
    connect(m_sceneSave, &QAction::triggered, this, save);
    connect(m_sceneField, &QLineEdit::textChanged, this, [this] { sceneNameEdited(); });
    m_sceneProblem = new Label(Label::Role::problem, m_body);
    m_sceneProblem->setContentsMargins(points(2), points(4), 0, 0);
    m_sceneProblem->hide();

    group->addWidget(heading);
    group->addWidget(m_scenesHint);
    group->addWidget(m_sceneList);
    group->addWidget(m_undoLine);
    group->addWidget(m_others);
    group->addWidget(m_otherList);
    auto* const field = column(nullptr, 0);
    field->setContentsMargins(points(8), points(4), points(8), 0);
    field->addWidget(m_sceneField);
    field->addWidget(m_sceneProblem);
    group->addLayout(field);
    parts.addLayout(group);
}

void PanelView::addResult(QBoxLayout& parts) {
    m_resultLine = new QWidget(m_body);
    auto* const group = column(m_resultLine, 0);
    group->addWidget(new Hairline(m_resultLine));
    m_result = new ActionButton("check", ActionButton::Form::wide, m_resultLine);
    m_result->setFlat(true);
    auto* const inset = new QHBoxLayout;
    inset->setContentsMargins(points(8), 0, points(8), 0);
    inset->addWidget(m_result);
    connect(m_result, &QPushButton::clicked, this, [this] {
        if (m_actions.showHistory) {
            m_actions.showHistory();
        }
    });
    group->addLayout(inset);
    parts.addWidget(m_resultLine);
}

QWidget* PanelView::footer() {
    auto* const footer = new QWidget(this);
    auto* const group = column(footer, 0);
    group->addWidget(new Hairline(footer));
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(points(8), points(6), points(8), points(6));
    row->setSpacing(points(4));
    const auto add = [&](const char* symbol, const QString& text, const std::function<void()>& action) {
        auto* const button = new ActionButton(symbol, ActionButton::Form::plain, footer);
        button->setTexts(text, "");
        button->setFlat(true);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        connect(button, &QPushButton::clicked, this, action);
        row->addWidget(button);
    };
    if (m_actions.openWorkbench) {
        add("window", qtr("Workbench"), m_actions.openWorkbench);
    }
    if (m_actions.openSettings) {
        add("gear", qtr("Settings"), m_actions.openSettings);
    }
    if (m_actions.openIntroduction) {
        add("info", qtr("Introduction"), m_actions.openIntroduction);
    }
    row->addStretch(1);
    add("power", qtr("Quit"), m_actions.quit);
    group->addLayout(row);
    return footer;
}

bool PanelView::eventFilter(QObject* object, QEvent* event) {
    if (object == m_body && event->type() == QEvent::LayoutRequest) {
        // Later, as the layouts are only now being told.
        QTimer::singleShot(0, this, [this] { onHeightChanged(); });
    }
    if (object == m_deskName && (event->type() == QEvent::Resize ||
                                 (event->type() == QEvent::FocusIn && !m_deskName->isModified()))) {
        showDeskName();
    }
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        // Escape first takes back what was typed, and only then closes the panel.
        if (object == m_deskName && m_deskName->text() != qt(m_content.deskName)) {
            m_deskName->setText(qt(m_content.deskName));
            return true;
        }
        if (object == m_sceneField && !m_sceneField->text().isEmpty()) {
            m_sceneField->clear();
            return true;
        }
    }
    return QWidget::eventFilter(object, event);
}

void PanelView::setScrolling(bool isScrolling) {
    setFixedWidth(points(width) + (isScrolling ? m_scroll->verticalScrollBar()->sizeHint().width() : 0));
    m_scroll->setVerticalScrollBarPolicy(isScrolling ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

int PanelView::fullHeight() const {
    // Before it is shown, a change within a part does not reach the layouts around it.
    if (!isVisible()) {
        for (QWidget* const part : m_body->findChildren<QWidget*>()) {
            part->updateGeometry();
        }
    }
    return m_header->sizeHint().height() + m_body->layout()->totalHeightForWidth(points(width)) +
           m_footer->sizeHint().height();
}

} // namespace vantrel
