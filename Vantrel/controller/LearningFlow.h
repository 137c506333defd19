// Learns the desk: captures it at every tick, saves arrangements that are stable, and keeps the last capture
// of a desk that is being left.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/SaveOutcome.h"
#include "VantrelCore/displays/SnapshotStabilityGate.h"
#include "VantrelCore/model/PreChangeSnapshot.h"

#include <functional>
#include <optional>
#include <string>

namespace vantrel {

class LearningFlow {
public:
    // A capture must be seen this many times in a row before it is learned.
    static constexpr int requiredObservations = 4;
    // In seconds; an older capture no longer shows the desk before a change.
    static constexpr double maxPreChangeAge = 45;

    explicit LearningFlow(ControllerContext& context) : m_context(context) {}

    // Captures in the background unless something forbids it. Calls `onUnannouncedChange` when the displays
    // are not the ones that last settled.
    void snapshotIfChanged();
    std::function<void()> onUnannouncedChange;
    // Called with every captured desk that shows windows, before anything is learned from it.
    std::function<void(const Layout& fresh)> onFreshDesk;
    // Called with the captured desk, instead of learning, when its layout is pinned. Its windows include
    // those that cannot be seen.
    std::function<void(const Layout& current)> onPinnedDesk;
    // Called with the stored layout when the captured desk matches it.
    std::function<void(const Layout& learned)> onLearnedDesk;

    // Called when a display change begins: the last capture becomes the layout of the desk being left.
    void adoptPreChangeSnapshotIfNeeded();

    // Saves the desk, pinned or not, as soon as nothing else is reading it. `done` is called once, on the
    // main thread.
    void saveLayoutNow(std::function<void(const SaveOutcome&)> done);

private:
    using Picture = DeskCapture::Picture;

    [[nodiscard]] bool mayCapture();
    // Stores the capture that is adopted if the desk is left now.
    void keepForAdoption(const Layout& layout, std::vector<LiveWindow> windows);
    void finishSnapshotTick(const Picture& picture, const std::vector<DisplayInfo>& displays);
    [[nodiscard]] SaveOutcome finishSave(Layout layout);
    // Saves the layout in the background with a note of its windows and publishes the outcome. Logs `success`
    // or `failure`.
    void saveLater(const Layout& layout, const std::vector<LiveWindow>& windows, std::string success,
                   std::string failure);
    void publishOutcome(bool isSaved);
    [[nodiscard]] std::optional<Layout> storedLike(const Layout& layout);

    ControllerContext& m_context;
    SnapshotStabilityGate m_stabilityGate{requiredObservations};
    // From a tick or a save by the user.
    std::optional<PreChangeSnapshot::Candidate> m_lastTickSnapshot;
    std::vector<LiveWindow> m_lastTickWindows;
    // When it was captured; a later restore or change of layouts or rules makes it useless.
    DeskGate::Moment m_lastTick;
};

} // namespace vantrel
