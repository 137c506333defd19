#include "Vantrel/interface/workbench/rules/RuleRowView.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel {

namespace {

using Choice = RulesContent::Choice;

constexpr double margin = 20;
constexpr double iconSide = 30;
constexpr double iconGap = 14;

// The data of an item that keeps windows on a display is its identity; the others have none.
constexpr int putBackItem = 0;
constexpr int leaveAloneItem = 1;

} // namespace

RuleRowView::RuleRowView(ApplicationLooks& looks, Columns columns, QWidget* parent)
    : QWidget(parent), m_looks(looks) {
    const auto points = [this](double length) { return Metrics::points(*this, length); };
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(points(margin), points(6), points(margin), points(6));
    line->setSpacing(0);
    line->addSpacing(points(iconSide + iconGap));
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(points(1));
    m_name = new Label(Label::Role::strong, this);
    m_name->setElided(true);
    m_learned = new Label(Label::Role::second, this);
    m_learned->setElided(true);
    texts->addStretch(1);
    texts->addWidget(m_name);
    texts->addWidget(m_learned);
    texts->addStretch(1);
    line->addLayout(texts, 1);
    line->addSpacing(points(12));
    m_picker = new DisplayPicker(this);
    QSizePolicy keepsRoom = m_picker->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    m_picker->setSizePolicy(keepsRoom);
    m_picker->onChosen = [this](const std::string& uuid) { chooseDisplay(uuid); };
    line->addWidget(m_picker, 0, Qt::AlignVCenter);
    line->addSpacing(points(12));
    m_choice = new QComboBox(this);
    m_choice->setFixedWidth(columns.choice);
    m_choice->setMinimumHeight(points(30));
    m_choice->setFocusPolicy(Qt::StrongFocus);
    m_choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_choice->installEventFilter(this);
    connect(m_choice, &QComboBox::activated, this, [this](int index) {
        RulesContent::Row wanted = m_row;
        wanted.choice = index == putBackItem      ? Choice::putBack
                        : index == leaveAloneItem ? Choice::leaveAlone
                                                  : Choice::keepOnDisplay;
        if (wanted.choice == Choice::keepOnDisplay) {
            chooseDisplay(m_choice->itemData(index).toString().toStdString());
        } else if (wanted.choice != m_row.choice) {
            onChanged(wanted);
        }
        showStored();
    });
    line->addWidget(m_choice);
    auto* const end = new QHBoxLayout;
    end->setContentsMargins(0, 0, 0, 0);
    m_last = new QCheckBox(this);
    m_last->installEventFilter(this);
    connect(m_last, &QCheckBox::clicked, this, [this](bool isLast) {
        RulesContent::Row wanted = m_row;
        wanted.isPlacedLast = isLast;
        onChanged(wanted);
        showStored();
    });
    end->addStretch(1);
    end->addWidget(m_last);
    end->addStretch(1);
    auto* const endColumn = new QWidget(this);
    endColumn->setFixedWidth(columns.last);
    endColumn->setLayout(end);
    line->addWidget(endColumn);
    setMinimumHeight(points(54));
}

void RuleRowView::show(const RulesContent::Row& row, const std::vector<DisplayInfo>& displays) {
    const bool isNew = m_row != row || m_displays != displays || m_choice->count() == 0;
    if (!isNew) {
        return;
    }
    const bool isChoiceSame = m_choice->count() > 0 && m_displays == displays && m_row.choice == row.choice &&
                              m_row.displayUUID == row.displayUUID && m_row.displayName == row.displayName;
    m_row = row;
    m_displays = displays;
    const QString name = qt(row.appName);
    m_name->show(name);
    m_learned->show(qt(row.open.empty() ? row.learned : row.learned + " · " + row.open));
    m_choice->setAccessibleName(qt(trf("When {} is restored", row.appName)));
    m_last->setAccessibleName(qt(trf("Place {} last", row.appName)));
    m_last->setToolTip(m_last->accessibleName());
    // An open list stays open while only what was learned changes.
    if (!isChoiceSame) {
        fillChoices();
    }
    showStored();
    // An application that is left alone is not placed at all.
    m_last->setEnabled(row.choice != Choice::leaveAlone);
    m_picker->show(name, displays, row.displayUUID);
    for (const DisplayInfo& display : displays) {
        m_picker->buttonFor(display.uuid)->removeEventFilter(this);
        m_picker->buttonFor(display.uuid)->installEventFilter(this);
    }
    showPicker();
    update();
}

void RuleRowView::fillChoices() {
    const QSignalBlocker quiet(m_choice);
    m_choice->clear();
    m_choice->addItem(qtr("Put back"));
    m_choice->addItem(qtr("Leave alone"));
    const auto add = [this](const std::string& uuid, const std::string& text) {
        m_choice->addItem(qt(text), qt(uuid));
    };
    const auto keepOn = [](const std::string& name) { return trf("Keep on {}", name); };
    for (const DisplayInfo& display : m_displays) {
        add(display.uuid, keepOn(display.name));
    }
    const bool isHere =
        std::ranges::find(m_displays, m_row.displayUUID, &DisplayInfo::uuid) != m_displays.end();
    if (m_row.choice == Choice::keepOnDisplay && !isHere) {
        add(m_row.displayUUID, keepOn(m_row.displayName));
    }
    showStored();
}

// The controls show what is stored, also while a change is pending or if it fails.
void RuleRowView::showStored() {
    const QSignalBlocker quiet(m_choice);
    m_choice->setCurrentIndex(m_row.choice == Choice::putBack ? putBackItem
                              : m_row.choice == Choice::leaveAlone
                                  ? leaveAloneItem
                                  : m_choice->findData(qt(m_row.displayUUID)));
    m_choice->setToolTip(m_choice->currentText());
    m_last->setChecked(m_row.isPlacedLast);
}

void RuleRowView::chooseDisplay(const std::string& uuid) {
    const auto display = std::ranges::find(m_displays, uuid, &DisplayInfo::uuid);
    RulesContent::Row wanted = m_row;
    wanted.choice = Choice::keepOnDisplay;
    wanted.displayUUID = uuid;
    wanted.displayName = display == m_displays.end() ? m_row.displayName : display->name;
    if (wanted != m_row) {
        onChanged(wanted);
    }
    // The drawing shows what is stored.
    m_picker->show(qt(m_row.appName), m_displays, m_row.displayUUID);
}

void RuleRowView::showPicker() {
    const bool isWanted = m_row.choice == Choice::keepOnDisplay || m_isHovered ||
                          (focusWidget() != nullptr && focusWidget()->hasFocus());
    m_picker->setVisible(isWanted && !m_displays.empty());
}

bool RuleRowView::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Wheel && object == m_choice) {
        // The list scrolls instead.
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::FocusIn) {
        m_picker->setVisible(!m_displays.empty());
        update();
    } else if (event->type() == QEvent::FocusOut) {
        // The next one to have the focus may be in this row.
        QMetaObject::invokeMethod(
            this,
            [this] {
                showPicker();
                update();
            },
            Qt::QueuedConnection);
    }
    return QWidget::eventFilter(object, event);
}

void RuleRowView::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    m_isHovered = true;
    showPicker();
    update();
}

void RuleRowView::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    m_isHovered = false;
    showPicker();
    update();
}

void RuleRowView::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    if (m_isHovered) {
        painter.fillRect(rect(), colors.hover);
    }
    painter.fillRect(QRect(0, height() - 1, width(), 1), colors.hairline);
    const int side = Metrics::points(*this, iconSide);
    const QRect square(Metrics::points(*this, margin), (height() - side) / 2, side, side);
    m_looks.of(m_row.bundleID, m_row.appName)
        .icon.paint(&painter, QStyle::visualRect(layoutDirection(), rect(), square));
}

} // namespace vantrel
