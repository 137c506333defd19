// The live desk of macOS: Accessibility for the windows, Quartz for their stacking order.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

class MacAccessibility final : public Accessibility {
public:
    using AppList = std::function<std::vector<RunningApp>()>;

    // Sets the messaging timeout of the whole process. `runningApps` may be called on any thread.
    explicit MacAccessibility(AppList runningApps);

    [[nodiscard]] bool isTrusted() override;
    bool prompt() override;
    [[nodiscard]] std::unique_ptr<DeskReading> beginReading() override;

    // The window server has nothing to wait for.
    bool awaitQuiet() override { return true; }

private:
    AppList m_runningApps;
};

} // namespace vantrel
