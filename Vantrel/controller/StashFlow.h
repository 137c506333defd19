// Stashes the desk so that it can be brought back within a week, and brings it back.
#pragma once

#include "Vantrel/controller/CaptureNow.h"
#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "Vantrel/controller/SaveOutcome.h"
#include "VantrelCore/stores/StashStore.h"

#include <expected>
#include <functional>
#include <set>
#include <string>

namespace vantrel {

class StashFlow {
public:
    // The stash, or why there is none.
    using Result = std::expected<Stash, SaveOutcome::Kind>;

    // Publishes the stored stashes. The store outlives this flow.
    StashFlow(ControllerContext& context, RestoreRunner& runner, StashStore& store);

    // Stashes the desk; the windows stay where they are. `done` is called once.
    void stashNow(std::function<void(const Result&)> done);

    // Moves the windows to their places in the stash, translated to the current displays if it is another
    // desk's. The stash is then removed; undo restores it. Returns false when nothing is going to move.
    bool bringBack(const std::string& stashID, const RestoreOutcome::Done& done);

    // Removes a stash without bringing it back. Undone by RecentDeletions. False when there is none with that
    // ID, or when it could not be written.
    bool discard(const std::string& stashID);

    // The callbacks for the outcome; exactly one of them is called, once.
    struct Told {
        std::function<void(const Result&)> stashed;
        RestoreOutcome::Done broughtBack;
    };

    // Brings the desk's newest stash back. Without one, or when none of its windows can come back, stashes
    // the desk.
    void stashOrBringBack(const Told& told = {});

    // Publishes the stashes after the store has changed.
    void showStored();

    // Stops publishing expired stashes.
    void dropExpired();

private:
    [[nodiscard]] Result keep(const Layout& captured);
    void tell(const Result& result, const std::function<void(const Result&)>& done);
    void stashOrBringBack(const std::string& stashID, const CaptureNow::Result& captured, const Told& told);
    // Whether the captured desk has a window that could take its place in the stash.
    [[nodiscard]] bool canReturn(const Stash& stash, const Layout& captured);
    void returned(const Stash& stash, const RestoreOutcome& outcome);
    [[nodiscard]] std::vector<Stash> stashes();

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    StashStore& m_store;
    // Stashes whose windows were there but refused to move.
    std::set<std::string> m_refused;
};

} // namespace vantrel
