#include "Vantrel/platform/x11/ReconfigurationWatch.h"

#include "Vantrel/platform/posix/ReportedThread.h"
#include "Vantrel/platform/x11/MonitorQuery.h"
#include "Vantrel/platform/x11/XcbReply.h"

#include <utility>

namespace vantrel {

namespace {

constexpr std::uint16_t watchedEvents =
    XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
    XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_PROPERTY;

void select(const X11Connection& connection, std::uint16_t events) {
    if (connection.extensions().randrFirstEvent) {
        xcb_randr_select_input(connection.xcb(), connection.root(), events);
        xcb_flush(connection.xcb());
    }
}

} // namespace

ReconfigurationWatch::ReconfigurationWatch(std::shared_ptr<X11Connection> connection,
                                           std::function<void()> handler)
    : m_connection(std::move(connection)), m_handler(std::move(handler)) {
    if (const auto first = m_connection->extensions().randrFirstEvent) {
        m_screenEvents = m_connection->onEvent(*first + XCB_RANDR_SCREEN_CHANGE_NOTIFY,
                                               [this](const auto&) { noteEvent(); });
        m_otherEvents = m_connection->onEvent(*first + XCB_RANDR_NOTIFY, [this](const auto& event) {
            // Extension events share the generic event's layout.
            const auto& notify = reinterpret_cast<const xcb_randr_notify_event_t&>(event);
            if (notify.subCode == XCB_RANDR_NOTIFY_CRTC_CHANGE) {
                noteCrtc(notify.u.cc);
            }
            noteEvent();
        });
    }
    // Select events before reading, so that no change is missed in between.
    select(*m_connection, watchedEvents);
    {
        auto crtcs = readCrtcs();
        const std::lock_guard lock(m_mutex);
        m_crtcs = std::move(crtcs);
        m_hasCrtcChanged = false;
    }
    m_displays = readDisplays().value_or(std::vector<DisplayInfo>{});
    m_thread = posix::reportedThread([this] { compareUntilStopped(); });
}

ReconfigurationWatch::~ReconfigurationWatch() {
    select(*m_connection, 0);
    m_screenEvents.reset();
    m_otherEvents.reset();
    {
        const std::lock_guard lock(m_mutex);
        m_isStopping = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

ReconfigurationWatch::CrtcState ReconfigurationWatch::crtcState(xcb_randr_mode_t mode, std::uint16_t rotation,
                                                                std::int16_t x, std::int16_t y) {
    return mode == XCB_NONE ? CrtcState{} : CrtcState{.mode = mode, .rotation = rotation, .x = x, .y = y};
}

std::map<xcb_randr_crtc_t, ReconfigurationWatch::CrtcState> ReconfigurationWatch::readCrtcs() const {
    xcb_connection_t* xcb = m_connection->xcb();
    std::map<xcb_randr_crtc_t, CrtcState> result;
    if (!m_connection->extensions().randrFirstEvent) {
        return result;
    }
    const auto resources = ownReply(xcb_randr_get_screen_resources_current_reply(
        xcb, xcb_randr_get_screen_resources_current(xcb, m_connection->root()), nullptr));
    if (!resources) {
        return result;
    }
    const xcb_randr_crtc_t* crtcs = xcb_randr_get_screen_resources_current_crtcs(resources.get());
    std::vector<std::pair<xcb_randr_crtc_t, xcb_randr_get_crtc_info_cookie_t>> asked;
    for (std::uint16_t i = 0; i < resources->num_crtcs; ++i) {
        asked.emplace_back(crtcs[i], xcb_randr_get_crtc_info(xcb, crtcs[i], resources->config_timestamp));
    }
    for (const auto& [crtc, cookie] : asked) {
        if (const auto info = ownReply(xcb_randr_get_crtc_info_reply(xcb, cookie, nullptr))) {
            result[crtc] = crtcState(info->mode, info->rotation, info->x, info->y);
        }
    }
    return result;
}

std::optional<std::vector<DisplayInfo>> ReconfigurationWatch::readDisplays() const {
    const auto monitors = MonitorQuery::read(*m_connection);
    return monitors ? std::optional(DisplayList::displays(*monitors)) : std::nullopt;
}

void ReconfigurationWatch::noteEvent() {
    {
        const std::lock_guard lock(m_mutex);
        m_hasEvents = true;
    }
    m_wake.notify_one();
}

void ReconfigurationWatch::noteCrtc(const xcb_randr_crtc_change_t& change) {
    const CrtcState state = crtcState(change.mode, change.rotation, change.x, change.y);
    const std::lock_guard lock(m_mutex);
    CrtcState& known = m_crtcs[change.crtc];
    m_hasCrtcChanged |= known != state;
    known = state;
}

void ReconfigurationWatch::compareUntilStopped() {
    while (true) {
        bool hasCrtcChanged = false;
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return m_hasEvents || m_isStopping; });
            if (m_isStopping) {
                return;
            }
            m_hasEvents = false;
            hasCrtcChanged = std::exchange(m_hasCrtcChanged, false);
        }
        m_connection->runGuarded([&] { compare(hasCrtcChanged); });
    }
}

void ReconfigurationWatch::compare(bool hasCrtcChanged) {
    const auto displays = readDisplays();
    const bool hasChanged = displays && *displays != m_displays;
    if (displays) {
        m_displays = *displays;
    }
    if (hasChanged || hasCrtcChanged) {
        m_handler();
    }
}

} // namespace vantrel
