// Knowing that a window manager has processed everything sent to it.
#include "tests/live/WindowDesk.h"

#include <array>
#include <csignal>
#include <poll.h>
#include <thread>

namespace vantrel::live {
namespace {

class FenceUnder : public WindowsUnder {};

INSTANTIATE_TEST_SUITE_P(WindowManagers, FenceUnder,
                         ::testing::Values("openbox", "xfwm4", "fluxbox", "kwin", "i3"), windowManagerName);

TEST_P(FenceUnder, AWindowManagerIsTriedOnceAndItsLateReplyCounts) {
    desk.probe.show({.title = "window"});
    static_cast<void>(desk.captured("window"));
    const pid_t manager = desk.windowManagerPid();
    EXPECT_TRUE(desk.awaitQuiet());
    kill(manager, SIGSTOP);
    EXPECT_FALSE(desk.port.awaitQuiet()) << "it is known to reply";
    kill(manager, SIGCONT);
    EXPECT_TRUE(desk.awaitQuiet());

    kill(manager, SIGSTOP);
    X11Desk later(std::make_shared<X11Context>(desk.x11));
    EXPECT_TRUE(later.isTrusted());
    EXPECT_FALSE(later.awaitQuiet()) << "both ways are tried";
    EXPECT_TRUE(later.awaitQuiet()) << "windows that are still are the sign";
    kill(manager, SIGCONT);
    EXPECT_TRUE(desk.awaitQuiet()) << "until the late reply to the trial";
    kill(manager, SIGSTOP);
    EXPECT_FALSE(later.awaitQuiet());
    kill(manager, SIGCONT);

    desk.endWindowManager();
    desk.startWindowManager(GetParam());
    EXPECT_TRUE(desk.port.isTrusted());
    EXPECT_TRUE(desk.awaitQuiet()) << "another one is tried anew";
}

// Shows and moves windows, and does nothing else that it is asked for.
class MuteWindowManager {
public:
    explicit MuteWindowManager(const VantrelDesk& desk)
        : m_properties(desk.display()), m_connection(desk.display()) {
        xcb_connection_t* const xcb = m_connection.xcb();
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
        xcb_change_window_attributes(xcb, m_connection.root(), XCB_CW_EVENT_MASK, &events);
        m_connection.finish();
        const auto window = m_properties.create({.title = "mute"});
        for (const auto each : {m_connection.root(), window}) {
            m_properties.setValues(each, "_NET_SUPPORTING_WM_CHECK", "WINDOW", {window});
        }
        m_properties.setValues(m_connection.root(), "_NET_SUPPORTED", "ATOM", {m_moveResize});
        m_thread = std::jthread([this](const std::stop_token& stop) {
            pollfd readable{
                .fd = xcb_get_file_descriptor(m_connection.xcb()), .events = POLLIN, .revents = 0};
            while (!stop.stop_requested()) {
                poll(&readable, 1, 20);
                handleEvents();
            }
        });
    }

private:
    void handleEvents() {
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.xcb())}) {
            const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
            if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && message.type == m_moveResize) {
                xcb_configure_window(m_connection.xcb(), message.window,
                                     XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, &message.data.data32[1]);
            }
        }
        xcb_flush(m_connection.xcb());
    }

    ProbeClient m_properties;
    DeskConnection m_connection;
    xcb_atom_t m_moveResize = m_connection.atom("_NET_MOVERESIZE_WINDOW");
    std::jthread m_thread;
};

TEST(Fence, WindowsThatAreStillAreTheSignWhereNothingReplies) {
    WindowDesk desk("");
    const auto client = desk.probe.create({.title = "window"});
    desk.probe.setValues(client, "WM_STATE", "WM_STATE", {1, 0});
    desk.probe.setValues(desk.connection().root(), "_NET_CLIENT_LIST_STACKING", "WINDOW", {client});
    desk.probe.map(client);
    const MuteWindowManager manager(desk);
    const auto window = desk.capture("window");
    ASSERT_TRUE(window && desk.port.isTrusted());
    EXPECT_FALSE(desk.port.awaitQuiet()) << "both ways are tried";
    EXPECT_TRUE(desk.port.awaitQuiet());
    // It keeps its size, so nobody sees it arrive.
    const WindowOrder order{.window = window->id,
                            .target = {.position = Point{700, 500}, .size = Size{900, 700}}};
    EXPECT_EQ(desk.port.arrange(std::array{order}, MovePermit()).front(),
              (WindowOutcome{.isTaken = true, .frame = Rect{{700, 500}, window->frame->size}}));
}

} // namespace
} // namespace vantrel::live
