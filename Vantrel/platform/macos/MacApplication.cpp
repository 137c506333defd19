#include "Vantrel/platform/macos/MacApplication.h"

#include <utility>

namespace vantrel {

// Switches the enhanced user interface off and, on destruction, back on if it was on.
class MacApplication::PlainInterface {
public:
    explicit PlainInterface(CFRef<AXUIElementRef> application) : m_application(std::move(application)) {
        m_wasEnhanced = AXAttribute::boolean(AXAttribute::copy(m_application.get(), name())).value_or(false);
        if (m_wasEnhanced) {
            set(kCFBooleanFalse);
        }
    }

    ~PlainInterface() {
        // Even if switching it off failed: an application that did not reply in time may still have done it.
        if (m_wasEnhanced && set(kCFBooleanTrue) == kAXErrorCannotComplete) {
            set(kCFBooleanTrue);
        }
    }

    PlainInterface(const PlainInterface&) = delete;
    PlainInterface& operator=(const PlainInterface&) = delete;

private:
    static CFStringRef name() { return CFSTR("AXEnhancedUserInterface"); }

    AXError set(CFBooleanRef value) {
        return AXUIElementSetAttributeValue(m_application.get(), name(), value);
    }

    CFRef<AXUIElementRef> m_application;
    bool m_wasEnhanced = false;
};

MacApplication::MacApplication(std::int32_t pid, std::shared_ptr<OwnMoves> ownMoves)
    : m_element(CFRef<AXUIElementRef>::adopt(AXUIElementCreateApplication(pid))),
      m_ownMoves(std::move(ownMoves)) {
    AXUIElementSetMessagingTimeout(m_element.get(), messagingTimeoutSeconds);
}

std::vector<CFRef<AXUIElementRef>> MacApplication::windows() const {
    const auto value = AXAttribute::copy(m_element.get(), kAXWindowsAttribute);
    const CFArrayRef list = cfCast<CFArrayRef>(value.get());
    if (!list) {
        return {};
    }
    std::vector<CFRef<AXUIElementRef>> result;
    for (CFIndex i = 0; i < CFArrayGetCount(list); ++i) {
        if (const AXUIElementRef window = cfCast<AXUIElementRef>(CFArrayGetValueAtIndex(list, i))) {
            AXUIElementSetMessagingTimeout(window, messagingTimeoutSeconds);
            result.push_back(CFRef<AXUIElementRef>::retain(window));
        }
    }
    return result;
}

std::shared_ptr<void> MacApplication::beginMoves() {
    const std::scoped_lock lock(m_lock);
    auto plain = m_plain.lock();
    if (!plain) {
        plain = std::make_shared<PlainInterface>(m_element);
        m_plain = plain;
    }
    return plain;
}

} // namespace vantrel
