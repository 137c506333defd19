#include "VantrelCore/studio/SceneDraft.h"

#include "VantrelCore/studio/Rehoming.h"
#include "VantrelCore/studio/SizeLimit.h"
#include "VantrelCore/windows/CascadeLayout.h"

#include <algorithm>
#include <cmath>
#include <ranges>
#include <utility>

namespace vantrel {

namespace {

// A window cannot stand between two points. What has not changed stays as it was captured.
Rect wholePoints(const Rect& wanted, const Rect& before) {
    const auto whole = [](double length, double former) {
        return length == former ? former : std::round(length);
    };
    return {{whole(wanted.minX(), before.minX()), whole(wanted.minY(), before.minY())},
            {whole(wanted.width(), before.width()), whole(wanted.height(), before.height())}};
}

} // namespace

// Carries out one command on a copy of the present state.
class SceneDraft::Editor {
public:
    Editor(SceneDraft& draft, State& state) : m_draft(draft), m_state(state) {}

    std::vector<BoxID> operator()(const Place& place) {
        for (const auto& [id, frame] : place.frames) {
            if (Box* const box = find(id)) {
                setFrame(box->record, frame);
            }
        }
        return {};
    }

    std::vector<BoxID> operator()(const Add& add) {
        std::vector<BoxID> added;
        for (const WindowRecord& record : add.records) {
            added.push_back(insert(record));
        }
        return added;
    }

    std::vector<BoxID> operator()(const Remove& remove) {
        std::erase_if(m_state.boxes, [&](const Box& box) { return remove.boxes.contains(box.id); });
        return {};
    }

    std::vector<BoxID> operator()(const Duplicate& duplicate) {
        std::vector<WindowRecord> copies;
        // The front-most is added last.
        for (const BoxID id : stack() | std::views::reverse) {
            if (const Box* const box = find(id); box != nullptr && duplicate.boxes.contains(id)) {
                copies.push_back(box->record);
                copies.back().frame.origin.x += CascadeLayout::defaultStep;
                copies.back().frame.origin.y += CascadeLayout::defaultStep;
            }
        }
        return (*this)(Add{std::move(copies)});
    }

    std::vector<BoxID> operator()(const Retitle& retitle) {
        if (Box* const box = find(retitle.box)) {
            box->record.title = retitle.title;
        }
        return {};
    }

    std::vector<BoxID> operator()(const SetGhost& ghost) {
        if (Box* const box = find(ghost.box);
            box != nullptr && box->record.isGhost.value_or(false) != ghost.isGhost) {
            box->record.isGhost = ghost.isGhost;
        }
        return {};
    }

    std::vector<BoxID> operator()(const Order& order) {
        auto ids = stack();
        const auto found = std::ranges::find(ids, order.box);
        if (found == ids.end()) {
            return {};
        }
        switch (order.step) {
        case Order::Step::forward:
            if (found != ids.begin()) {
                std::iter_swap(found, found - 1);
            }
            break;
        case Order::Step::backward:
            if (found + 1 != ids.end()) {
                std::iter_swap(found, found + 1);
            }
            break;
        case Order::Step::toFront:
            std::rotate(ids.begin(), found, found + 1);
            break;
        case Order::Step::toBack:
            std::rotate(found, found + 1, ids.end());
            break;
        }
        if (ids != stack()) {
            number(ids);
        }
        return {};
    }

    std::vector<BoxID> operator()(const Replace& replace) {
        m_state.boxes.clear();
        std::vector<BoxID> added;
        for (const WindowRecord& record : replace.records) {
            added.push_back(++m_draft.m_lastID);
            m_state.boxes.push_back({added.back(), record});
        }
        return added;
    }

    std::vector<BoxID> operator()(const SetOpensMissingApps& set) {
        if (m_state.opensMissingApps.value_or(false) != set.opens) {
            m_state.opensMissingApps = set.opens;
        }
        return {};
    }

    std::vector<BoxID> operator()(const SetWallpaper& set) {
        auto pictures = m_state.wallpaper.value_or(SceneWallpaper{});
        if (set.file) {
            pictures.perDisplay[set.display] = *set.file;
        } else {
            pictures.perDisplay.erase(set.display);
        }
        if (pictures != m_state.wallpaper.value_or(SceneWallpaper{})) {
            m_state.wallpaper = pictures.perDisplay.empty() ? std::nullopt : std::optional(pictures);
        }
        return {};
    }

private:
    [[nodiscard]] Box* find(BoxID id) {
        const auto found = std::ranges::find(m_state.boxes, id, &Box::id);
        return found == m_state.boxes.end() ? nullptr : &*found;
    }

    // Front-most first.
    [[nodiscard]] std::vector<BoxID> stack() const {
        auto boxes = m_state.boxes;
        std::ranges::stable_sort(boxes, {}, [](const Box& box) { return box.record.zOrder; });
        std::vector<BoxID> ids;
        std::ranges::transform(boxes, std::back_inserter(ids), &Box::id);
        return ids;
    }

    void number(const std::vector<BoxID>& ids) {
        for (std::size_t i = 0; i < ids.size(); ++i) {
            find(ids[i])->record.zOrder = static_cast<std::int64_t>(i);
        }
    }

    BoxID insert(WindowRecord record) {
        auto ids = stack();
        const BoxID id = ++m_draft.m_lastID;
        record.frame = wholePoints(record.frame, {});
        setFrame(record, record.frame);
        m_state.boxes.push_back({id, std::move(record)});
        ids.insert(ids.begin(), id);
        number(ids);
        return id;
    }

    void setFrame(WindowRecord& record, const Rect& wanted) {
        const auto& displays = m_draft.displays();
        const Rect placed =
            Rehoming::placed(wholePoints(withAcceptedSize(record, wanted), record.frame), displays);
        const DisplayInfo* const home = Rehoming::home(placed, displays);
        if (record.frame == placed && home != nullptr && record.displayUUID == home->uuid) {
            return;
        }
        record.frame = placed;
        if (home != nullptr) {
            record.displayUUID = home->uuid;
        }
        // Placed by hand, it is neither maximised nor full screen any more.
        record.states = {};
        record.normalFrame.reset();
    }

    [[nodiscard]] Rect withAcceptedSize(const WindowRecord& record, Rect wanted) const {
        const auto known = m_draft.m_limits.find(record.bundleID);
        if (known == m_draft.m_limits.end() || wanted.size == record.frame.size) {
            return wanted;
        }
        const Size accepted = SizeLimit::accepted(known->second, wanted.size);
        // The edges that were not dragged stay.
        if (std::abs(wanted.maxX() - record.frame.maxX()) < 0.5) {
            wanted.origin.x = wanted.maxX() - accepted.width;
        }
        if (std::abs(wanted.maxY() - record.frame.maxY()) < 0.5) {
            wanted.origin.y = wanted.maxY() - accepted.height;
        }
        wanted.size = accepted;
        return wanted;
    }

    SceneDraft& m_draft;
    State& m_state;
};

SceneDraft::SceneDraft(Scene scene, Limits limits)
    : m_original(std::move(scene)), m_limits(std::move(limits)) {
    m_states.push_back(state(m_original));
}

SceneDraft::State SceneDraft::state(const Scene& scene) {
    State state{.boxes = {}, .opensMissingApps = scene.opensMissingApps, .wallpaper = scene.wallpaper};
    for (const WindowRecord& record : scene.layout.windows) {
        state.boxes.push_back({++m_lastID, record});
    }
    return state;
}

Scene SceneDraft::scene() const {
    return mergedInto(m_original);
}

Scene SceneDraft::mergedInto(const Scene& stored) const {
    Scene merged = stored;
    merged.layout.windows.clear();
    std::ranges::transform(boxes(), std::back_inserter(merged.layout.windows), &Box::record);
    merged.opensMissingApps = current().opensMissingApps;
    merged.wallpaper = current().wallpaper;
    return merged;
}

const SceneDraft::Box* SceneDraft::box(BoxID id) const {
    const auto found = std::ranges::find(boxes(), id, &Box::id);
    return found == boxes().end() ? nullptr : &*found;
}

std::vector<SceneDraft::BoxID> SceneDraft::stack() const {
    auto sorted = boxes();
    std::ranges::stable_sort(sorted, {}, [](const Box& box) { return box.record.zOrder; });
    std::vector<BoxID> ids;
    std::ranges::transform(sorted, std::back_inserter(ids), &Box::id);
    return ids;
}

AppSizeBehavior::Classification SceneDraft::limits(BoxID id) const {
    const Box* const found = box(id);
    const auto known = found == nullptr ? m_limits.end() : m_limits.find(found->record.bundleID);
    return known == m_limits.end() ? AppSizeBehavior::Flexible{} : known->second;
}

Size SceneDraft::minimum(BoxID id) const {
    return SizeLimit::smallest(limits(id));
}

std::vector<SceneDraft::BoxID> SceneDraft::apply(const Command& command) {
    State next = current();
    auto added = std::visit(Editor(*this, next), command);
    if (next == current()) {
        return {};
    }
    m_states.resize(m_position + 1);
    if (m_savedPosition > m_position) {
        m_savedPosition.reset();
    }
    m_states.push_back(std::move(next));
    ++m_position;
    return added;
}

void SceneDraft::undo() {
    m_position -= canUndo() ? 1 : 0;
}

void SceneDraft::redo() {
    m_position += canRedo() ? 1 : 0;
}

bool SceneDraft::isDirty() const {
    return scene() != m_original;
}

bool SceneDraft::conflictsWith(const Scene& stored) const {
    return stored.layout.windows != m_original.layout.windows ||
           stored.opensMissingApps != m_original.opensMissingApps || stored.wallpaper != m_original.wallpaper;
}

std::size_t SceneDraft::changeCount() const {
    // The state that was saved may have been undone and replaced.
    const std::size_t saved = m_savedPosition.value_or(0);
    return m_position > saved ? m_position - saved : saved - m_position;
}

void SceneDraft::saved(const Scene& stored) {
    m_original = stored;
    m_savedPosition = m_position;
}

void SceneDraft::storedIs(const Scene& stored) {
    m_original = stored;
}

} // namespace vantrel
