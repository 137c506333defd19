#include "Vantrel/interface/editor/BoxInspector.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "Vantrel/interface/editor/ZoneButton.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/studio/EditorDrag.h"
#include "VantrelCore/studio/Rehoming.h"
#include "VantrelCore/studio/SizeLimit.h"
#include "VantrelCore/studio/TypedPlace.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr double iconSide = 32;

Label* caption(const QString& text, QWidget* buddy, QWidget* parent) {
    auto* const label = new Label(Label::Role::second, parent);
    label->show(text);
    label->setBuddy(buddy);
    return label;
}

// One of two that exclude each other.
class UnitButton final : public QAbstractButton {
public:
    UnitButton(const QString& text, const QString& name, QWidget* parent) : QAbstractButton(parent) {
        setText(text);
        setAccessibleName(name);
        setToolTip(name);
        setCheckable(true);
        setFocusPolicy(Qt::StrongFocus);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {fontMetrics().horizontalAdvance(text()) + Metrics::points(*this, 20),
                std::max(Metrics::points(*this, 26), fontMetrics().height() + 4)};
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto colors = DeskColors::of(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.setPen(hasFocus() ? QPen(colors.accent, 2)
                                  : QPen(DeskColors::translucent(colors.text, 0.16), 1));
        painter.setBrush(isChecked() ? colors.selection : palette().color(QPalette::Button));
        painter.drawRoundedRect(hasFocus() ? plate.adjusted(0.5, 0.5, -0.5, -0.5) : plate, 5, 5);
        painter.setFont(Metrics::scaled(font(), 0.92, isChecked() ? QFont::DemiBold : QFont::Normal));
        painter.setPen(isEnabled() ? colors.text : palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(rect(), Qt::AlignCenter, text());
    }
};

} // namespace

BoxInspector::BoxInspector(ApplicationLooks& looks, QWidget* parent) : QWidget(parent), m_looks(looks) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(points(4));
    column->addLayout(heading());
    column->addSpacing(points(8));

    m_title = new QLineEdit(this);
    m_title->setMinimumHeight(points(30));
    m_title->setAccessibleName(qtr("Title to match"));
    m_title->setPlaceholderText(qtr("Any title"));
    connect(m_title, &QLineEdit::editingFinished, this, [this] {
        if (!m_isShowing && m_draft != nullptr && m_draft->box(m_shown) != nullptr) {
            onCommand(SceneDraft::Retitle{m_shown, m_title->text().toStdString()});
        }
    });
    column->addWidget(caption(qtr("Title to match"), m_title, this));
    column->addWidget(m_title);
    column->addSpacing(points(6));

    m_display = new QComboBox(this);
    m_display->setMinimumHeight(points(30));
    m_display->setAccessibleName(qtr("Display"));
    m_display->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_display->setMinimumContentsLength(12);
    connect(m_display, &QComboBox::activated, this, [this](int index) { moveToDisplay(index); });
    column->addWidget(caption(qtr("Display"), m_display, this));
    column->addWidget(m_display);
    column->addSpacing(points(6));

    column->addLayout(numbers());
    m_fact = new Label(Label::Role::second, this);
    m_problem = new Label(Label::Role::warning, this);
    column->addWidget(m_fact);
    column->addWidget(m_problem);
    column->addSpacing(points(6));
    column->addLayout(zones());
    column->addSpacing(points(6));
    column->addLayout(order());
    column->addSpacing(points(8));
    auto* const slot = new QHBoxLayout;
    m_isSlot = new Switch(this);
    m_isSlot->setAccessibleName(qtr("Open when it is missing"));
    connect(m_isSlot, &Switch::clicked, this,
            [this](bool isSlot) { onCommand(SceneDraft::SetGhost{m_shown, isSlot}); });
    auto* const slotText = new Label(Label::Role::text, this);
    slotText->show(qtr("Open when it is missing"));
    slot->addWidget(m_isSlot);
    slot->addWidget(slotText, 1);
    column->addLayout(slot);
}

int BoxInspector::points(double length) const {
    return Metrics::points(*this, length);
}

QLayout* BoxInspector::heading() {
    auto* const row = new QHBoxLayout;
    m_icon = new QLabel(this);
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(0);
    m_name = new Label(Label::Role::heading, this);
    m_name->setElided(true);
    m_order = new Label(Label::Role::second, this);
    m_order->setElided(true);
    texts->addWidget(m_name);
    texts->addWidget(m_order);
    auto* const remove = new SymbolButton("trash", qtr("Remove from the scene"), 30, this);
    connect(remove, &QToolButton::clicked, this, [this] { onCommand(SceneDraft::Remove{{m_shown}}); });
    row->addWidget(m_icon);
    row->addSpacing(points(4));
    row->addLayout(texts, 1);
    row->addWidget(remove);
    return row;
}

QLayout* BoxInspector::numbers() {
    auto* const grid = new QGridLayout;
    grid->setSpacing(points(6));
    auto* const top = new QHBoxLayout;
    top->setSpacing(0);
    auto* const units = new QButtonGroup(this);
    const auto unit = [&](const QString& text, const QString& name) {
        auto* const button = new UnitButton(text, name, this);
        units->addButton(button);
        return button;
    };
    auto* const inPoints = unit(qtr("Points"), qtr("Numbers in points"));
    m_shares = unit("%", qtr("Numbers in percent of the display"));
    inPoints->setChecked(true);
    connect(m_shares, &QAbstractButton::toggled, this, [this] {
        if (m_draft != nullptr && m_draft->box(m_shown) != nullptr) {
            showFrame(record().frame);
        }
    });
    top->addWidget(caption(qtr("Place and size"), nullptr, this), 1);
    top->addWidget(inPoints);
    top->addWidget(m_shares);
    grid->addLayout(top, 0, 0, 1, 2);
    const std::array<std::pair<QString, QString>, 4> names{{{qtr("From the left"), qtr(" x")},
                                                            {qtr("From the top"), qtr(" y")},
                                                            {qtr("Width"), qtr(" wide")},
                                                            {qtr("Height"), qtr(" high")}}};
    for (std::size_t i = 0; i < m_numbers.size(); ++i) {
        auto* const field = new QDoubleSpinBox(this);
        field->setAccessibleName(names.at(i).first);
        field->setSuffix(names.at(i).second);
        field->setMinimumHeight(points(30));
        field->setKeyboardTracking(false);
        field->setRange(-100000, 100000);
        field->setDecimals(0);
        connect(field, &QDoubleSpinBox::valueChanged, this, [this, i] { typed(i); });
        grid->addWidget(field, 1 + static_cast<int>(i) / 2, static_cast<int>(i) % 2);
        m_numbers.at(i) = field;
    }
    return grid;
}

QLayout* BoxInspector::zones() {
    constexpr int columns = 5;
    auto* const column = new QVBoxLayout;
    column->setSpacing(points(4));
    auto* const grid = new QGridLayout;
    grid->setSpacing(points(5));
    int at = 0;
    for (const Zone zone : Zones::all) {
        auto* const button = new ZoneButton(zone, this);
        connect(button, &QToolButton::clicked, this, [this, zone] {
            if (const DisplayInfo* const display = home(record().frame)) {
                place(Zones::frame(zone, display->usableFrame(), EditorDrag::zoneGap));
            }
        });
        grid->addWidget(button, at / columns, at % columns);
        ++at;
    }
    grid->setColumnStretch(columns, 1);
    column->addWidget(caption(qtr("Zones"), nullptr, this));
    column->addLayout(grid);
    return column;
}

QLayout* BoxInspector::order() {
    using Step = SceneDraft::Order::Step;
    auto* const column = new QVBoxLayout;
    column->setSpacing(points(4));
    auto* const row = new QHBoxLayout;
    const auto button = [&](const QString& text, Step step) {
        auto* const made = new ActionButton("", ActionButton::Form::plain, this);
        made->setTexts(text, "");
        connect(made, &QPushButton::clicked, this,
                [this, step] { onCommand(SceneDraft::Order{m_shown, step}); });
        row->addWidget(made);
        return made;
    };
    m_forward = button(qtr("Forward"), Step::forward);
    m_backward = button(qtr("Backward"), Step::backward);
    column->addWidget(caption(qtr("Order"), nullptr, this));
    column->addLayout(row);
    return column;
}

const WindowRecord& BoxInspector::record() const {
    return m_draft->box(m_shown)->record;
}

const DisplayInfo* BoxInspector::home(const Rect& frame) const {
    return Rehoming::home(frame, m_draft->displays());
}

void BoxInspector::place(const Rect& frame) {
    onCommand(SceneDraft::Place{{{m_shown, frame}}});
}

void BoxInspector::moveToDisplay(int index) {
    const Rect frame = record().frame;
    const DisplayInfo* const from = home(frame);
    if (from == nullptr || index < 0) {
        return;
    }
    // To the same part of the other display.
    const Rect before = from->usableFrame();
    const Rect after = m_draft->displays().at(static_cast<std::size_t>(index)).usableFrame();
    const Point centre = frame.center();
    const Point moved{after.minX() + (centre.x - before.minX()) / before.width() * after.width(),
                      after.minY() + (centre.y - before.minY()) / before.height() * after.height()};
    place({{moved.x - frame.width() / 2, moved.y - frame.height() / 2}, frame.size});
}

std::array<double, 4> BoxInspector::values(const Rect& frame) const {
    const DisplayInfo* const display = home(frame);
    const Rect usable = display == nullptr ? Rect{} : display->usableFrame();
    const bool isShare = m_shares->isChecked() && !usable.isEmpty();
    const double across = isShare ? 100 / usable.width() : 1;
    const double down = isShare ? 100 / usable.height() : 1;
    return {(frame.minX() - usable.minX()) * across, (frame.minY() - usable.minY()) * down,
            frame.width() * across, frame.height() * down};
}

// Only the typed number changes; the others may be shown rounded.
void BoxInspector::typed(std::size_t number) {
    if (m_isShowing || m_draft == nullptr || m_draft->box(m_shown) == nullptr) {
        return;
    }
    Rect frame = record().frame;
    const DisplayInfo* const display = home(frame);
    if (display == nullptr) {
        return;
    }
    const Rect usable = display->usableFrame();
    const bool isAcross = number % 2 == 0;
    const double share = (isAcross ? usable.width() : usable.height()) / 100;
    const double length = m_numbers.at(number)->value() * (m_shares->isChecked() ? share : 1);
    switch (number) {
    case 0:
        frame.origin.x = usable.minX() + length;
        break;
    case 1:
        frame.origin.y = usable.minY() + length;
        break;
    case 2:
        frame.size.width = length;
        break;
    default:
        frame.size.height = length;
        break;
    }
    const auto labels = DisplayLabels::of(m_draft->displays());
    DisplayInfo labelled = *display;
    labelled.name = labels.at(display->uuid);
    const auto place = TypedPlace::of(frame, labelled, record().appName, m_draft->limits(m_shown));
    m_refusal = place.problem;
    m_refused = place.frame;
    this->place(place.frame);
    // Where nothing has changed, the number that was typed is taken back.
    show(*m_draft, m_shown);
}

void BoxInspector::showProblem() {
    if (m_refused != record().frame) {
        m_refusal.clear();
    }
    const auto limits = m_draft->limits(m_shown);
    const std::string& appName = record().appName;
    const std::string problem =
        m_refusal.empty() ? SizeLimit::problem(appName, limits, record().frame.size) : m_refusal;
    m_problem->show(qt(problem));
    m_problem->setVisible(!problem.empty());
    const std::string fact = problem.empty() ? SizeLimit::fact(appName, limits) : "";
    m_fact->show(qt(fact));
    m_fact->setVisible(!fact.empty());
}

void BoxInspector::showFrame(const Rect& frame) {
    m_isShowing = true;
    const auto shown = values(frame);
    const bool isShare = m_shares->isChecked();
    for (std::size_t i = 0; i < shown.size(); ++i) {
        m_numbers.at(i)->setDecimals(isShare ? 1 : 0);
        m_numbers.at(i)->setValue(shown.at(i));
    }
    if (const DisplayInfo* const display = home(frame)) {
        m_display->setCurrentIndex(static_cast<int>(display - m_draft->displays().data()));
    }
    m_isShowing = false;
}

void BoxInspector::show(const SceneDraft& draft, BoxID box) {
    m_isShowing = true;
    const bool isOther = m_draft != &draft || m_shown != box;
    m_draft = &draft;
    m_shown = box;
    const WindowRecord& shown = record();
    const auto stack = draft.stack();
    const auto at = std::ranges::find(stack, box) - stack.begin();
    if (isOther) {
        m_refusal.clear();
        m_icon->setPixmap(
            m_looks.of(shown.bundleID, shown.appName).icon.pixmap(points(iconSide), points(iconSide)));
    }
    m_name->show(qt(shown.appName));
    m_order->show(at == 0 ? qt(trf("{} of {}, in front", at + 1, stack.size()))
                          : qt(trf("{} of {}", at + 1, stack.size())));
    if (isOther || !m_title->hasFocus()) {
        m_title->setText(qt(shown.title));
    }
    const auto displays = DisplayLabels::labelled(draft.displays());
    QStringList names;
    std::ranges::transform(displays, std::back_inserter(names),
                           [](const DisplayInfo& display) { return qt(display.name); });
    QStringList present;
    for (int i = 0; i < m_display->count(); ++i) {
        present.append(m_display->itemText(i));
    }
    if (present != names) {
        m_display->clear();
        m_display->addItems(names);
    }
    m_forward->setEnabled(at > 0);
    m_backward->setEnabled(at + 1 < std::ssize(stack));
    m_isSlot->setChecked(shown.isGhost.value_or(false));
    showFrame(shown.frame);
    showProblem();
}

} // namespace vantrel
