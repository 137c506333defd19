#include "Vantrel/platform/x11/WindowManagerFence.h"

#include "Vantrel/platform/x11/ClientMessage.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

// After this long the question is repeated. openbox 3.6 looks only at its socket for new events: those that
// it read along with a reply, while one of its timers ran, wait until another one arrives and wakes it.
constexpr std::chrono::milliseconds patience(50);

} // namespace

WindowManagerFence::WindowManagerFence(std::shared_ptr<X11Connection> connection)
    : m_connection(std::move(connection)),
      m_answers(m_connection->onEvent(XCB_PROPERTY_NOTIFY,
                                      [this](const xcb_generic_event_t& event) {
                                          const auto& change =
                                              reinterpret_cast<const xcb_property_notify_event_t&>(event);
                                          if (change.atom == m_connection->atoms().netFrameExtents) {
                                              answer(change.window);
                                          }
                                      })),
      m_loss(m_connection->onLoss([this] { giveUp(); })) {
    if (!m_connection->isConnected()) {
        giveUp();
    }
}

WindowManagerFence::~WindowManagerFence() {
    m_answers.reset();
    m_loss.reset();
    for (const auto window : m_idleWindows) {
        xcb_destroy_window(m_connection->xcb(), window);
    }
    xcb_flush(m_connection->xcb());
}

bool WindowManagerFence::await(Deadline deadline) {
    Question question;
    std::unique_lock lock(m_mutex);
    if (m_isLost) {
        return false;
    }
    const xcb_window_t window = takeWindow();
    m_asked[window] = &question;
    const auto isOver = [&] { return question.isAnswered || m_isLost; };
    while (!isOver() && std::chrono::steady_clock::now() < deadline) {
        lock.unlock();
        ClientMessage::send(*m_connection, window, m_connection->atoms().netRequestFrameExtents, {});
        xcb_flush(m_connection->xcb());
        lock.lock();
        question.answered.wait_until(lock, std::min(deadline, std::chrono::steady_clock::now() + patience),
                                     isOver);
    }
    m_asked.erase(window);
    if (question.isAnswered) {
        m_idleWindows.push_back(window);
    } else {
        // A late answer must not be taken for that of a later question.
        xcb_destroy_window(m_connection->xcb(), window);
    }
    return question.isAnswered;
}

xcb_window_t WindowManagerFence::takeWindow() {
    if (!m_idleWindows.empty()) {
        const xcb_window_t window = m_idleWindows.back();
        m_idleWindows.pop_back();
        return window;
    }
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
        asked->second->answered.notify_one();
    }
}

void WindowManagerFence::giveUp() {
    const std::lock_guard lock(m_mutex);
    m_isLost = true;
    for (const auto& [window, question] : m_asked) {
        question->answered.notify_one();
    }
}

} // namespace vantrel
