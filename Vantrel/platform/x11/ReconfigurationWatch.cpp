#include "Vantrel/platform/x11/ReconfigurationWatch.h"

#include "Vantrel/platform/x11/MonitorQuery.h"
#include "Vantrel/platform/x11/WorkAreaQuery.h"
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
    : m_connection(std::move(connection)), m_handler(std::move(handler)),
      m_thread([this] { m_connection->runGuarded([this] { compare(); }); }) {
    if (const auto first = m_connection->extensions().randrFirstEvent) {
        m_screenEvents = m_connection->onEvent(*first + XCB_RANDR_SCREEN_CHANGE_NOTIFY,
                                               [this](const auto&) { m_thread.wake(); });
        m_otherEvents = m_connection->onEvent(*first + XCB_RANDR_NOTIFY, [this](const auto& event) {
            // Extension events share the generic event's layout.
            const auto& notify = reinterpret_cast<const xcb_randr_notify_event_t&>(event);
            if (notify.subCode == XCB_RANDR_NOTIFY_CRTC_CHANGE) {
                noteCrtc(notify.u.cc);
            }
            m_thread.wake();
        });
    }
    // What panels leave of a display changes with these.
    m_rootChanges = m_connection->onEvent(
        XCB_PROPERTY_NOTIFY, [this, root = m_connection->root(),
                              &atoms = m_connection->atoms()](const xcb_generic_event_t& event) {
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            if (change.window == root &&
                (change.atom == atoms.netWorkarea || change.atom == atoms.netClientList ||
                 change.atom == atoms.netCurrentDesktop)) {
                m_thread.wake();
            }
        });
    m_rootEvents = m_connection->selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    // Select events before reading, so that no change is missed in between.
    select(*m_connection, watchedEvents);
    {
        auto crtcs = readCrtcs();
        const std::lock_guard lock(m_mutex);
        m_crtcs = std::move(crtcs);
        m_hasCrtcChanged = false;
    }
    m_displays = readDisplays(*m_connection).value_or(std::vector<DisplayInfo>{});
    m_latest = withVisibleFrames(*m_connection, m_displays);
    m_thread.start();
}

ReconfigurationWatch::~ReconfigurationWatch() {
    select(*m_connection, 0);
    m_screenEvents.reset();
    m_otherEvents.reset();
    m_rootChanges.reset();
}

std::vector<DisplayInfo> ReconfigurationWatch::read(const X11Connection& connection) {
    return withVisibleFrames(connection, readDisplays(connection).value_or(std::vector<DisplayInfo>{}));
}

std::vector<DisplayInfo> ReconfigurationWatch::displays() {
    m_thread.wake();
    if (!m_connection->isConnected()) {
        return {};
    }
    const std::lock_guard lock(m_mutex);
    return m_latest;
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

std::optional<std::vector<DisplayInfo>> ReconfigurationWatch::readDisplays(const X11Connection& connection) {
    const auto monitors = MonitorQuery::read(connection);
    return monitors ? std::optional(DisplayList::displays(*monitors)) : std::nullopt;
}

std::vector<DisplayInfo> ReconfigurationWatch::withVisibleFrames(const X11Connection& connection,
                                                                 std::vector<DisplayInfo> displays) {
    if (!displays.empty()) {
        const WorkAreaReading workArea = WorkAreaQuery::read(connection);
        for (DisplayInfo& display : displays) {
            display.visibleFrame = workArea.visibleFrame(display.frame);
        }
    }
    return displays;
}

void ReconfigurationWatch::noteCrtc(const xcb_randr_crtc_change_t& change) {
    const CrtcState state = crtcState(change.mode, change.rotation, change.x, change.y);
    const std::lock_guard lock(m_mutex);
    CrtcState& known = m_crtcs[change.crtc];
    m_hasCrtcChanged |= known != state;
    known = state;
}

void ReconfigurationWatch::compare() {
    bool hasCrtcChanged = false;
    {
        const std::lock_guard lock(m_mutex);
        hasCrtcChanged = std::exchange(m_hasCrtcChanged, false);
    }
    const auto displays = readDisplays(*m_connection);
    const bool hasChanged = displays && *displays != m_displays;
    if (displays) {
        m_displays = *displays;
        auto latest = withVisibleFrames(*m_connection, m_displays);
        const std::lock_guard lock(m_mutex);
        m_latest = std::move(latest);
    }
    if (hasChanged || hasCrtcChanged) {
        m_handler();
    }
}

} // namespace vantrel
