#include "Vantrel/interface/workbench/desks/DeskDetailView.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/EmptyLayout.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Metrics.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vantrel {

namespace {

constexpr double margin = 20;
// Narrower than this, the preview stands below the drawing.
constexpr double twoSides = 760;
constexpr double radius = 8;

} // namespace

DeskDetailView::DeskDetailView(ApplicationLooks& looks, const DesksActions& actions, QWidget* parent)
    : QWidget(parent), m_looks(looks), m_actions(actions) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(points(margin), points(16), points(margin), points(16));
    column->setSpacing(0);
    column->addLayout(header());
    m_layoutField = layoutField();
    column->addWidget(m_layoutField);
    column->addSpacing(points(14));
    m_sides = new QBoxLayout(QBoxLayout::LeftToRight);
    m_sides->setSpacing(points(28));
    m_sides->addWidget(drawingSide(), 11);
    m_previewSide = previewSide();
    m_sides->addWidget(m_previewSide, 10);
    column->addLayout(m_sides);
}

int DeskDetailView::points(double length) const {
    return Metrics::points(QApplication::font(), length);
}

QBoxLayout* DeskDetailView::header() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(points(8));
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(points(2));
    m_name = new NameField(qtr("Name of the desk"), 1.15, this);
    m_name->problemWith = [this](const std::string& name) {
        return m_actions.problemWithName(m_content->configID, name);
    };
    m_name->rename = [this](const std::string& name) { return m_actions.rename(m_content->configID, name); };
    m_subtitle = new Label(Label::Role::second, this);
    m_subtitle->setElided(true);
    texts->addWidget(m_name);
    texts->addWidget(&m_name->problemLabel());
    texts->addWidget(m_subtitle);
    row->addLayout(texts, 1);
    m_layoutRow = new QWidget(this);
    auto* const layouts = new QHBoxLayout(m_layoutRow);
    layouts->setContentsMargins(0, 0, 0, 0);
    layouts->setSpacing(points(8));
    auto* const label = new Label(Label::Role::quiet, m_layoutRow);
    label->setElided(true);
    label->show(qtr("Layout"));
    m_layouts = new QComboBox(m_layoutRow);
    m_layouts->setAccessibleName(qtr("Layout"));
    m_layouts->setMinimumHeight(points(30));
    m_layouts->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_layouts->setMinimumContentsLength(14);
    connect(m_layouts, &QComboBox::activated, this, [this](int index) {
        const std::string name = m_layouts->itemText(index).toStdString();
        if (m_content->isPresent) {
            m_actions.switchLayout(name);
        } else {
            onLayout(name);
        }
    });
    m_pin = new SymbolButton("pin", qtr("Keep this layout as it is"), 30, m_layoutRow);
    m_pin->setCheckable(true);
    connect(m_pin, &QToolButton::clicked, this,
            [this](bool isOn) { m_actions.setPinned(m_content->configID, m_content->layout, isOn); });
    layouts->addWidget(label);
    layouts->addWidget(m_layouts);
    layouts->addWidget(m_pin);
    row->addWidget(m_layoutRow, 0, Qt::AlignTop);
    m_more = new SymbolButton("dots", qtr("More"), 30, this);
    connect(m_more, &QToolButton::clicked, this,
            [this] { showMenu(m_more->mapToGlobal(QPoint(0, m_more->height()))); });
    row->addWidget(m_more, 0, Qt::AlignTop);
    return row;
}

QWidget* DeskDetailView::layoutField() {
    auto* const widget = new QWidget(this);
    auto* const column = new QVBoxLayout(widget);
    column->setContentsMargins(0, points(10), 0, 0);
    column->setSpacing(points(4));
    m_layoutName = new QLineEdit(widget);
    m_layoutName->setAccessibleName(qtr("Name of the layout"));
    m_layoutName->setMinimumHeight(points(30));
    m_layoutName->installEventFilter(this);
    m_layoutProblem = new Label(Label::Role::problem, widget);
    m_layoutProblem->hide();
    connect(m_layoutName, &QLineEdit::textEdited, this, [this] {
        const auto problem = problemWithLayoutName();
        m_layoutProblem->show(qt(problem.value_or("")));
        m_layoutProblem->setVisible(problem.has_value());
    });
    connect(m_layoutName, &QLineEdit::returnPressed, this, [this] { finishNaming(); });
    column->addWidget(m_layoutName);
    column->addWidget(m_layoutProblem);
    widget->hide();
    return widget;
}

QWidget* DeskDetailView::drawingSide() {
    auto* const side = new QWidget(this);
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(points(10));
    m_drawing = new DeskView(m_looks, side);
    m_drawing->setHighest(points(280));
    column->addWidget(m_drawing);
    m_stashes = new QWidget(side);
    auto* const stashes = new QVBoxLayout(m_stashes);
    stashes->setContentsMargins(0, 0, 0, 0);
    stashes->setSpacing(points(6));
    column->addWidget(m_stashes);
    column->addStretch(1);
    return side;
}

QWidget* DeskDetailView::previewSide() {
    auto* const side = new QWidget(this);
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(points(4));
    auto* const row = new QHBoxLayout;
    row->setSpacing(points(8));
    m_previewTitle = new Label(Label::Role::strong, side);
    row->addWidget(m_previewTitle, 1);
    m_restore = new ActionButton("restore", ActionButton::Form::plain, side);
    m_restore->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_restore, &QPushButton::clicked, this, [this] {
        if (m_content->isPresent) {
            m_actions.restore();
        } else {
            m_actions.applyLayout(m_content->configID, m_content->layout);
        }
    });
    row->addWidget(m_restore);
    column->addLayout(row);
    m_previewText = new Label(Label::Role::text, side);
    column->addWidget(m_previewText);
    m_lines = new ListRowsView(&m_looks, side);
    m_lines->delegate().setForm(ListRowDelegate::Form::table);
    m_lines->setShowsAll();
    // In the drawing, the window of the row stands out.
    m_lines->onChosen = [this](const std::string& id) {
        const auto window = m_content->drawn.find(id);
        m_drawing->lift(window == m_content->drawn.end() ? std::nullopt : std::optional(window->second));
    };
    column->addWidget(m_lines);
    m_inPlace = new ActionButton("right", ActionButton::Form::wide, side);
    m_inPlace->setFlat(true);
    connect(m_inPlace, &QPushButton::clicked, this, [this] { onInPlace(); });
    column->addWidget(m_inPlace);
    m_unremembered = new Label(Label::Role::second, side);
    column->addWidget(m_unremembered);
    column->addStretch(1);
    return side;
}

void DeskDetailView::show(const DesksContent::Detail& detail, bool showsInPlace) {
    const bool isOther = !m_content || m_content->configID != detail.configID;
    const bool hasOtherStashes = isOther || m_content->stashes != detail.stashes;
    if (isOther) {
        // What was typed belongs to the other desk.
        m_name->setModified(false);
        m_name->problemLabel().hide();
        startNaming(Naming::none);
    }
    m_content = detail;
    m_name->setEditable(!detail.isEmpty);
    m_name->setName(qt(detail.name));
    m_subtitle->show(qt(detail.subtitle));
    m_drawing->show(detail.drawing);
    showLayouts();
    if (hasOtherStashes) {
        showStashes();
    }
    showPreview(showsInPlace);
}

void DeskDetailView::showLayouts() {
    m_layoutRow->setVisible(!m_content->layouts.empty());
    QStringList names;
    for (const auto& layout : m_content->layouts) {
        names.append(qt(layout.name));
    }
    QStringList shown;
    for (int i = 0; i < m_layouts->count(); ++i) {
        shown.append(m_layouts->itemText(i));
    }
    const QSignalBlocker quiet(m_layouts);
    if (names != shown) {
        m_layouts->clear();
        m_layouts->addItems(names);
    }
    m_layouts->setCurrentIndex(static_cast<int>(names.indexOf(qt(m_content->layout))));
    m_pin->setChecked(m_content->isPinned);
    m_pin->setText(m_content->isPinned ? qtr("Learn this layout again") : qtr("Keep this layout as it is"));
}

void DeskDetailView::showStashes() {
    emptyLayout(*m_stashes->layout());
    for (const auto& stash : m_content->stashes) {
        auto* const widget = new QWidget(m_stashes);
        auto* const column = new QVBoxLayout(widget);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(points(6));
        column->addWidget(new Hairline(widget));
        auto* const row = new QHBoxLayout;
        row->setSpacing(points(8));
        auto* const texts = new QVBoxLayout;
        texts->setSpacing(0);
        auto* const title = new Label(Label::Role::strong, widget);
        title->show(qt(stash.title));
        auto* const detail = new Label(Label::Role::second, widget);
        detail->show(qt(stash.detail));
        texts->addWidget(title);
        texts->addWidget(detail);
        row->addLayout(texts, 1);
        auto* const back = new ActionButton("stash", ActionButton::Form::plain, widget);
        back->setTexts(qtr("Bring back"), "");
        back->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        connect(back, &QPushButton::clicked, this, [this, id = stash.id] { m_actions.bringBack(id); });
        auto* const discard = new SymbolButton("trash", qtr("Delete the stash"), 30, widget);
        connect(discard, &QToolButton::clicked, this, [this, id = stash.id] { m_actions.discardStash(id); });
        row->addWidget(back);
        row->addWidget(discard);
        column->addLayout(row);
        m_stashes->layout()->addWidget(widget);
    }
    m_stashes->setVisible(!m_content->stashes.empty());
}

void DeskDetailView::showPreview(bool showsInPlace) {
    m_previewTitle->show(qt(m_content->previewTitle));
    m_restore->setTexts(m_content->isPresent ? qtr("Restore") : qtr("Apply here"), "");
    m_restore->setEnabled(m_content->restore.isPossible);
    m_restore->setToolTip(qt(m_content->restore.reason));
    const QString text =
        m_content->isEmpty
            ? qtr("Put your windows where you like them. Once they have stood still for a while, Vantrel "
                  "remembers their places.")
            : qt(m_content->previewText);
    m_previewText->show(text);
    m_previewText->setVisible(!text.isEmpty());
    m_lines->setAccessibleName(qt(m_content->previewTitle));
    m_lines->show(m_content->lines);
    m_lines->setVisible(!m_content->lines.empty());
    m_inPlace->setTexts(qt(m_content->inPlace), "");
    m_inPlace->setSymbol(showsInPlace ? "down" : "right");
    m_inPlace->setVisible(!m_content->inPlace.empty());
    m_unremembered->show(qt(m_content->unremembered));
    m_unremembered->setVisible(!m_content->unremembered.empty());
}

void DeskDetailView::startNaming(Naming naming) {
    m_naming = naming;
    m_layoutField->setVisible(naming != Naming::none);
    m_layoutProblem->hide();
    if (naming == Naming::none) {
        m_layoutName->clear();
        return;
    }
    m_layoutName->setText(naming == Naming::rename ? qt(m_content->layout) : QString());
    m_layoutName->setPlaceholderText(qtr("Name of the layout"));
    m_layoutName->selectAll();
    m_layoutName->setFocus();
}

DesksActions::Problem DeskDetailView::problemWithLayoutName() const {
    const std::string typed = m_layoutName->text().trimmed().toStdString();
    return typed.empty() || m_naming != Naming::saveAs ? std::nullopt
                                                       : m_actions.problemWithLayoutName(typed);
}

void DeskDetailView::finishNaming() {
    const std::string typed = m_layoutName->text().trimmed().toStdString();
    DesksActions::Problem problem = problemWithLayoutName();
    if (!problem && m_naming == Naming::rename && typed != m_content->layout) {
        problem = m_actions.renameLayout(m_content->configID, m_content->layout, typed);
    } else if (!problem && m_naming == Naming::saveAs) {
        m_actions.saveLayoutAs(typed);
    }
    m_layoutProblem->show(qt(problem.value_or("")));
    m_layoutProblem->setVisible(problem.has_value());
    if (!problem) {
        startNaming(Naming::none);
        m_layouts->setFocus();
    }
}

void DeskDetailView::showMenu(QPoint place) {
    // A copy, as the menu stays open while the state changes.
    const auto content = *m_content;
    QMenu menu(this);
    QAction* const rename = menu.addAction(qtr("&Rename the desk"), this, [this] { startRenaming(); });
    rename->setEnabled(!content.isEmpty);
    if (!content.layout.empty()) {
        menu.addSeparator();
        if (content.isPresent) {
            menu.addAction(qtr("&Save as another layout…"), this, [this] { startNaming(Naming::saveAs); });
        } else {
            menu.addAction(qtr("&Apply the layout here"), this,
                           [this, content] { m_actions.applyLayout(content.configID, content.layout); })
                ->setEnabled(content.restore.isPossible);
        }
        menu.addAction(qtr("Re&name the layout…"), this, [this] { startNaming(Naming::rename); });
        menu.addAction(qtr("&Delete the layout"), this,
                       [this, content] { m_actions.removeLayout(content.configID, content.layout); });
        menu.addSeparator();
        menu.addAction(qtr("&Forget this desk"), this,
                       [this, content] { m_actions.forget(content.configID); });
    }
    menu.exec(place);
}

bool DeskDetailView::eventFilter(QObject* object, QEvent* event) {
    if (object == m_layoutName && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        startNaming(Naming::none);
        m_layouts->setFocus();
        return true;
    }
    return QWidget::eventFilter(object, event);
}

void DeskDetailView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_sides->setDirection(width() < points(twoSides) ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

void DeskDetailView::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.hairline, 1));
    painter.setBrush(colors.base);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace vantrel
