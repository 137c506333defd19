#include "Vantrel/interface/switcher/QuickSwitcherView.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/DarkSurface.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/symbols/Symbols.h"
#include "VantrelCore/scenes/SceneIconography.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCursor>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace vantrel {

namespace {

constexpr double radius = 16;
constexpr double cardRadius = 10;
constexpr double keyRadius = 4;
constexpr int mostColumns = 4;
// Of the screen, in either direction.
constexpr double roomShare = 0.9;

Qt::WindowFlags flagsFor(QuickSwitcherView::Kind kind) {
    const Qt::WindowFlags either =
        Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint;
    return kind == QuickSwitcherView::Kind::held
               ? either | Qt::ToolTip | Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus
               : either | Qt::Tool;
}

std::optional<HeldKeyboard::Key> meaning(const QKeyEvent& event) {
    using Kind = HeldKeyboard::Key::Kind;
    switch (event.key()) {
    case Qt::Key_Tab:
        return HeldKeyboard::Key{.kind = Kind::next};
    case Qt::Key_Backtab:
        return HeldKeyboard::Key{.kind = Kind::previous};
    case Qt::Key_Left:
    case Qt::Key_Up:
        return HeldKeyboard::Key{.kind = Kind::left};
    case Qt::Key_Right:
    case Qt::Key_Down:
        return HeldKeyboard::Key{.kind = Kind::right};
    case Qt::Key_Home:
        return HeldKeyboard::Key{.kind = Kind::first};
    case Qt::Key_End:
        return HeldKeyboard::Key{.kind = Kind::last};
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return HeldKeyboard::Key{.kind = Kind::enter};
    case Qt::Key_Escape:
        return HeldKeyboard::Key{.kind = Kind::escape};
    case Qt::Key_Backspace:
        return HeldKeyboard::Key{.kind = Kind::backspace};
    default:
        break;
    }
    // With Control held, a key's text is a control character.
    const QString text = event.text();
    if (!text.isEmpty() && text[0].isPrint()) {
        return HeldKeyboard::Key{.kind = Kind::text, .text = text.toStdString()};
    }
    const bool isCharacter = event.key() >= Qt::Key_Space && event.key() < Qt::Key_Escape;
    return isCharacter ? std::optional(HeldKeyboard::Key{
                             .kind = Kind::text, .text = QString(QChar(event.key())).toLower().toStdString()})
                       : std::nullopt;
}

// Without a role of its own, a window is only a client area to assistive technology.
QAccessibleInterface* accessible(const QString& /*key*/, QObject* object) {
    auto* const view = dynamic_cast<QuickSwitcherView*>(object);
    return view != nullptr ? new QAccessibleWidget(view, QAccessible::Dialog) : nullptr;
}

Qt::KeyboardModifier modifierOf(int key) {
    switch (key) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return Qt::MetaModifier;
    default:
        return Qt::NoModifier;
    }
}

} // namespace

// In points, for this widget's font; the drawings shrink until everything fits.
struct QuickSwitcherView::Lengths {
    int margin = 0;
    int cardWidth = 0;
    int cardHeight = 0;
    int cardPadding = 0;
    int gap = 0;
    QSize drawing;
    int row = 0;
    int hints = 0;
    int columns = 1;
    int rows = 0;

    [[nodiscard]] int width() const { return 2 * margin + columns * (cardWidth + gap) - gap; }
    [[nodiscard]] int height() const { return margin + rows * (cardHeight + gap) + hints; }
};

QuickSwitcherView::Lengths QuickSwitcherView::lengths() const {
    const auto scaled = [this](double scale) {
        const auto points = [&](double length) { return Metrics::points(*this, length); };
        Lengths lengths{.margin = points(16),
                        .cardWidth = points(28 + 224 * scale),
                        .cardPadding = points(14),
                        .gap = points(8),
                        .drawing = QSize(points(224 * scale), points(96 * scale)),
                        .row = points(24),
                        .hints = points(34)};
        lengths.cardHeight = 2 * lengths.cardPadding + lengths.drawing.height() + points(12) + lengths.row;
        lengths.columns = std::clamp((m_room.width() - 2 * lengths.margin + lengths.gap) /
                                         (lengths.cardWidth + lengths.gap),
                                     1, mostColumns);
        return lengths;
    };
    const int cards = static_cast<int>(m_strip.shown().size());
    Lengths lengths;
    for (const double scale : {1.0, 0.8, 0.6, 0.45}) {
        lengths = scaled(scale);
        lengths.columns = std::clamp(lengths.columns, 1, std::max(1, cards));
        lengths.rows = (cards + lengths.columns - 1) / lengths.columns;
        if (lengths.height() <= m_room.height()) {
            break;
        }
    }
    return lengths;
}

QuickSwitcherView::QuickSwitcherView(ApplicationLooks& looks, Kind kind, Handlers handlers)
    : QWidget(nullptr, flagsFor(kind)), m_looks(looks), m_kind(kind), m_handlers(std::move(handlers)) {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(accessible);
        return true;
    }();
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating, kind == Kind::held);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setPalette(DarkSurface::palette(palette()));
    setWindowTitle(qtr("Quick switcher"));
}

void QuickSwitcherView::show(const QuickSwitcherStrip& strip,
                             const std::map<std::string, DeskPicture>& pictures) {
    m_strip = strip;
    if (m_pictures != pictures) {
        m_pictures = pictures;
        m_drawings.clear();
    }
    const Scene* const selected = strip.selectedScene();
    const QString name = selected == nullptr ? hint() : QString::fromStdString(selected->name);
    if (name != accessibleName()) {
        setAccessibleName(name);
        QAccessibleEvent changed(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&changed);
    }
    place();
    update();
}

void QuickSwitcherView::open() {
    m_restingPointer = QCursor::pos();
    if (const QScreen* const screen = DarkSurface::screen()) {
        m_room = screen->availableGeometry().size() * roomShare;
    }
    place();
    QWidget::show();
    raise();
    if (m_kind == Kind::window) {
        activateWindow();
    }
}

QSize QuickSwitcherView::sizeHint() const {
    const Lengths each = lengths();
    const int hints = fontMetrics().horizontalAdvance(hint()) + 4 * each.margin;
    return {std::min(std::max(each.width(), hints), std::max(m_room.width(), each.width())), each.height()};
}

void QuickSwitcherView::place() {
    QRect frame(QPoint(), sizeHint());
    if (const QScreen* const screen = DarkSurface::screen()) {
        frame.moveCenter(screen->availableGeometry().center());
    }
    if (frame != geometry()) {
        setGeometry(frame);
        setMask(DarkSurface::mask(frame.size(), radius));
    }
}

QRect QuickSwitcherView::card(std::size_t index) const {
    const Lengths each = lengths();
    const int row = static_cast<int>(index) / each.columns;
    const int column = static_cast<int>(index) % each.columns;
    const int inRow = std::min(each.columns, static_cast<int>(m_strip.shown().size()) - row * each.columns);
    const int rowWidth = inRow * (each.cardWidth + each.gap) - each.gap;
    const QRect card((width() - rowWidth) / 2 + column * (each.cardWidth + each.gap),
                     each.margin + row * (each.cardHeight + each.gap), each.cardWidth, each.cardHeight);
    return QStyle::visualRect(layoutDirection(), rect(), card);
}

std::optional<std::size_t> QuickSwitcherView::cardAt(QPoint point) const {
    for (std::size_t index = 0; index < m_strip.shown().size(); ++index) {
        if (card(index).contains(point)) {
            return index;
        }
    }
    return std::nullopt;
}

const DeskPainter& QuickSwitcherView::drawing(const Scene& scene) {
    auto known = m_drawings.find(scene.id);
    if (known == m_drawings.end()) {
        const DeskPainter::Style style{.palette = palette(),
                                       .font = font(),
                                       .isRightToLeft = layoutDirection() == Qt::RightToLeft,
                                       .hasLabels = false,
                                       .hasNames = false};
        known =
            m_drawings.emplace(scene.id, DeskPainter(m_pictures[scene.id], lengths().drawing, style, m_looks))
                .first;
    }
    return known->second;
}

QString QuickSwitcherView::hint() const {
    const Scene* const selected = m_strip.selectedScene();
    if (m_strip.isEmpty()) {
        return qtr("No scene is saved on this desk yet. Arrange your windows, then save them as a scene in "
                   "the panel.");
    }
    if (selected == nullptr) {
        return qtr("No scene begins with “%1”.").arg(QString::fromStdString(m_strip.filter()));
    }
    const QString gap(6, ' ');
    const QString apply = (m_kind == Kind::held ? qtr("Release to apply %1") : qtr("Return to apply %1"))
                              .arg(QString::fromStdString(selected->name));
    const QString filter = !m_strip.filter().empty()
                               ? qtr("Only “%1”").arg(QString::fromStdString(m_strip.filter()))
                           : m_strip.shown().size() == 1 ? qtr("Save another scene to switch between them")
                                                         : qtr("Type to filter");
    return apply + gap + filter + gap + qtr("Esc to leave everything as it is");
}

void QuickSwitcherView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    DarkSurface::paint(painter, size(), radius);
    const auto shown = m_strip.shown();
    for (std::size_t index = 0; index < shown.size(); ++index) {
        paintCard(painter, index, *shown[index]);
    }
    paintHints(painter);
}

void QuickSwitcherView::paintCard(QPainter& painter, std::size_t index, const Scene& scene) {
    const Lengths each = lengths();
    const QRect frame = card(index);
    const bool isSelected = m_strip.selected() == index;
    const DeskColors colors = DeskColors::of(palette());
    if (isSelected) {
        painter.setPen(QPen(colors.accent, 2));
        painter.setBrush(DeskColors::translucent(colors.accent, 0.17));
        painter.drawRoundedRect(QRectF(frame).adjusted(1, 1, -1, -1), cardRadius, cardRadius);
    }
    painter.save();
    painter.translate(frame.left() + (frame.width() - each.drawing.width()) / 2.0,
                      frame.top() + each.cardPadding);
    drawing(scene).paint(painter, {});
    painter.restore();

    const auto inCard = [&](int left, int width) {
        const QRect part(frame.left() + left, frame.bottom() + 1 - each.cardPadding - each.row, width,
                         each.row);
        return QStyle::visualRect(layoutDirection(), frame, part);
    };
    const int symbol = Metrics::points(*this, 16);
    QRectF square(0, 0, symbol, symbol);
    int left = each.cardPadding;
    square.moveCenter(QRectF(inCard(left, symbol)).center());
    Symbols::paint(painter, Symbols::ofSystemSymbol(SceneIconography::symbol(scene.name)), square,
                   isSelected ? DarkSurface::linkText : DarkSurface::secondText);
    left += symbol + each.gap;

    int right = frame.width() - each.cardPadding;
    constexpr std::size_t digits = 10;
    painter.setFont(font());
    if (index < digits && m_strip.filter().empty()) {
        const int side = Metrics::points(*this, 20);
        right -= side;
        QRect key = inCard(right, side);
        key.setHeight(side);
        key.moveCenter(QPoint(key.center().x(), inCard(right, side).center().y()));
        painter.setPen(QColor(255, 255, 255, 51));
        painter.setBrush(QColor(255, 255, 255, 23));
        painter.drawRoundedRect(QRectF(key).adjusted(0.5, 0.5, -0.5, -0.5), keyRadius, keyRadius);
        painter.setPen(DarkSurface::text);
        painter.drawText(key, Qt::AlignCenter, QString::number((index + 1) % digits));
        right -= each.gap;
    }
    if (m_strip.isCurrent(scene)) {
        const QString now = qtr("now");
        painter.setFont(Metrics::scaled(font(), 0.92, QFont::Normal));
        const int width = QFontMetrics(painter.font(), this).horizontalAdvance(now);
        right -= width;
        painter.setPen(DarkSurface::secondText);
        painter.drawText(inCard(right, width), Qt::AlignCenter, now);
        right -= each.gap;
    }
    painter.setFont(Metrics::scaled(font(), 1.08, isSelected ? QFont::DemiBold : QFont::Medium));
    painter.setPen(DarkSurface::text);
    const QRect name = inCard(left, right - left);
    painter.drawText(
        name, static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter),
        QFontMetrics(painter.font(), this)
            .elidedText(QString::fromStdString(scene.name), Qt::ElideRight, name.width()));
}

void QuickSwitcherView::paintHints(QPainter& painter) {
    const int height = m_strip.shown().empty() ? this->height() : lengths().hints;
    painter.setFont(font());
    painter.setPen(DarkSurface::secondText);
    const QRect place = QRect(0, this->height() - height, width(), height).adjusted(16, 0, -16, 0);
    painter.drawText(place, Qt::AlignCenter, fontMetrics().elidedText(hint(), Qt::ElideRight, place.width()));
}

bool QuickSwitcherView::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress && m_kind == Kind::window) {
        // Tab would move the focus otherwise.
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    if (event->type() == QEvent::WindowDeactivate && m_kind == Kind::window) {
        m_handlers.left();
    }
    return QWidget::event(event);
}

void QuickSwitcherView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange) {
        m_drawings.clear();
        update();
    }
    QWidget::changeEvent(event);
}

void QuickSwitcherView::keyPressEvent(QKeyEvent* event) {
    if (const auto key = meaning(*event)) {
        m_handlers.pressed(*key);
    }
}

void QuickSwitcherView::keyReleaseEvent(QKeyEvent* event) {
    if (const auto modifier = modifierOf(event->key()); modifier != Qt::NoModifier) {
        m_handlers.released(modifier);
    }
}

void QuickSwitcherView::mouseMoveEvent(QMouseEvent* event) {
    if (m_restingPointer == event->globalPosition().toPoint()) {
        return;
    }
    m_restingPointer.reset();
    if (const auto index = cardAt(event->position().toPoint())) {
        m_handlers.pointed(*index);
    }
}

void QuickSwitcherView::mousePressEvent(QMouseEvent* event) {
    if (const auto index = cardAt(event->position().toPoint())) {
        m_handlers.clicked(*index);
    }
}

} // namespace vantrel
