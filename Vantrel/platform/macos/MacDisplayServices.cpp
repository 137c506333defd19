#include "Vantrel/platform/macos/MacDisplayServices.h"

#include "Vantrel/platform/macos/CFText.h"
#include "Vantrel/platform/macos/DisplayRegistry.h"

#include <ColorSync/ColorSync.h>
#include <CoreGraphics/CoreGraphics.h>
#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

namespace vantrel {

namespace {

using Handler = std::function<void()>;

// The handlers of this process, keyed by address. A notification that arrives on any thread after its
// registration has ended finds no handler.
struct Handlers {
    std::mutex lock;
    std::map<const void*, std::shared_ptr<Handler>> registered;

    static Handlers& shared() {
        static Handlers handlers;
        return handlers;
    }
};

// Ignores the flags, because the watcher reads the displays itself.
void vantrelDisplayReconfigurationCallback(CGDirectDisplayID /*display*/,
                                           CGDisplayChangeSummaryFlags /*flags*/, void* userInfo) {
    std::shared_ptr<Handler> handler;
    {
        const std::scoped_lock lock(Handlers::shared().lock);
        const auto found = Handlers::shared().registered.find(userInfo);
        if (found != Handlers::shared().registered.end()) {
            handler = found->second;
        }
    }
    if (handler) {
        (*handler)();
    }
}

std::vector<CGDirectDisplayID> activeIDs() {
    std::uint32_t count = 0;
    if (CGGetActiveDisplayList(0, nullptr, &count) != kCGErrorSuccess || count == 0) {
        return {};
    }
    std::vector<CGDirectDisplayID> ids(count);
    if (CGGetActiveDisplayList(count, ids.data(), &count) != kCGErrorSuccess) {
        return {};
    }
    // A display may disappear between the two calls.
    ids.resize(std::min<std::size_t>(ids.size(), count));
    return ids;
}

std::optional<std::string> uuidOf(CGDirectDisplayID display) {
    const auto uuid = CFRef<CFUUIDRef>::adopt(CGDisplayCreateUUIDFromDisplayID(display));
    if (!uuid) {
        return std::nullopt;
    }
    const auto text = CFRef<CFStringRef>::adopt(CFUUIDCreateString(kCFAllocatorDefault, uuid.get()));
    return CFText::utf8Of(text.get());
}

} // namespace

class MacDisplayServices::Registration {
public:
    explicit Registration(Handler handler) {
        auto kept = std::make_shared<Handler>(std::move(handler));
        m_userInfo = kept.get();
        {
            const std::scoped_lock lock(Handlers::shared().lock);
            Handlers::shared().registered[m_userInfo] = std::move(kept);
        }
        CGDisplayRegisterReconfigurationCallback(vantrelDisplayReconfigurationCallback, m_userInfo);
    }

    ~Registration() {
        CGDisplayRemoveReconfigurationCallback(vantrelDisplayReconfigurationCallback, m_userInfo);
        const std::scoped_lock lock(Handlers::shared().lock);
        Handlers::shared().registered.erase(m_userInfo);
    }

    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

private:
    void* m_userInfo = nullptr;
};

MacDisplayServices::MacDisplayServices(ScreenList screens) : m_screens(std::move(screens)) {}

MacDisplayServices::~MacDisplayServices() = default;

std::vector<ActiveDisplay> MacDisplayServices::activeDisplays() {
    std::vector<ActiveDisplay> result;
    for (const CGDirectDisplayID id : activeIDs()) {
        const CGRect bounds = CGDisplayBounds(id);
        result.push_back(
            {.id = id,
             .isBuiltin = CGDisplayIsBuiltin(id) != 0,
             .bounds = {{bounds.origin.x, bounds.origin.y}, {bounds.size.width, bounds.size.height}},
             .uuid = uuidOf(id)});
    }
    return result;
}

std::vector<DisplayInfo> MacDisplayServices::displays() {
    const auto active = activeDisplays();
    return active.empty() ? std::vector<DisplayInfo>()
                          : DisplayTopology::displays(active, m_screens(), DisplayRegistry::edidHints());
}

void MacDisplayServices::setReconfigurationHandler(std::function<void()> handler) {
    m_registration.reset();
    if (handler) {
        m_registration = std::make_unique<Registration>(std::move(handler));
    }
}

} // namespace vantrel
