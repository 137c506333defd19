#include "Vantrel/controller/LayoutFlow.h"

#include "Vantrel/controller/CaptureNow.h"
#include "VantrelCore/stores/UserEdit.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <fmt/format.h>
#include <optional>
#include <utility>

namespace vantrel {

std::optional<std::string> LayoutFlow::validName(const std::string& name) {
    const std::string valid = Unicode::validUtf8(name);
    const std::string_view trimmed = Unicode::trimmed(valid);
    if (trimmed.empty() || Unicode::characterCount(trimmed) > maxNameLength) {
        return std::nullopt;
    }
    return std::string(trimmed);
}

// Earlier captures belong to another name or layout.
void LayoutFlow::layoutsChanged() {
    m_context.gate.noteEdit();
    m_context.showStoredLayouts();
    m_context.refreshStatus();
}

bool LayoutFlow::switchLayout(const std::string& name, const RestoreOutcome::Done& done) {
    using Kind = RestoreOutcome::Kind;
    if (m_context.gate.isRestoring()) {
        m_context.log("switch layout skipped: a restore is in flight");
        return m_context.refuse(Kind::restoreInFlight, done);
    }
    m_context.refreshStatus();
    if (const auto hindrance = m_context.hindranceToMoving()) {
        return m_context.refuse(*hindrance, done);
    }
    const std::string desk = m_context.state().configID;
    const std::string former = m_context.state().activeLayoutName;
    if (!m_context.store.layout(desk, name)) {
        return m_context.refuse(Kind::noSuchLayout, done);
    }
    std::function<void()> undone;
    if (name != former) {
        if (!m_context.store.setActiveLayout(name, desk)) {
            return m_context.refuse(Kind::writeFailed, done);
        }
        m_learning.adoptPreChangeSnapshotIfNeeded();
        m_context.log(fmt::format("switch layout: {} to {}", former, name));
        layoutsChanged();
        m_left = std::make_shared<Left>(Left{desk, former, m_context.store.layout(desk, former)});
        undone = [this, left = m_left] { returnTo(*left); };
    }
    return restoreActive(std::move(undone), done);
}

// Recreates the layout if it has been deleted since. Without that, its window positions would be learned into
// another layout.
void LayoutFlow::returnTo(const Left& left) {
    if (left.layout && !m_context.store.layout(left.desk, left.name)) {
        Layout layout = *left.layout;
        layout.layoutName = left.name;
        m_context.store.save(layout, Saving::later());
    }
    m_context.store.setActiveLayout(left.name, left.desk, Saving::later([this](bool isWritten) {
                                        if (!isWritten) {
                                            m_context.log(
                                                "undo: the layout that was switched away from could "
                                                "not be written");
                                            layoutsChanged();
                                        }
                                    }));
    layoutsChanged();
}

bool LayoutFlow::restoreActive(std::function<void()> undone, const RestoreOutcome::Done& done) {
    const auto layout = m_context.layoutToRestore();
    if (!layout) {
        return m_context.refuse(RestoreOutcome::Kind::noSuchLayout, done);
    }
    m_runner.perform({.layout = *layout,
                      .displays = m_context.state().displays,
                      .reason = fmt::format("switch layout ({})", layout->layoutName),
                      .announcement = Announcement::announce,
                      .raising = RestoreEngine::Raising::raise},
                     {.undone = std::move(undone), .done = done});
    return true;
}

void LayoutFlow::restoreActiveLayout() {
    if (!m_context.hindranceToMoving()) {
        restoreActive({}, {});
    }
}

bool LayoutFlow::applyLayout(const Layout& layout, const RestoreOutcome::Done& done) {
    m_context.refreshStatus();
    if (const auto hindrance = m_context.hindranceToMoving()) {
        return m_context.refuse(*hindrance, done);
    }
    Layout fitted = m_context.fittedToDesk(layout);
    if (fitted.windows.empty()) {
        return m_context.refuse(RestoreOutcome::Kind::emptyLayout, done);
    }
    m_runner.perform({.layout = std::move(fitted),
                      .displays = m_context.state().displays,
                      .reason = fmt::format("apply layout ({})", layout.layoutName),
                      .announcement = Announcement::announce,
                      .raising = RestoreEngine::Raising::raise},
                     {.done = done});
    return true;
}

void LayoutFlow::saveLayoutAs(const std::string& name, std::function<void(const SaveOutcome&)> done) {
    const auto tell = [this, done = std::move(done)](const SaveOutcome& outcome) {
        m_context.log("save layout: " + inEnglish([&] { return outcome.text(); }));
        if (outcome.kind != SaveOutcome::Kind::saved) {
            m_context.announce(HUD::Refused{outcome.text()});
        }
        if (done) {
            done(outcome);
        }
    };
    const auto wanted = validName(name);
    if (const auto problem = problemWithNewName(name)) {
        tell(*problem);
        return;
    }
    CaptureNow::perform(
        m_context, DeskCapture::Reach::every, [this, tell, wanted](const CaptureNow::Result& captured) {
            tell(captured ? store(*captured, *wanted) : SaveOutcome{.kind = captured.error()});
        });
}

std::optional<SaveOutcome> LayoutFlow::problemWithNewName(const std::string& name) const {
    const auto wanted = validName(name);
    if (!wanted) {
        return SaveOutcome{.kind = SaveOutcome::Kind::invalidName};
    }
    const PublishedState& state = m_context.state();
    const auto stored = m_context.store.layout(state.configID, *wanted);
    return stored && stored->isPinned() && state.activeLayoutName != *wanted
               ? std::optional(SaveOutcome{.kind = SaveOutcome::Kind::pinned})
               : std::nullopt;
}

SaveOutcome LayoutFlow::store(Layout layout, const std::string& name) {
    // It may have been pinned since.
    if (const auto problem = problemWithNewName(name)) {
        return *problem;
    }
    if (const auto stored = m_context.store.layout(layout.configID, name)) {
        layout.pinned = stored->pinned;
    }
    layout.layoutName = name;
    const UserEdit edit;
    if (!m_context.store.saveAsActive(layout)) {
        return {.kind = SaveOutcome::Kind::writeFailed};
    }
    layoutsChanged();
    m_context.announce(HUD::Saved{static_cast<std::int64_t>(layout.windows.size())});
    return {.kind = SaveOutcome::Kind::saved, .windows = layout.windows.size()};
}

LayoutChange LayoutFlow::rename(const std::string& configID, const std::string& name,
                                const std::string& newName) {
    using Kind = LayoutChange::Kind;
    const auto wanted = validName(newName);
    if (!wanted) {
        return {Kind::invalidName};
    }
    if (!m_context.store.layout(configID, name)) {
        return {Kind::noSuchLayout};
    }
    if (*wanted == name) {
        return {Kind::done};
    }
    if (m_context.store.layout(configID, *wanted)) {
        return {Kind::nameTaken};
    }
    if (!m_context.store.renameLayout(configID, name, *wanted)) {
        return {Kind::writeFailed};
    }
    if (m_left && m_left->desk == configID && m_left->name == name) {
        m_left->name = *wanted;
    }
    onRenamed(configID, name, *wanted);
    layoutsChanged();
    return {Kind::done};
}

LayoutChange LayoutFlow::setPinned(bool isPinned, const std::string& configID, const std::string& name) {
    using Kind = LayoutChange::Kind;
    if (!m_context.store.layout(configID, name)) {
        return {Kind::noSuchLayout};
    }
    if (!m_context.store.setPinned(isPinned, configID, name)) {
        return {Kind::writeFailed};
    }
    // Both may refer to published state, which changes here.
    const std::pair changed(configID, name);
    m_context.showStoredLayouts();
    if (isPinned) {
        onPinned(changed.first, changed.second);
    }
    return {Kind::done};
}

LayoutChange LayoutFlow::remove(const std::string& configID, const std::string& name) {
    using Kind = LayoutChange::Kind;
    const bool isActive = name == m_context.store.activeLayoutName(configID);
    const bool isShown = isActive && configID == m_context.state().configID;
    const auto layout = m_context.store.layout(configID, name);
    if (!layout) {
        return {Kind::noSuchLayout};
    }
    if (isShown && m_context.gate.isRestoring()) {
        return {Kind::restoreInFlight};
    }
    const bool isOnlyOne = m_context.store.layouts(configID).size() == 1;
    m_context.store.deleteLayout(configID, layout->layoutName);
    if (m_context.store.layout(configID, layout->layoutName)) {
        return {Kind::writeFailed};
    }
    m_context.deletions.add(
        trf("the layout \"{}\"", layout->layoutName),
        [this, deleted = Deleted{*layout, isActive, isOnlyOne}] { return putBack(deleted); });
    layoutsChanged();
    // Without that, the deleted layout's window positions would be learned into the next one.
    if (isShown) {
        restoreActiveLayout();
    }
    return {Kind::done};
}

std::expected<void, std::string> LayoutFlow::putBack(const Deleted& deleted) {
    using Kind = LayoutChange::Kind;
    const auto& [layout, wasActive, wasOnlyOne] = deleted;
    if (!wasOnlyOne && m_context.store.layout(layout.configID, layout.layoutName)) {
        return std::unexpected(LayoutChange{Kind::nameTaken}.text());
    }
    if (!m_context.store.save(layout)) {
        return std::unexpected(LayoutChange{Kind::writeFailed}.text());
    }
    layoutsChanged();
    if (wasActive && layout.configID != m_context.state().configID) {
        m_context.store.setActiveLayout(layout.layoutName, layout.configID);
    } else if (wasActive) {
        // Also restores it. Without that, the current window positions would be learned into it.
        switchLayout(layout.layoutName, {});
    }
    return {};
}

} // namespace vantrel
