// The live desk on macOS: windows from Accessibility, their stacking order from Quartz.
#pragma once

#include "Vantrel/platform/macos/OwnMoves.h"
#include "VantrelCore/ports/Accessibility.h"

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

class MacAccessibility final : public Accessibility {
public:
    using AppList = std::function<std::vector<RunningApp>()>;

    // Sets the messaging timeout of the whole process. `runningApps` may be called on any thread; the clock
    // outlives this and what it returned.
    MacAccessibility(AppList runningApps, Clock& clock);

    [[nodiscard]] bool isTrusted() override;
    bool prompt() override;
    [[nodiscard]] std::unique_ptr<DeskReading> beginReading() override;

    // Nothing to wait for: the window server has no pending requests of ours.
    bool awaitQuiet() override { return true; }

private:
    AppList m_runningApps;
    std::shared_ptr<OwnMoves> m_ownMoves;
};

} // namespace vantrel
