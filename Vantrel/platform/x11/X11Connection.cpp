#include "Vantrel/platform/x11/X11Connection.h"

#include "Vantrel/platform/posix/ReportedThread.h"
#include "Vantrel/platform/x11/XcbReply.h"
#include "VantrelCore/text/Translation.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fmt/format.h>
#include <map>
#include <mutex>
#include <pthread.h>
#include <sys/socket.h>
#include <tuple>
#include <utility>
#include <vector>
#include <xcb/randr.h>
#include <xcb/res.h>

namespace vantrel {

namespace {

// Above every event number of the protocol.
constexpr int lossKey = 0x100;

constexpr std::uint8_t eventTypeMask = 0x7f;

std::string connectionError(int error, const std::string& displayName) {
    std::string name = displayName;
    if (name.empty()) {
        const char* variable = std::getenv("DISPLAY");
        if (variable == nullptr || *variable == '\0') {
            return tr("There is no X display: the environment variable DISPLAY is not set.");
        }
        name = variable;
    }
    switch (error) {
    case XCB_CONN_CLOSED_PARSE_ERR:
        return fmt::format("\"{}\" is not the name of an X display.", name);
    case XCB_CONN_CLOSED_INVALID_SCREEN:
        return fmt::format("The X display \"{}\" has no such screen.", name);
    default:
        return trf("No X server answers at the display \"{}\", or it refuses this program.", name);
    }
}

X11Connection::Extensions queryExtensions(xcb_connection_t* xcb) {
    X11Connection::Extensions extensions;
    const xcb_query_extension_reply_t* randr = xcb_get_extension_data(xcb, &xcb_randr_id);
    const xcb_query_extension_reply_t* res = xcb_get_extension_data(xcb, &xcb_res_id);
    const bool hasRandr = randr != nullptr && randr->present != 0;
    const bool hasRes = res != nullptr && res->present != 0;
    const auto randrCookie =
        hasRandr ? xcb_randr_query_version(xcb, 1, 5) : xcb_randr_query_version_cookie_t{};
    const auto resCookie = hasRes ? xcb_res_query_version(xcb, 1, 2) : xcb_res_query_version_cookie_t{};
    if (hasRandr) {
        const auto version = ownReply(xcb_randr_query_version_reply(xcb, randrCookie, nullptr));
        if (version && (version->major_version > 1 || version->minor_version >= 3)) {
            extensions.randrFirstEvent = randr->first_event;
        }
    }
    if (hasRes) {
        const auto version = ownReply(xcb_res_query_version_reply(xcb, resCookie, nullptr));
        extensions.clientPids = version && (version->server_major > 1 || version->server_minor >= 2);
    }
    return extensions;
}

// Starts a thread that leaves all signals except its own crashes to the process's other threads.
template <typename Work>
std::thread threadWithoutSignals(Work work) {
    sigset_t all;
    sigset_t previous;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &previous);
    std::thread thread = posix::reportedThread(std::move(work));
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
    return thread;
}

} // namespace

struct X11Connection::Shared {
    struct Handler {
        explicit Handler(EventHandler function) : call(std::move(function)) {}

        // Held while the handler runs. Recursive, because a handler may end its own registration.
        std::recursive_mutex mutex;
        EventHandler call;
        bool isActive = true;
    };

    std::mutex handlersMutex;
    std::map<int, std::vector<std::shared_ptr<Handler>>> handlers;
    struct Selection {
        // The number of registrations for each bit of the window's event mask.
        std::array<int, 32> counts{};
        std::uint32_t mask = 0;
    };

    std::mutex selectionsMutex;
    std::map<xcb_window_t, Selection> selections;
    // Null once the connection is closed; guarded by selectionsMutex.
    xcb_connection_t* xcb = nullptr;

    std::mutex thrownMutex;
    ErrorBoundary::Log onThrown;

    void runGuarded(const std::function<void()>& work) {
        const auto log = [this](const std::string& line) {
            const std::lock_guard lock(thrownMutex);
            if (onThrown) {
                onThrown(line);
            }
        };
        ErrorBoundary::run("x11 event", log, work);
    }

    void dispatch(int key, const xcb_generic_event_t& event) {
        std::vector<std::shared_ptr<Handler>> called;
        {
            const std::lock_guard lock(handlersMutex);
            const auto found = handlers.find(key);
            if (found == handlers.end()) {
                return;
            }
            called = found->second;
        }
        for (const auto& handler : called) {
            const std::lock_guard lock(handler->mutex);
            if (handler->isActive) {
                runGuarded([&] { handler->call(event); });
            }
        }
    }

    [[nodiscard]] static Registration add(const std::shared_ptr<Shared>& shared, int key,
                                          EventHandler function) {
        auto handler = std::make_shared<Handler>(std::move(function));
        {
            const std::lock_guard lock(shared->handlersMutex);
            shared->handlers[key].push_back(handler);
        }
        return Registration([shared, key, handler] {
            {
                const std::lock_guard lock(shared->handlersMutex);
                std::erase(shared->handlers[key], handler);
            }
            const std::lock_guard lock(handler->mutex);
            handler->isActive = false;
        });
    }

    enum class Flush : std::uint8_t { now, later };

    void changeSelection(xcb_window_t window, std::uint32_t mask, int by, Flush flush) {
        const std::lock_guard lock(selectionsMutex);
        Selection& selection = selections[window];
        std::uint32_t selected = 0;
        for (std::size_t bit = 0; bit < selection.counts.size(); ++bit) {
            selection.counts[bit] += (mask >> bit & 1U) != 0 ? by : 0;
            selected |= selection.counts[bit] > 0 ? 1U << bit : 0U;
        }
        if (xcb != nullptr && selected != std::exchange(selection.mask, selected)) {
            xcb_change_window_attributes(xcb, window, XCB_CW_EVENT_MASK, &selected);
            if (flush == Flush::now) {
                xcb_flush(xcb);
            }
        }
        if (selected == 0) {
            selections.erase(window);
        }
    }

    [[nodiscard]] static Registration select(const std::shared_ptr<Shared>& shared, xcb_window_t window,
                                             std::uint32_t mask, Flush flush) {
        shared->changeSelection(window, mask, 1, flush);
        return Registration(
            [shared, window, mask, flush] { shared->changeSelection(window, mask, -1, flush); });
    }
};

std::expected<std::shared_ptr<X11Connection>, std::string>
X11Connection::open(const std::string& displayName) {
    // xcb writes to its socket without MSG_NOSIGNAL, so a dying server would otherwise kill this process.
    if (std::signal(SIGPIPE, SIG_IGN) == SIG_ERR) {
        return std::unexpected("The signal SIGPIPE cannot be ignored.");
    }
    const char* const name = displayName.empty() ? nullptr : displayName.c_str();
    int screenNumber = 0;
    xcb_connection_t* xcb = xcb_connect(name, &screenNumber);
    xcb_connection_t* queryConnection = xcb_connect(name, nullptr);
    const auto fail = [&] {
        const int error = xcb_connection_has_error(xcb);
        xcb_disconnect(queryConnection);
        xcb_disconnect(xcb);
        return std::unexpected(connectionError(error, displayName));
    };
    if (xcb_connection_has_error(xcb) != 0 || xcb_connection_has_error(queryConnection) != 0) {
        return fail();
    }
    xcb_prefetch_extension_data(xcb, &xcb_randr_id);
    xcb_prefetch_extension_data(xcb, &xcb_res_id);
    xcb_prefetch_extension_data(queryConnection, &xcb_res_id);
    const auto atoms = X11Atoms::intern(xcb);
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(xcb));
    for (; screenNumber > 0 && screens.rem > 1; --screenNumber) {
        xcb_screen_next(&screens);
    }
    if (!atoms || screens.rem == 0) {
        return fail();
    }
    const Extensions extensions = queryExtensions(xcb);
    std::shared_ptr<X11Connection> connection(
        new X11Connection(xcb, queryConnection, *screens.data, *atoms, extensions));
    return connection;
}

X11Connection::X11Connection(xcb_connection_t* xcb, xcb_connection_t* queryConnection,
                             const xcb_screen_t& screen, const X11Atoms& atoms, const Extensions& extensions)
    : m_xcb(xcb), m_queryConnection(queryConnection), m_screen(screen), m_atoms(atoms),
      m_extensions(extensions), m_shared(std::make_shared<Shared>()) {
    m_shared->xcb = xcb;
    m_thread = threadWithoutSignals([this] { readEvents(); });
}

X11Connection::~X11Connection() {
    m_isClosing = true;
    // The thread may be blocked in xcb_wait_for_event; only closing the stream is sure to end that.
    shutdown(xcb_get_file_descriptor(m_xcb), SHUT_RDWR);
    m_thread.join();
    const std::lock_guard lock(m_shared->selectionsMutex);
    m_shared->xcb = nullptr;
    xcb_disconnect(m_queryConnection);
    xcb_disconnect(m_xcb);
}

void X11Connection::synchronize() const {
    std::ignore = ownReply(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr));
}

void X11Connection::drainEvents() const {
    while (ownReply(xcb_poll_for_queued_event(m_queryConnection))) {
    }
}

Registration X11Connection::onEvent(std::uint8_t type, EventHandler handler) {
    return Shared::add(m_shared, type & eventTypeMask, std::move(handler));
}

Registration X11Connection::onLoss(std::function<void()> handler) {
    return Shared::add(m_shared, lossKey,
                       [handler = std::move(handler)](const xcb_generic_event_t&) { handler(); });
}

Registration X11Connection::onThrown(ErrorBoundary::Log log) {
    const auto set = [shared = m_shared](ErrorBoundary::Log wanted) {
        const std::lock_guard lock(shared->thrownMutex);
        shared->onThrown = std::move(wanted);
    };
    set(std::move(log));
    return Registration([set] { set({}); });
}

void X11Connection::runGuarded(const std::function<void()>& work) const {
    m_shared->runGuarded(work);
}

Registration X11Connection::selectRootEvents(std::uint32_t mask) {
    return Shared::select(m_shared, root(), mask, Shared::Flush::now);
}

Registration X11Connection::selectEvents(xcb_window_t window, std::uint32_t mask) {
    return Shared::select(m_shared, window, mask, Shared::Flush::later);
}

void X11Connection::readEvents() {
    while (const auto event = ownReply(xcb_wait_for_event(m_xcb))) {
        m_shared->dispatch(event->response_type & eventTypeMask, *event);
    }
    if (!m_isClosing) {
        m_shared->dispatch(lossKey, xcb_generic_event_t{});
    }
}

} // namespace vantrel
