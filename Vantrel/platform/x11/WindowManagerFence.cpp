#include "Vantrel/platform/x11/WindowManagerFence.h"

#include "Vantrel/platform/x11/ClientMessage.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

// After this long, another request is sent. openbox 3.6 only watches its socket for new events. Events that
// it read along with a reply while one of its timers ran wait until another event arrives.
constexpr std::chrono::milliseconds patience(50);

// Where nothing answers, windows that have been still for this long have arrived.
constexpr std::chrono::milliseconds stillness(100);

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
                                              answer(change.window, Way::extents);
                                          }
                                      })),
      m_moves(m_connection->onEvent(
          XCB_CONFIGURE_NOTIFY,
          [this](const xcb_generic_event_t& event) {
              answer(reinterpret_cast<const xcb_configure_notify_event_t&>(event).window, Way::configure);
              const std::lock_guard lock(m_mutex);
              m_lastSign = Clock::now();
          })),
      m_ends(m_connection->onEvent(
          XCB_DESTROY_NOTIFY,
          [this](const xcb_generic_event_t& event) {
              const std::lock_guard lock(m_mutex);
              if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == m_windowManager) {
                  forgetWindowManager();
              }
          })),
      m_loss(m_connection->onLoss([this] { giveUp(); })) {
    if (!m_connection->isConnected()) {
        giveUp();
    }
}

WindowManagerFence::~WindowManagerFence() {
    m_answers.reset();
    m_moves.reset();
    m_ends.reset();
    m_loss.reset();
    if (m_trial != XCB_WINDOW_NONE) {
        xcb_destroy_window(m_connection->xcb(), m_trial);
    }
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

void WindowManagerFence::noteWindowManager(xcb_window_t supportingWindow) {
    const std::lock_guard lock(m_mutex);
    if (m_windowManager == supportingWindow) {
        return;
    }
    forgetWindowManager();
    m_windowManager = supportingWindow;
    // First, because the new window may have the id of the old one.
    m_endSelection.reset();
    if (supportingWindow != XCB_WINDOW_NONE) {
        m_endSelection = m_connection->selectEvents(supportingWindow, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    xcb_flush(m_connection->xcb());
}

// Call with the mutex held.
void WindowManagerFence::forgetWindowManager() {
    m_windowManager = XCB_WINDOW_NONE;
    m_way = Way::untried;
    if (const auto trial = std::exchange(m_trial, XCB_WINDOW_NONE); trial != XCB_WINDOW_NONE) {
        xcb_destroy_window(m_connection->xcb(), trial);
    }
}

// Calls `deadline` with the mutex held.
bool WindowManagerFence::awaitUntil(const std::function<Deadline()>& deadline) {
    std::unique_lock lock(m_mutex);
    return m_way == Way::none ? awaitStillness(lock, deadline) : awaitReply(lock, deadline);
}

bool WindowManagerFence::awaitReply(std::unique_lock<std::mutex>& lock,
                                    const std::function<Deadline()>& deadline) {
    if (m_isLost) {
        return false;
    }
    Request request;
    const bool isTrial = m_way == Way::untried;
    const xcb_window_t window = takeWindow();
    m_asked[window] = &request;
    const auto isOver = [&] { return request.isAnswered || m_isLost; };
    // Later requests only wake the window manager. They use a window whose replies are ignored, except while
    // the ways are tried: a window manager that is starting may lose the first request.
    for (auto about = window; !isOver() && Clock::now() < deadline();) {
        const Way way = m_way;
        const std::uint32_t number = ++m_number;
        lock.unlock();
        send(about, way, number);
        lock.lock();
        request.answered.wait_until(lock, std::min(deadline(), Clock::now() + patience), isOver);
        about = isTrial ? window : m_alarm;
    }
    m_asked.erase(window);
    if (request.isAnswered && !isTrial) {
        m_idleWindows.push_back(window);
    } else if (!request.isAnswered && isTrial && m_way == Way::untried &&
               m_windowManager != XCB_WINDOW_NONE && !m_isLost) {
        m_way = Way::none;
        m_trial = window;
    } else {
        // A late or second reply must not be taken for the reply to a later request.
        xcb_destroy_window(m_connection->xcb(), window);
    }
    return request.isAnswered;
}

bool WindowManagerFence::awaitStillness(std::unique_lock<std::mutex>& lock,
                                        const std::function<Deadline()>& deadline) {
    const auto start = Clock::now();
    lock.unlock();
    const Registration selection = m_connection->selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    lock.lock();
    const auto end = [&] { return std::min(deadline(), std::max(start, m_lastSign) + stillness); };
    while (!m_isLost && Clock::now() < end()) {
        m_lost.wait_until(lock, end());
    }
    return !m_isLost && Clock::now() - m_lastSign >= stillness;
}

void WindowManagerFence::send(xcb_window_t about, Way way, std::uint32_t number) const {
    if (way != Way::extents) {
        // Anywhere outside the screen.
        const std::uint32_t x = ~(number % 1000);
        xcb_configure_window(m_connection->xcb(), about, XCB_CONFIG_WINDOW_X, &x);
    }
    if (way != Way::configure) {
        ClientMessage::send(*m_connection, about, m_connection->atoms().netRequestFrameExtents, {});
    }
    xcb_flush(m_connection->xcb());
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
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, m_connection->root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    return window;
}

void WindowManagerFence::answer(xcb_window_t window, Way way) {
    const std::lock_guard lock(m_mutex);
    const auto asked = m_asked.find(window);
    if (asked == m_asked.end() && window != m_trial) {
        return;
    }
    if (m_way == Way::untried || m_way == Way::none) {
        m_way = way;
    }
    m_lastSign = Clock::now();
    if (asked != m_asked.end()) {
        asked->second->isAnswered = true;
        asked->second->answered.notify_one();
    }
}

void WindowManagerFence::giveUp() {
    const std::lock_guard lock(m_mutex);
    m_isLost = true;
    for (const auto& [window, request] : m_asked) {
        request->answered.notify_one();
    }
    m_lost.notify_all();
}

} // namespace vantrel
