#include "Vantrel/interface/editor/EditorInspector.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "VantrelCore/text/SceneExplanations.h"

#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace vantrel {

EditorInspector::EditorInspector(ApplicationLooks& looks, Thumbnails* thumbnails, QWidget* parent)
    : QWidget(parent) {
    auto* const column = new QVBoxLayout(this);
    const int margin = Metrics::points(*this, 16);
    column->setContentsMargins(margin, margin, margin, Metrics::points(*this, 12));
    m_scene = scenePart(thumbnails);
    m_box = new BoxInspector(looks, this);
    m_group = new GroupInspector(this);
    const auto forward = [this](const SceneDraft::Command& command) { onCommand(command); };
    m_box->onCommand = forward;
    m_group->onCommand = forward;
    for (QWidget* const part : std::initializer_list<QWidget*>{m_scene, m_box, m_group}) {
        column->addWidget(part);
    }
    column->addStretch(1);
}

QWidget* EditorInspector::scenePart(Thumbnails* thumbnails) {
    auto* const part = new QWidget(this);
    auto* const column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::points(*this, 4));
    m_count = new Label(Label::Role::heading, part);
    auto* const hint = new Label(Label::Role::second, part);
    hint->show(qtr("Select a window to see its place and size."));
    auto* const opens = new QHBoxLayout;
    m_opens = new Switch(part);
    m_opens->setAccessibleName(qtr("Open missing apps"));
    auto* const opensText = new Label(Label::Role::text, part);
    opensText->show(qtr("Open missing apps"));
    opens->addWidget(m_opens);
    opens->addWidget(opensText, 1);
    connect(m_opens, &Switch::clicked, this,
            [this](bool isOn) { onCommand(SceneDraft::SetOpensMissingApps{isOn}); });
    m_always = new Label(Label::Role::second, part);
    m_always->show(qt(vantrel::tr(SceneExplanations::alwaysOpensMissingApps)));
    column->addWidget(m_count);
    column->addWidget(hint);
    column->addSpacing(Metrics::points(*this, 8));
    column->addLayout(opens);
    column->addWidget(m_always);
    column->addSpacing(Metrics::points(*this, 12));
    auto* const caption = new Label(Label::Role::second, part);
    caption->show(qtr("Wallpaper"));
    m_wallpapers = new WallpaperFacts(thumbnails, part);
    m_wallpapers->onChange = [this] { onWallpapers(); };
    column->addWidget(caption);
    column->addWidget(m_wallpapers);
    return part;
}

void EditorInspector::show(const SceneDraft& draft, const std::set<BoxID>& selection, bool isReadOnly) {
    std::vector<BoxID> boxes;
    std::ranges::copy_if(draft.stack(), std::back_inserter(boxes),
                         [&](BoxID id) { return selection.contains(id); });
    m_scene->setVisible(boxes.empty());
    m_box->setVisible(boxes.size() == 1);
    m_group->setVisible(boxes.size() > 1);
    setEnabled(!isReadOnly);
    if (boxes.size() == 1) {
        m_box->show(draft, boxes.front());
    } else if (boxes.size() > 1) {
        m_group->show(draft, std::move(boxes));
    } else {
        const Scene scene = draft.scene();
        m_count->show(qt(trn("{} window", "{} windows", std::ssize(draft.boxes()))));
        m_opens->setChecked(scene.effectiveOpensMissingApps());
        m_opens->setEnabled(!scene.hasGhosts());
        m_always->setVisible(scene.hasGhosts());
        m_wallpapers->show(WallpaperContent::facts(draft.displays(), scene.wallpaper));
    }
}

void EditorInspector::showFrame(const Rect& frame) {
    if (!m_box->isHidden()) {
        m_box->showFrame(frame);
    }
}

} // namespace vantrel
