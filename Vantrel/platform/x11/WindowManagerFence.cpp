#include "Vantrel/platform/x11/WindowManagerFence.h"

#include "Vantrel/platform/x11/ClientMessage.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

// After this long, another request is sent. openbox 3.6 only watches its socket for new events. Events that
// it read along with a reply while one of its timers ran wait until another event arrives.
constexpr std::chrono::milliseconds patience(50);

constexpr std::chrono::seconds longestSilence(1);
constexpr std::chrono::seconds longestBusy(10);

using Clock = std::chrono::steady_clock;

} // namespace

WindowManagerFence::WindowManagerFence(std::shared_ptr<X11Connection> connection)
    : m_connection(std::move(connection)), m_alarm(createWindow()),
      m_answers(m_connection->onEvent(XCB_PROPERTY_NOTIFY,
                                      [this](const xcb_generic_event_t& event) {
                                          const auto& change =
                                              reinterpret_cast<const xcb_property_notify_event_t&>(event);
                                          if (change.atom == m_connection->atoms().netFrameExtents) {
                                              answer(change.window);
                                          }
                                      })),
      m_moves(m_connection->onEvent(XCB_CONFIGURE_NOTIFY,
                                    [this](const xcb_generic_event_t&) {
                                        const std::lock_guard lock(m_mutex);
                                        m_lastSign = Clock::now();
                                    })),
      m_loss(m_connection->onLoss([this] { giveUp(); })) {
    if (!m_connection->isConnected()) {
        giveUp();
    }
}

WindowManagerFence::~WindowManagerFence() {
    m_answers.reset();
    m_moves.reset();
    m_loss.reset();
    for (const auto window : m_idleWindows) {
        xcb_destroy_window(m_connection->xcb(), window);
    }
    xcb_destroy_window(m_connection->xcb(), m_alarm);
    xcb_flush(m_connection->xcb());
}

bool WindowManagerFence::await(Deadline deadline) {
    return awaitUntil([&] { return deadline; });
}

bool WindowManagerFence::awaitWhileBusy(Deadline deadline) {
    const auto last = Clock::now() + longestBusy;
    return awaitUntil([&] { return std::min(last, std::max(deadline, m_lastSign + longestSilence)); });
}

// Calls `deadline` with the mutex held.
bool WindowManagerFence::awaitUntil(const std::function<Deadline()>& deadline) {
    Request request;
    std::unique_lock lock(m_mutex);
    if (m_isLost) {
        return false;
    }
    const xcb_window_t window = takeWindow();
    m_asked[window] = &request;
    const auto isOver = [&] { return request.isAnswered || m_isLost; };
    // Later requests only wake the window manager. They use a window whose replies are ignored.
    for (auto about = window; !isOver() && Clock::now() < deadline(); about = m_alarm) {
        lock.unlock();
        ClientMessage::send(*m_connection, about, m_connection->atoms().netRequestFrameExtents, {});
        xcb_flush(m_connection->xcb());
        lock.lock();
        request.answered.wait_until(lock, std::min(deadline(), Clock::now() + patience), isOver);
    }
    m_asked.erase(window);
    if (request.isAnswered) {
        m_idleWindows.push_back(window);
    } else {
        // A late reply must not be taken for the reply to a later request.
        xcb_destroy_window(m_connection->xcb(), window);
    }
    return request.isAnswered;
}

xcb_window_t WindowManagerFence::takeWindow() {
    if (!m_idleWindows.empty()) {
        const xcb_window_t window = m_idleWindows.back();
        m_idleWindows.pop_back();
        return window;
    }
    return createWindow();
}

xcb_window_t WindowManagerFence::createWindow() const {
    xcb_connection_t* const xcb = m_connection->xcb();
    const xcb_window_t window = xcb_generate_id(xcb);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, m_connection->root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    return window;
}

void WindowManagerFence::answer(xcb_window_t window) {
    const std::lock_guard lock(m_mutex);
    if (const auto asked = m_asked.find(window); asked != m_asked.end()) {
        asked->second->isAnswered = true;
        m_lastSign = Clock::now();
        asked->second->answered.notify_one();
    }
}

void WindowManagerFence::giveUp() {
    const std::lock_guard lock(m_mutex);
    m_isLost = true;
    for (const auto& [window, request] : m_asked) {
        request->answered.notify_one();
    }
}

} // namespace vantrel
