#include "Vantrel/platform/macos/MacUserMoveWatch.h"

#include "VantrelCore/windows/LoneMoveEvidence.h"

#include <CoreGraphics/CoreGraphics.h>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace vantrel {

namespace {

// In seconds. Accessibility reports moves that late.
constexpr double delay = 0.25;
// In points: windows can be resized from just outside their edge.
constexpr double edge = 8;

LoneMoveEvidence::Time timeOf(double monotonicSeconds) {
    return LoneMoveEvidence::Time(std::chrono::duration_cast<LoneMoveEvidence::Time::duration>(
        std::chrono::duration<double>(monotonicSeconds)));
}

bool isButtonDown() {
    constexpr auto session = kCGEventSourceStateCombinedSessionState;
    return CGEventSourceButtonState(session, kCGMouseButtonLeft) ||
           CGEventSourceSecondsSinceLastEventType(session, kCGEventLeftMouseUp) < delay;
}

std::optional<Point> pointer() {
    const auto event = CFRef<CGEventRef>::adopt(CGEventCreate(nullptr));
    if (!event) {
        return std::nullopt;
    }
    const CGPoint location = CGEventGetLocation(event.get());
    return Point{location.x, location.y};
}

bool isOn(const Rect& window, Point point) {
    return Rect{{window.origin.x - edge, window.origin.y - edge},
                {window.size.width + 2 * edge, window.size.height + 2 * edge}}
        .contains(point);
}

} // namespace

struct MacUserMoveWatch::State {
    CFRef<AXUIElementRef> window;
    std::shared_ptr<const OwnMoves> ownMoves;
    CFRef<AXObserverRef> observer;
    std::uintptr_t number = 0;

    std::mutex mutex;
    LoneMoveEvidence loneMoves;
    // Where the pointer was at the last move with the button down.
    std::optional<Point> heldAt;
    bool isUsers = false;

    State(const CFRef<AXUIElementRef>& watched, std::shared_ptr<const OwnMoves> moves)
        : window(watched), ownMoves(std::move(moves)), loneMoves(timeOf(ownMoves->now())) {}

    void noteMove() {
        const double now = ownMoves->now();
        const double ours = ownMoves->last();
        const auto held = now - ours > delay && isButtonDown() ? pointer() : std::nullopt;
        const std::scoped_lock lock(mutex);
        heldAt = held ? held : heldAt;
        loneMoves.noteMove(timeOf(now), timeOf(std::max(ours, 0.0)));
    }

    void noteOther() {
        const std::scoped_lock lock(mutex);
        loneMoves.noteOther(timeOf(ownMoves->now()));
    }

    // All watches there are. The observers' callback gets a number instead of a pointer, because it runs on
    // the main thread and watches end on any.
    struct All {
        std::mutex mutex;
        std::map<std::uintptr_t, std::weak_ptr<State>> states;
        std::uintptr_t last = 0;
    };
    static All& all() {
        static All all;
        return all;
    }

    static void noteMoveOf(std::uintptr_t moved) {
        std::map<std::uintptr_t, std::weak_ptr<State>> states;
        {
            const std::scoped_lock lock(all().mutex);
            states = all().states;
        }
        for (const auto& [number, held] : states) {
            if (const auto state = held.lock()) {
                number == moved ? state->noteMove() : state->noteOther();
            }
        }
    }

    static void moved(AXObserverRef /*observer*/, AXUIElementRef /*element*/, CFStringRef /*notification*/,
                      void* number) {
        noteMoveOf(reinterpret_cast<std::uintptr_t>(number));
    }

    // False if the application does not report moves.
    [[nodiscard]] bool observe() {
        pid_t pid = 0;
        AXObserverRef made = nullptr;
        if (AXUIElementGetPid(window.get(), &pid) != kAXErrorSuccess ||
            AXObserverCreate(pid, moved, &made) != kAXErrorSuccess) {
            return false;
        }
        observer = CFRef<AXObserverRef>::adopt(made);
        // NOLINTNEXTLINE(performance-no-int-to-ptr): never dereferenced.
        auto* const context = reinterpret_cast<void*>(number);
        for (const CFStringRef name : {kAXWindowMovedNotification, kAXWindowResizedNotification}) {
            if (AXObserverAddNotification(observer.get(), window.get(), name, context) != kAXErrorSuccess) {
                return false;
            }
        }
        CFRunLoopAddSource(CFRunLoopGetMain(), AXObserverGetRunLoopSource(observer.get()),
                           kCFRunLoopCommonModes);
        return true;
    }

    ~State() {
        if (observer) {
            CFRunLoopRemoveSource(CFRunLoopGetMain(), AXObserverGetRunLoopSource(observer.get()),
                                  kCFRunLoopCommonModes);
        }
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;
};

std::unique_ptr<MacUserMoveWatch> MacUserMoveWatch::begin(const CFRef<AXUIElementRef>& window,
                                                          std::shared_ptr<const OwnMoves> ownMoves) {
    const auto state = std::make_shared<State>(window, std::move(ownMoves));
    {
        const std::scoped_lock lock(State::all().mutex);
        state->number = ++State::all().last;
        State::all().states[state->number] = state;
    }
    std::unique_ptr<MacUserMoveWatch> watch(new MacUserMoveWatch(state));
    return state->observe() ? std::move(watch) : nullptr;
}

MacUserMoveWatch::MacUserMoveWatch(std::shared_ptr<State> state) : m_state(std::move(state)) {}

MacUserMoveWatch::~MacUserMoveWatch() {
    const std::scoped_lock lock(State::all().mutex);
    State::all().states.erase(m_state->number);
}

bool MacUserMoveWatch::hasSeenUser() {
    std::optional<Point> held;
    {
        const std::scoped_lock lock(m_state->mutex);
        if (m_state->isUsers) {
            return true;
        }
        held = std::exchange(m_state->heldAt, std::nullopt);
    }
    if (!held) {
        return false;
    }
    const auto origin = AXAttribute::point(AXAttribute::copy(m_state->window.get(), kAXPositionAttribute));
    const auto size = AXAttribute::size(AXAttribute::copy(m_state->window.get(), kAXSizeAttribute));
    const std::scoped_lock lock(m_state->mutex);
    m_state->isUsers = origin && size && isOn({*origin, *size}, *held);
    return m_state->isUsers;
}

bool MacUserMoveWatch::hasSeenRequest() const {
    const std::scoped_lock lock(m_state->mutex);
    return m_state->loneMoves.isSeen(timeOf(m_state->ownMoves->now()));
}

} // namespace vantrel
