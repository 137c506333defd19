#include "Vantrel/controller/SameDeskFlow.h"

#include "VantrelCore/model/DeskRenaming.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>

namespace vantrel {

namespace {

// The configID of the only desk with that name or configID; empty if there is none.
std::string deskNamed(const std::string& name, const std::vector<Layout>& layouts) {
    std::set<std::string> found;
    for (const Layout& layout : layouts) {
        if (layout.configID == name) {
            return name;
        }
        if (layout.name == name) {
            found.insert(layout.configID);
        }
    }
    return found.size() == 1 ? *found.begin() : "";
}

} // namespace

void SameDeskFlow::arrive(const std::string& configID, const std::vector<DisplayInfo>& displays) {
    if (displays.empty()) {
        offer(std::nullopt);
        return;
    }
    LayoutStore& store = m_context.store;
    const auto joined = store.presentDesk(configID);
    const auto found = SameDesk::find(store.allLayouts(), configID, displays);
    const bool isRecognised = found && found->isCertain && store.layouts(configID).empty();
    const std::string from = joined ? *joined : isRecognised ? found->configID : "";
    const auto saving = Saving::later([this](bool isWritten) {
        if (!isWritten) {
            // The stores are back to what they had.
            onMoved();
        }
    });
    if (!from.empty() && moveDesk(from, configID, displays, saving)) {
        m_context.log(fmt::format("desk recognised: {} is {} with other identifiers", configID, from));
        offer(std::nullopt);
        return;
    }
    offer(found);
    if (found) {
        m_context.log(fmt::format("desk: perhaps the same as {} ({})", found->name, found->configID));
    }
}

// Layouts last: until they have moved, the desk is recognised again.
bool SameDeskFlow::moveDesk(const std::string& from, const std::string& to,
                            const std::vector<DisplayInfo>& displays, const Saving& saving) {
    const auto former = m_context.store.layouts(from);
    const bool isMoved = m_stores.scenes.moveDesk(from, to, displays, saving) &&
                         m_stores.stashes.moveDesk(from, to, displays, saving) &&
                         m_context.store.moveDesk(from, to, displays, saving);
    if (isMoved) {
        // Earlier captures belong to the desk's former identifiers.
        m_context.gate.noteEdit();
        if (!former.empty()) {
            m_context.strays.moveDesk(from, to,
                                      DeskRenaming::counterparts(former.front().displays, displays));
            m_context.onNoted();
        }
        onDeskMoved(from, to, displays);
        onMoved();
    }
    return isMoved;
}

void SameDeskFlow::offer(const std::optional<SameDesk::Remembered>& desk) {
    if (m_context.state().sameDeskOffer != desk) {
        m_context.publisher.publish<DeskTopic>([&](auto& topic) { topic.sameDeskOffer = desk; });
    }
}

DeskJoining SameDeskFlow::join(const std::string& first, const std::string& second) {
    using Kind = DeskJoining::Kind;
    const auto layouts = m_context.store.allLayouts();
    const PublishedState& state = m_context.state();
    // The current desk may have no layout yet.
    const auto resolve = [&](const std::string& name) {
        const std::string desk = deskNamed(name, layouts);
        const bool isCurrent =
            desk.empty() && !state.configID.empty() && (name == state.configID || name == state.configName);
        return isCurrent ? state.configID : desk;
    };
    const bool isOffered = first.empty() && second.empty();
    if (isOffered && !state.sameDeskOffer) {
        return {.kind = Kind::nothingOffered};
    }
    const std::string a = isOffered ? state.sameDeskOffer->configID : resolve(first);
    const std::string b = isOffered ? state.configID : resolve(second);
    if (a.empty() || b.empty()) {
        return {.kind = Kind::noSuchDesk, .name = a.empty() ? first : second};
    }
    if (a == b) {
        return {.kind = Kind::alreadyOne};
    }
    if (m_context.gate.isRestoring()) {
        return {.kind = Kind::restoreInFlight};
    }
    const std::string to = a == state.configID ? a : b;
    const std::string from = to == a ? b : a;
    const auto displaysOf = [&](const std::string& desk) {
        const auto layout = std::ranges::find(layouts, desk, &Layout::configID);
        return desk == state.configID || layout == layouts.end() ? state.displays : layout->displays;
    };
    const auto displays = displaysOf(to);
    if (SameDesk::likeness(displaysOf(from), displays) == SameDesk::Likeness::different) {
        return {.kind = Kind::differentDisplays};
    }
    if (!moveDesk(from, to, displays, {})) {
        return {.kind = Kind::writeFailed};
    }
    m_context.log(fmt::format("desks joined: {} is now {}", from, to));
    if (to == state.configID) {
        offer(std::nullopt);
    }
    return {.kind = Kind::done, .isCurrent = to == state.configID};
}

} // namespace vantrel
