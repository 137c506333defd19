#include "Vantrel/interface/wallpaper/WallpaperFacts.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/pictures/Thumbnail.h"

#include <QVBoxLayout>

namespace vantrel {

WallpaperFacts::WallpaperFacts(Thumbnails* thumbnails, QWidget* parent)
    : QWidget(parent), m_thumbnails(thumbnails) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::points(*this, 4));
    m_rows = new QVBoxLayout;
    m_rows->setSpacing(Metrics::points(*this, 4));
    column->addLayout(m_rows);
    m_change = new ActionButton("", ActionButton::Form::plain, this);
    m_change->setTexts(qtr("Change…"), "");
    m_change->setAccessibleName(qtr("Change the wallpaper"));
    m_change->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_change, &QPushButton::clicked, this, [this] { onChange(); });
    column->addWidget(m_change);
}

void WallpaperFacts::show(const std::vector<WallpaperContent::Fact>& facts) {
    if (m_facts == facts) {
        return;
    }
    m_facts = facts;
    while (QLayoutItem* const item = m_rows->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    for (const auto& fact : facts) {
        add(fact);
    }
    if (facts.empty()) {
        auto* const none = new Label(Label::Role::quiet, this);
        none->show(qtr("Stays as it is"));
        none->setMinimumHeight(Metrics::points(*this, 30));
        m_rows->addWidget(none);
    }
}

void WallpaperFacts::add(const WallpaperContent::Fact& fact) {
    auto* const row = new QWidget(this);
    auto* const line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Metrics::points(*this, 10));
    auto* const picture = new Thumbnail(m_thumbnails, fact.path,
                                        QSize(Metrics::points(*this, 54), Metrics::points(*this, 30)), row);
    auto* const label = new Label(Label::Role::text, row);
    label->setElided(true);
    const auto text = [fact](const QString& name) {
        return fact.display.empty() ? qtr("%1, every display").arg(name) : name + " · " + qt(fact.display);
    };
    label->show(text(qt(fact.name)));
    picture->onLoaded = [label, text, name = fact.name](FileThumbnail::State state) {
        label->show(text(qt(state == FileThumbnail::State::gone ? trf("{} is gone", name) : name)));
    };
    line->addWidget(picture);
    line->addWidget(label, 1);
    m_rows->addWidget(row);
}

} // namespace vantrel
