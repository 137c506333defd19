#include "Vantrel/interface/editor/GroupInspector.h"

#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/studio/EditorDrag.h"
#include "VantrelCore/studio/Rehoming.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrel {

GroupInspector::GroupInspector(QWidget* parent) : QWidget(parent) {
    using GroupArrangement::Axis;
    using GroupArrangement::Form;
    using GroupArrangement::Line;
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::points(*this, 4));
    m_count = new Label(Label::Role::heading, this);
    m_home = new Label(Label::Role::second, this);
    column->addWidget(m_count);
    column->addWidget(m_home);
    const auto form = [this](Form to) { return [this, to] { arrange(to); }; };
    const auto line = [this](Line to) {
        return [this, to] { placeAll(GroupArrangement::aligned(to, frames())); };
    };
    const auto spread = [this](Axis axis) {
        return [this, axis] { placeAll(GroupArrangement::distributed(axis, frames())); };
    };
    const auto equal = [this](Axis axis) {
        return [this, axis] { placeAll(GroupArrangement::equalized(axis, boxes())); };
    };
    addPart(qtr("Fill the display"), {{qtr("Columns"), form(Form::columns)},
                                      {qtr("Rows"), form(Form::rows)},
                                      {qtr("Grid"), form(Form::grid)},
                                      {qtr("Main and stack"), form(Form::mainAndStack)},
                                      {qtr("Cascade"), form(Form::cascade)}});
    m_problem = new Label(Label::Role::warning, this);
    m_problem->hide();
    column->addWidget(m_problem);
    addPart(qtr("Align"), {{qtr("Left"), line(Line::left)},
                           {qtr("Right"), line(Line::right)},
                           {qtr("Top"), line(Line::top)},
                           {qtr("Bottom"), line(Line::bottom)},
                           {qtr("Centre across"), line(Line::centreAcross)},
                           {qtr("Centre down"), line(Line::centreDown)}});
    addPart(qtr("Space and size"), {{qtr("Space across"), spread(Axis::across)},
                                    {qtr("Space down"), spread(Axis::down)},
                                    {qtr("Equal widths"), equal(Axis::across)},
                                    {qtr("Equal heights"), equal(Axis::down)}});
}

void GroupInspector::addPart(const QString& title, const Buttons& buttons) {
    auto* const column = qobject_cast<QVBoxLayout*>(layout());
    auto* const label = new Label(Label::Role::second, this);
    label->show(title);
    column->addSpacing(Metrics::points(*this, 8));
    column->addWidget(label);
    auto* const grid = new QGridLayout;
    grid->setSpacing(Metrics::points(*this, 6));
    int at = 0;
    for (const auto& [text, act] : buttons) {
        auto* const button = new ActionButton("", ActionButton::Form::plain, this);
        button->setTexts(text, "");
        connect(button, &QPushButton::clicked, this, act);
        grid->addWidget(button, at / 2, at % 2);
        ++at;
    }
    column->addLayout(grid);
}

void GroupInspector::show(const SceneDraft& draft, std::vector<BoxID> boxes) {
    m_draft = &draft;
    if (boxes != m_boxes) {
        m_problem->hide();
    }
    m_boxes = std::move(boxes);
    m_count->show(qt(trn("{} window", "{} windows", std::ssize(m_boxes))));
    const auto displays = DisplayLabels::labelled(draft.displays());
    const DisplayInfo* const home = Rehoming::home(draft.box(m_boxes.front())->record.frame, displays);
    m_home->show(home == nullptr ? QString() : qt(trf("Arranged on {}", home->name)));
}

std::vector<GroupArrangement::Box> GroupInspector::boxes() const {
    std::vector<GroupArrangement::Box> all;
    for (const BoxID id : m_boxes) {
        all.push_back({m_draft->box(id)->record.frame, m_draft->minimum(id)});
    }
    return all;
}

std::vector<Rect> GroupInspector::frames() const {
    std::vector<Rect> all;
    std::ranges::transform(boxes(), std::back_inserter(all), &GroupArrangement::Box::frame);
    return all;
}

void GroupInspector::placeAll(const std::vector<Rect>& frames) {
    SceneDraft::Place place;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        place.frames[m_boxes[i]] = frames[i];
    }
    m_problem->hide();
    onCommand(place);
}

// On the display of the front-most box.
void GroupInspector::arrange(GroupArrangement::Form form) {
    const DisplayInfo* const display = Rehoming::home(frames().front(), m_draft->displays());
    if (display == nullptr) {
        return;
    }
    const auto arranged =
        GroupArrangement::arranged(form, boxes(), display->usableFrame(), EditorDrag::zoneGap);
    if (arranged) {
        placeAll(*arranged);
        return;
    }
    m_problem->show(qtr("These windows do not fit like that: some are never that small."));
    m_problem->show();
}

} // namespace vantrel
