#include "Vantrel/controller/DeskFlow.h"

#include "Vantrel/controller/LayoutFlow.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

DeskFlow::DeskFlow(ControllerContext& context, ControllerStores& stores)
    : m_context(context), m_stores(stores), m_observer(context.publisher.add([this](Topics changed) {
          if (changed.containsAnyOf({Topic::desk, Topic::layouts, Topic::stashes, Topic::history})) {
              show();
          }
      })) {
    // In the same turn, so that observers hear of both at once.
    m_context.onLayoutsChanged = [this] { show(); };
    show();
}

DeskFlow::~DeskFlow() {
    m_context.publisher.remove(m_observer);
}

void DeskFlow::show() {
    const PublishedState& state = m_context.state();
    const auto layouts = m_stores.layouts.allLayouts();
    const auto log = m_stores.restoreLog.load();
    const auto activeLayoutName = [this](const std::string& configID) {
        return m_stores.layouts.activeLayoutName(configID);
    };
    auto desks = RememberedDesks::of(
        {.layouts = layouts, .stashes = state.stashes, .log = log, .activeLayoutName = activeLayoutName},
        {state.configID, state.deskName(), state.displays});
    if (desks != state.desks) {
        m_context.publisher.publish<DesksTopic>([&](auto& topic) {
            topic.desks = std::move(desks);
            ++topic.desksVersion;
        });
    }
}

std::optional<LayoutChange> DeskFlow::problemWithName(const std::string& configID,
                                                      const std::string& newName) const {
    using Kind = LayoutChange::Kind;
    if (!LayoutFlow::validName(newName)) {
        return LayoutChange{Kind::invalidName};
    }
    return m_context.store.layouts(configID).empty() ? std::optional(LayoutChange{Kind::noLayout})
                                                     : std::nullopt;
}

LayoutChange DeskFlow::rename(const std::string& configID, const std::string& newName) {
    using Kind = LayoutChange::Kind;
    if (const auto problem = problemWithName(configID, newName)) {
        return *problem;
    }
    if (!m_context.store.renameDesk(configID, LayoutFlow::validName(newName).value())) {
        return {Kind::writeFailed};
    }
    // Earlier captures have the former name.
    m_context.gate.noteEdit();
    m_context.showStoredLayouts();
    m_context.refreshStatus();
    show();
    return {Kind::done};
}

LayoutChange DeskFlow::forget(const std::string& configID) {
    using Kind = LayoutChange::Kind;
    const bool isPresent = configID == m_context.state().configID;
    Forgotten forgotten{.records = m_stores.layouts.deskRecords(configID),
                        .stashes = m_stores.stashes.allStashes(),
                        .lastAppliedScene = m_stores.scenes.lastAppliedSceneID(configID)};
    std::erase_if(forgotten.stashes, [&](const Stash& stash) { return stash.configID != configID; });
    if (forgotten.records.layouts.empty()) {
        return {Kind::noLayout};
    }
    if (isPresent && m_context.gate.isRestoring()) {
        return {Kind::restoreInFlight};
    }
    if (!m_stores.layouts.forgetDesk(configID)) {
        return {Kind::writeFailed};
    }
    if (!m_stores.stashes.removeAllOf(configID)) {
        std::ignore = m_stores.layouts.putBackDesk(configID, forgotten.records);
        return {Kind::writeFailed};
    }
    m_stores.scenes.forgetLastAppliedScene(configID);
    m_context.strays.forget(configID);
    m_context.onNoted();
    const std::string name = forgotten.records.layouts.front().name;
    m_context.log(fmt::format("desk forgotten: {} ({})", name, configID));
    m_context.deletions.add(trf("the desk \"{}\"", name), [this, configID, forgotten = std::move(forgotten)] {
        return putBack(configID, forgotten);
    });
    // `configID` may refer to published state, which changes from here on.
    const auto& offer = m_context.state().sameDeskOffer;
    if (offer && offer->configID == configID) {
        m_context.publisher.publish<DeskTopic>([](auto& topic) { topic.sameDeskOffer.reset(); });
    }
    storedChanged();
    return {Kind::done};
}

std::expected<void, std::string> DeskFlow::putBack(const std::string& configID, const Forgotten& forgotten) {
    const auto isLearned = [](const Layout& layout) {
        return layout.layoutName == Layout::defaultName && !layout.isPinned();
    };
    // One that was only learned since gives way.
    if (!std::ranges::all_of(m_stores.layouts.layouts(configID), isLearned)) {
        return std::unexpected(
            trf("The desk \"{}\" has layouts that you have made since. Delete or rename them first.",
                forgotten.records.layouts.front().name));
    }
    if (!m_stores.layouts.putBackDesk(configID, forgotten.records) ||
        !m_stores.stashes.putBackAll(forgotten.stashes) ||
        (forgotten.lastAppliedScene && !m_stores.scenes.lastAppliedSceneID(configID) &&
         !m_stores.scenes.putBackLastAppliedScene(*forgotten.lastAppliedScene, configID))) {
        storedChanged();
        return std::unexpected(tr("The desk could not be written to disk completely. Try again."));
    }
    m_context.log("desk put back: " + configID);
    storedChanged();
    if (configID == m_context.state().configID) {
        // Otherwise the windows as they are now would be learned into it.
        onPresentDeskPutBack();
    }
    return {};
}

void DeskFlow::storedChanged() {
    // Earlier captures belong to what was there before.
    m_context.gate.noteEdit();
    onStoredChanged();
    show();
}

} // namespace vantrel
