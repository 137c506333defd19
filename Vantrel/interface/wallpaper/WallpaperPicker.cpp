#include "Vantrel/interface/wallpaper/WallpaperPicker.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Hairline.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/desk/DeskColors.h"
#include "VantrelCore/scenes/SystemWallpaperCatalog.h"
#include "VantrelCore/scenes/WallpaperRecents.h"

#include <QCheckBox>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr double sideWidth = 236;
// Where there is less room for the pictures.
constexpr double narrowSide = 190;
constexpr double roomy = 640;
// Narrower than this, the displays stand above the pictures.
constexpr double twoColumns = 460;
constexpr double margin = 20;

// The first local file; empty without one.
std::string fileIn(const QMimeData& data) {
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) {
            return url.toLocalFile().toStdString();
        }
    }
    return "";
}

} // namespace

WallpaperPicker::WallpaperPicker(WallpaperServices services, QWidget* parent)
    : QWidget(parent), m_services(std::move(services)), m_recents(m_services.recents()) {
    setAcceptDrops(true);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_columns = new QBoxLayout(QBoxLayout::LeftToRight);
    m_columns->setSpacing(0);
    m_side = displaySide();
    m_columns->addWidget(m_side);
    m_columns->addWidget(pictureSide(), 1);
    column->addLayout(m_columns, 1);
    column->addWidget(new Hairline(this));
    column->addWidget(footer());
    m_services.readSystem([this, alive = std::weak_ptr(m_alive)](WallpaperServices::List found) {
        if (!alive.expired()) {
            m_known = std::move(found);
            refresh();
        }
    });
}

int WallpaperPicker::points(double length) const {
    return Metrics::points(*this, length);
}

QWidget* WallpaperPicker::displaySide() {
    auto* const side = new QWidget(this);
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(points(margin), points(margin), points(margin), points(16));
    column->setSpacing(points(8));
    m_title = new Label(Label::Role::heading, side);
    m_title->setElided(true);
    column->addWidget(m_title);
    auto* const caption = new Label(Label::Role::second, side);
    caption->show(qtr("Choose a display"));
    column->addWidget(caption);
    m_displays = new DisplayTiles(m_services.thumbnails, side);
    m_displays->onChosen = [this](const std::string& uuid) { chooseDisplay(uuid); };
    m_displays->onLoaded = [this] { showFacts(); };
    column->addWidget(m_displays);
    m_facts = new QWidget(side);
    auto* const facts = new QVBoxLayout(m_facts);
    facts->setContentsMargins(0, points(4), 0, points(4));
    facts->setSpacing(0);
    column->addWidget(m_facts);
    m_same = new QCheckBox(qtr("The same on every display"), side);
    connect(m_same, &QCheckBox::clicked, this, [this](bool isSame) { showSameOnAll(isSame); });
    column->addWidget(m_same);
    column->addStretch(1);
    return side;
}

QWidget* WallpaperPicker::pictureSide() {
    m_scroll = new QScrollArea(this);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->viewport()->setAutoFillBackground(false);
    auto* const inside = new QWidget(m_scroll);
    auto* const column = new QVBoxLayout(inside);
    // The tiles have room for their rings.
    column->setContentsMargins(points(margin) - points(5), points(16), points(margin) - points(5),
                               points(16));
    column->setSpacing(points(6));
    const auto heading = [&](const QString& text) {
        auto* const label = new Label(Label::Role::heading, inside);
        label->setContentsMargins(points(5), 0, points(5), 0);
        label->show(text);
        column->addWidget(label);
        return label;
    };
    const auto tiles = [&](const QString& name) {
        auto* const view = new WallpaperTiles(m_services.thumbnails, inside);
        view->setAccessibleName(name);
        view->onChosen = [this](const std::string& path) { choose(path); };
        view->onReached = [this, view](QRect place) {
            const QPoint at = view->mapTo(m_scroll->widget(), place.center());
            m_scroll->ensureVisible(at.x(), at.y(), 0, place.height() / 2 + points(8));
        };
        column->addWidget(view);
        return view;
    };
    m_recentTitle = heading(qtr("Used lately"));
    m_recent = tiles(qtr("Used lately"));
    heading(qtr("On this computer"));
    m_systemHint = new Label(Label::Role::quiet, inside);
    m_systemHint->setContentsMargins(points(5), 0, points(5), 0);
    column->addWidget(m_systemHint);
    m_system = tiles(qtr("On this computer"));
    column->addStretch(1);
    m_scroll->setWidget(inside);
    inside->setAutoFillBackground(false);
    return m_scroll;
}

QWidget* WallpaperPicker::footer() {
    auto* const bar = new QWidget(this);
    auto* const column = new QVBoxLayout(bar);
    column->setContentsMargins(points(margin), points(12), points(margin), points(12));
    m_message = new Label(Label::Role::problem, bar);
    m_message->hide();
    column->addWidget(m_message);
    auto* const row = new QHBoxLayout;
    row->setSpacing(points(8));
    const auto button = [&](const char* symbol, const QString& text) {
        auto* const made = new ActionButton(symbol, ActionButton::Form::plain, bar);
        made->setTexts(text, "");
        made->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        return made;
    };
    auto* const file = button("folder", qtr("Choose a file…"));
    connect(file, &QPushButton::clicked, this, [this] {
        m_services.chooseFile(*this, [this, alive = std::weak_ptr(m_alive)](const std::string& chosen) {
            if (!alive.expired()) {
                chooseFile(chosen);
            }
        });
    });
    m_none = button("none", qtr("None"));
    m_none->setToolTip(qtr("The scene leaves the wallpaper as it is"));
    connect(m_none, &QPushButton::clicked, this, [this] { choose(std::nullopt); });
    auto* const done = button("", qtr("Done"));
    done->setFilled(true);
    connect(done, &QPushButton::clicked, this, [this] { onDone(); });
    row->addWidget(file);
    row->addWidget(m_none);
    row->addStretch(1);
    row->addWidget(done);
    column->addLayout(row);
    return bar;
}

void WallpaperPicker::show(const Subject& subject) {
    const bool isOther = subject.displays != m_subject.displays;
    m_subject = subject;
    if (isOther) {
        const bool isSame = WallpaperContent::isSameOnAll(subject.displays, subject.wallpaper);
        m_same->setChecked(isSame && !subject.wallpaper.perDisplay.empty());
        m_display = m_same->isChecked() || subject.displays.empty() ? "" : subject.displays.front().uuid;
    }
    refresh();
}

void WallpaperPicker::chooseDisplay(const std::string& uuid) {
    m_same->setChecked(false);
    m_display = uuid;
    refresh();
}

void WallpaperPicker::showSameOnAll(bool isSame) {
    const std::string before = m_display;
    if (!isSame) {
        m_display = m_subject.displays.empty() ? "" : m_subject.displays.front().uuid;
        refresh();
        return;
    }
    m_display.clear();
    const auto chosen = m_subject.wallpaper.perDisplay.find(before);
    choose(chosen == m_subject.wallpaper.perDisplay.end() ? std::nullopt : std::optional(chosen->second));
}

void WallpaperPicker::refresh() {
    m_content = WallpaperContent::of({.displays = m_subject.displays,
                                      .wallpaper = m_subject.wallpaper,
                                      .display = m_display,
                                      .recents = m_recents,
                                      .system = m_known});
    m_title->show(qtr("Wallpaper of “%1”").arg(qt(m_subject.scene)));
    m_displays->show(m_content.displays, m_display);
    m_same->setVisible(m_subject.displays.size() > 1);
    m_recent->show(m_content.recent);
    m_recent->setVisible(!m_content.recent.empty());
    m_recentTitle->setVisible(!m_content.recent.empty());
    m_system->show(m_content.system);
    m_system->setVisible(!m_content.system.empty());
    m_systemHint->setVisible(m_content.system.empty());
    m_systemHint->show(!m_known           ? qtr("Looking for pictures…")
                       : m_known->empty() ? qtr("No pictures were found. Choose a file, or drop one here.")
                                          : qtr("All of them were used lately."));
    showFacts();
}

void WallpaperPicker::showFacts() {
    auto& column = *m_facts->layout();
    while (QLayoutItem* const item = column.takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    for (const auto& display : m_content.displays) {
        auto* const group = new QWidget(m_facts);
        auto* const lines = new QVBoxLayout(group);
        lines->setContentsMargins(0, points(4), 0, points(4));
        lines->setSpacing(points(2));
        auto* const name = new Label(Label::Role::strong, group);
        name->setElided(true);
        name->show(qt(display.info.name));
        lines->addWidget(name);
        const FileThumbnail* const found = m_displays->found(display.info.uuid);
        const bool isGone = found != nullptr && found->state == FileThumbnail::State::gone;
        auto* const fact = new Label(isGone ? Label::Role::warning : Label::Role::second, group);
        const QString file = QFileInfo(qt(display.path)).fileName();
        if (display.path.empty()) {
            fact->show(qtr("Stays as it is"));
        } else if (isGone) {
            fact->show(qtr("%1 is gone. It is kept until you choose another picture.").arg(file));
        } else if (found != nullptr && !found->fullSize.isEmpty()) {
            fact->show(QStringLiteral("%1 · %2 × %3")
                           .arg(file)
                           .arg(found->fullSize.width())
                           .arg(found->fullSize.height()));
        } else {
            fact->show(file);
        }
        lines->addWidget(fact);
        column.addWidget(group);
    }
}

void WallpaperPicker::choose(const std::optional<std::string>& file) {
    m_message->hide();
    std::vector<std::string> displays;
    for (const DisplayInfo& display : m_subject.displays) {
        if (m_display.empty() || m_display == display.uuid) {
            displays.push_back(display.uuid);
        }
    }
    for (const std::string& display : displays) {
        if (file) {
            m_subject.wallpaper.perDisplay[display] = *file;
        } else {
            m_subject.wallpaper.perDisplay.erase(display);
        }
    }
    refresh();
    onChosen(displays, file);
}

void WallpaperPicker::chooseFile(const std::string& file) {
    const QFileInfo info(qt(file));
    if (!info.isFile() || !SystemWallpaperCatalog::isWallpaperImage(info.fileName().toStdString())) {
        m_message->show(qtr("%1 is not a picture.").arg(info.fileName()));
        m_message->show();
        return;
    }
    m_recents = WallpaperRecents::with(m_recents, file);
    choose(file);
}

void WallpaperPicker::resizeEvent(QResizeEvent* /*event*/) {
    const bool isWide = width() >= points(twoColumns);
    m_columns->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const double wanted = width() >= points(roomy) ? sideWidth : narrowSide;
    m_side->setMinimumWidth(0);
    const int side = std::max(points(wanted), m_side->minimumSizeHint().width());
    m_side->setMinimumWidth(isWide ? side : 0);
    m_side->setMaximumWidth(isWide ? side : QWIDGETSIZE_MAX);
}

void WallpaperPicker::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        onDone();
        return;
    }
    QWidget::keyPressEvent(event);
}

void WallpaperPicker::dragEnterEvent(QDragEnterEvent* event) {
    if (!fileIn(*event->mimeData()).empty()) {
        event->acceptProposedAction();
    }
}

void WallpaperPicker::dropEvent(QDropEvent* event) {
    if (const std::string file = fileIn(*event->mimeData()); !file.empty()) {
        event->acceptProposedAction();
        chooseFile(file);
    }
}

void WallpaperPicker::paintEvent(QPaintEvent* /*event*/) {
    const auto colors = DeskColors::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.base);
    painter.fillRect(m_side->geometry(), colors.window);
    if (m_columns->direction() == QBoxLayout::LeftToRight) {
        const QRect side = m_side->geometry();
        const int edge = layoutDirection() == Qt::RightToLeft ? side.left() : side.right();
        painter.fillRect(QRect(edge, side.top(), 1, side.height()), colors.hairline);
    }
}

} // namespace vantrel
