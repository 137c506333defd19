#include "Vantrel/platform/macos/MacAccessibility.h"

#include "Vantrel/platform/macos/MacWindowElement.h"
#include "Vantrel/platform/macos/QuartzWindowList.h"

#include <utility>

namespace vantrel {

namespace {

// Reads everything on request; caches nothing.
class MacDeskReading final : public DeskReading {
public:
    MacDeskReading(MacAccessibility::AppList runningApps, std::shared_ptr<OwnMoves> ownMoves)
        : m_runningApps(std::move(runningApps)), m_ownMoves(std::move(ownMoves)) {}

    [[nodiscard]] std::vector<WindowListEntry> onScreenWindows() override {
        return QuartzWindowList::onScreen();
    }

    [[nodiscard]] std::vector<RunningApp> runningApps() override { return m_runningApps(); }

    [[nodiscard]] std::vector<WindowReading> windows(const RunningApp& app) override {
        const auto application = std::make_shared<MacApplication>(app.pid, m_ownMoves);
        std::vector<WindowReading> result;
        for (auto& window : application->windows()) {
            auto element = std::make_shared<MacWindowElement>(std::move(window), application);
            WindowAttributes attributes = element->read(AttributeGroup::all);
            result.push_back({.element = std::move(element), .attributes = std::move(attributes)});
        }
        return result;
    }

private:
    MacAccessibility::AppList m_runningApps;
    std::shared_ptr<OwnMoves> m_ownMoves;
};

} // namespace

MacAccessibility::MacAccessibility(AppList runningApps, Clock& clock)
    : m_runningApps(std::move(runningApps)), m_ownMoves(std::make_shared<OwnMoves>(clock)) {
    const auto everything = CFRef<AXUIElementRef>::adopt(AXUIElementCreateSystemWide());
    AXUIElementSetMessagingTimeout(everything.get(), MacApplication::messagingTimeoutSeconds);
}

bool MacAccessibility::isTrusted() {
    return AXIsProcessTrusted() != 0;
}

bool MacAccessibility::prompt() {
    const void* keys[] = {kAXTrustedCheckOptionPrompt};
    const void* values[] = {kCFBooleanTrue};
    const auto options = CFRef<CFDictionaryRef>::adopt(CFDictionaryCreate(kCFAllocatorDefault, keys, values,
                                                                          1, &kCFTypeDictionaryKeyCallBacks,
                                                                          &kCFTypeDictionaryValueCallBacks));
    return AXIsProcessTrustedWithOptions(options.get()) != 0;
}

std::unique_ptr<DeskReading> MacAccessibility::beginReading() {
    return std::make_unique<MacDeskReading>(m_runningApps, m_ownMoves);
}

} // namespace vantrel
