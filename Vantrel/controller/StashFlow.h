// Puts the desk aside to be brought back within a week, and brings it back.
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

    // Publishes what is stored. The store outlives it.
    StashFlow(ControllerContext& context, RestoreRunner& runner, StashStore& store);

    // Remembers the desk as it stands; the windows stay where they are. `done` is called once.
    void stashNow(std::function<void(const Result&)> done);

    // Puts the windows where the stash has them, on the displays at hand when it is another desk's. Once that
    // is done, the stash is used up, until undo takes it back. False when nothing is going to move.
    bool bringBack(const std::string& stashID, const RestoreOutcome::Done& done);

    // Whom to tell what became of it; one of them is called, once.
    struct Told {
        std::function<void(const Result&)> stashed;
        RestoreOutcome::Done broughtBack;
    };

    // Brings the desk's newest stash back. Without one, or when nothing of it can come back, the desk is
    // stashed.
    void stashOrBringBack(const Told& told = {});

    // Publishes the stashes after the store has changed.
    void showStored();

    // What has expired is not published any longer.
    void dropExpired();

private:
    [[nodiscard]] Result keep(const Layout& captured);
    void tell(const Result& result, const std::function<void(const Result&)>& done);
    void stashOrBringBack(const std::string& stashID, const CaptureNow::Result& captured, const Told& told);
    // Whether the captured desk has a window for it that would take its place.
    [[nodiscard]] bool canReturn(const Stash& stash, const Layout& captured);
    void returned(const Stash& stash, const RestoreOutcome& outcome);
    [[nodiscard]] std::vector<Stash> stashes();

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    StashStore& m_store;
    // The stashes whose windows were there and would not move.
    std::set<std::string> m_refused;
};

} // namespace vantrel
