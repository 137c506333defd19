// An application with a number of plain windows, for the desk benchmark: vantrel_desk_client NAME COUNT.
#include "tools/desk/DeskConnection.h"

#include <cstdint>
#include <cstdlib>
#include <fmt/format.h>
#include <string>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

using vantrel::tools::Reply;

class Client {
public:
    explicit Client(xcb_connection_t* connection)
        : m_connection(connection), m_screen(*xcb_setup_roots_iterator(xcb_get_setup(connection)).data),
          m_utf8(atom("UTF8_STRING")), m_netName(atom("_NET_WM_NAME")), m_netPid(atom("_NET_WM_PID")) {}

    void show(const std::string& application, const std::string& title) {
        const xcb_window_t window = xcb_generate_id(m_connection);
        const std::uint32_t values[] = {m_screen.white_pixel,
                                        XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_EXPOSURE};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_screen.root, 0, 0, 400, 300, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
        setText(window, m_netName, m_utf8, title);
        setText(window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, title);
        setText(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, application + '\0' + application + '\0');
        const auto pid = static_cast<std::uint32_t>(getpid());
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, m_netPid, XCB_ATOM_CARDINAL, 32, 1,
                            &pid);
        xcb_map_window(m_connection, window);
    }

    // Reads events, as any program does, until the server is gone.
    void run() {
        xcb_flush(m_connection);
        while (const Reply<xcb_generic_event_t> event{xcb_wait_for_event(m_connection)}) {
        }
    }

private:
    [[nodiscard]] xcb_atom_t atom(const std::string& name) {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    void setText(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const std::string& text) {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                            static_cast<std::uint32_t>(text.size()), text.data());
    }

    xcb_connection_t* m_connection;
    xcb_screen_t m_screen;
    xcb_atom_t m_utf8;
    xcb_atom_t m_netName;
    xcb_atom_t m_netPid;
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        fmt::print(stderr, "usage: vantrel_desk_client NAME COUNT\n");
        return 2;
    }
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0) {
        fmt::print(stderr, "vantrel_desk_client: no X server responds\n");
        return 1;
    }
    Client client(connection);
    for (int i = 0; i < std::atoi(argv[2]); ++i) {
        client.show(argv[1], fmt::format("Document {} - {}", i + 1, argv[1]));
    }
    client.run();
    return 0;
}
