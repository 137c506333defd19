#include "Vantrel/platform/x11/X11DeskReading.h"

#include "Vantrel/platform/x11/LastingMarks.h"
#include "Vantrel/platform/x11/WindowQuery.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <bit>
#include <map>
#include <numeric>
#include <optional>
#include <ranges>
#include <set>
#include <span>
#include <utility>
#include <xcb/res.h>

namespace vantrel {

namespace {

// More windows than any desk has. Bounds the work if the list is hostile.
constexpr std::uint32_t listWords = 16384;

using Pids = std::map<std::uint32_t, std::int32_t>;

// The part of a window id that identifies the client that created it.
std::uint32_t clientOf(const X11Connection& connection, xcb_window_t window) {
    return window & ~xcb_get_setup(connection.queryConnection())->resource_id_mask;
}

std::vector<xcb_window_t> windowList(const PropertyValues::Reply& reply) {
    std::vector<xcb_window_t> windows;
    std::set<xcb_window_t> seen;
    for (const auto id : PropertyValues::numbers(reply, XCB_ATOM_WINDOW)) {
        if (id != XCB_WINDOW_NONE && seen.insert(id).second) {
            windows.push_back(id);
        }
    }
    return windows;
}

// The root window's properties.
struct Root {
    std::vector<xcb_window_t> stacking;
    std::vector<xcb_window_t> appearance;
    std::optional<std::uint32_t> currentDesktop;
    PropertyValues::Reply check;
    PropertyValues::Reply supported;

    explicit Root(const X11Connection& connection) {
        xcb_connection_t* const xcb = connection.queryConnection();
        const X11Atoms& atoms = connection.atoms();
        const auto ask = [&](xcb_atom_t property, xcb_atom_t type, std::uint32_t words) {
            return xcb_get_property(xcb, 0, connection.root(), property, type, 0, words);
        };
        const auto answer = [&](xcb_get_property_cookie_t cookie) {
            return ownReply(xcb_get_property_reply(xcb, cookie, nullptr));
        };
        const auto stackingCookie = ask(atoms.netClientListStacking, XCB_ATOM_WINDOW, listWords);
        const auto appearanceCookie = ask(atoms.netClientList, XCB_ATOM_WINDOW, listWords);
        const auto desktopCookie = ask(atoms.netCurrentDesktop, XCB_ATOM_CARDINAL, 1);
        const auto checkCookie = WindowManager::askCheck(connection, connection.root());
        const auto supportedCookie = WindowManager::askSupported(connection);
        stacking = windowList(answer(stackingCookie));
        appearance = windowList(answer(appearanceCookie));
        currentDesktop = PropertyValues::number(answer(desktopCookie), XCB_ATOM_CARDINAL);
        check = answer(checkCookie);
        supported = answer(supportedCookie);
        if (stacking.empty()) {
            stacking = appearance;
        }
    }
};

xcb_res_query_client_ids_cookie_t askPids(const X11Connection& connection,
                                          std::span<const xcb_window_t> windows) {
    std::vector<xcb_res_client_id_spec_t> specs;
    std::set<std::uint32_t> clients;
    for (const auto window : windows) {
        if (clients.insert(clientOf(connection, window)).second) {
            specs.push_back({.client = window, .mask = XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
        }
    }
    return xcb_res_query_client_ids(connection.queryConnection(), static_cast<std::uint32_t>(specs.size()),
                                    specs.data());
}

Pids collectPids(const X11Connection& connection, xcb_res_query_client_ids_cookie_t cookie) {
    Pids pids;
    const auto reply =
        ownReply(xcb_res_query_client_ids_reply(connection.queryConnection(), cookie, nullptr));
    if (!reply) {
        return pids;
    }
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        const bool isPid = (ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 &&
                           xcb_res_client_id_value_value_length(ids.data) > 0;
        const std::uint32_t pid = isPid ? *xcb_res_client_id_value_value(ids.data) : 0;
        if (pid > 0 && std::in_range<std::int32_t>(pid)) {
            pids[clientOf(connection, ids.data->spec.client)] = static_cast<std::int32_t>(pid);
        }
    }
    return pids;
}

// The process that owns a window. If unknown, a negative number unique to the client.
std::int32_t ownerOf(const X11Connection& connection, xcb_window_t window, const WindowFacts& facts,
                     const Pids& pids) {
    if (facts.pid) {
        return *facts.pid;
    }
    const std::uint32_t client = clientOf(connection, window);
    if (const auto known = pids.find(client); known != pids.end()) {
        return known->second;
    }
    const int shift = std::popcount(xcb_get_setup(connection.queryConnection())->resource_id_mask);
    return -1 - static_cast<std::int32_t>(client >> shift & 0x7ffffffe);
}

bool isOnDesktop(const WindowFacts& facts, const std::optional<std::uint32_t>& current) {
    return !facts.desktop || !current || *facts.desktop == allDesktops || facts.desktop == current;
}

bool isOnScreen(const WindowFacts& facts, const std::optional<std::uint32_t>& currentDesktop) {
    // A shaded client may be unmapped inside its frame.
    return (facts.isViewable || facts.traits.isShaded) && !facts.traits.isMinimized() &&
           isOnDesktop(facts, currentDesktop);
}

// In stacking order, bottom to top.
std::vector<xcb_window_t> topLevelWindows(const X11Connection& connection) {
    const auto tree = ownReply(
        xcb_query_tree_reply(connection.queryConnection(),
                             xcb_query_tree(connection.queryConnection(), connection.root()), nullptr));
    if (!tree) {
        return {};
    }
    const std::span children(xcb_query_tree_children(tree.get()),
                             static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    return {children.begin(), children.end()};
}

bool isSameApp(const RunningApp& a, const RunningApp& b) {
    return a.pid == b.pid && a.bundleID == b.bundleID;
}

} // namespace

X11DeskReading::X11DeskReading(std::shared_ptr<X11Context> context) : m_context(std::move(context)) {
    const X11Connection& connection = *m_context->connection;
    connection.drainEvents();
    const Root root(connection);
    const auto checked = PropertyValues::number(root.check, XCB_ATOM_WINDOW).value_or(connection.root());
    const auto checkCookie = WindowManager::askCheck(connection, checked);
    const auto nameCookie = WindowManager::askName(connection, checked);
    readStack(root.stacking, root.currentDesktop);
    const auto check = ownReply(xcb_get_property_reply(connection.queryConnection(), checkCookie, nullptr));
    const auto name = ownReply(xcb_get_property_reply(connection.queryConnection(), nameCookie, nullptr));
    const auto windowManager =
        WindowManager::from(root.check, check, name, root.supported, connection.atoms());
    if (windowManager.tiles) {
        // Several desktops are visible at once, one per monitor; windows of others are unmapped.
        for (Window& window : m_stacking) {
            window.isOnScreen = isOnScreen(window.facts, std::nullopt);
        }
    }
    if (!windowManager.isPresent) {
        // The window lists are missing or stale.
        readStack(topLevelWindows(connection), std::nullopt);
        std::erase_if(m_stacking, [](const Window& window) {
            return !window.facts.isViewable || window.facts.traits.isOverrideRedirect;
        });
    }
    m_context->noteWindowManager(windowManager);
    orderByAppearance(root.appearance);
}

std::vector<X11DeskReading::Window> X11DeskReading::read(X11Context& context,
                                                         std::span<const xcb_window_t> ids) {
    const X11Connection& connection = *context.connection;
    std::optional<xcb_res_query_client_ids_cookie_t> pidsCookie;
    if (connection.extensions().clientPids) {
        pidsCookie = askPids(connection, ids);
    }
    std::vector<WindowQuery> queries;
    queries.reserve(ids.size());
    for (const auto id : ids) {
        queries.emplace_back(connection, id, WindowScope::capture);
    }
    // Flush now: xcb buffers requests and would send the last ones only when we wait for them, which costs
    // another round trip.
    xcb_flush(connection.queryConnection());
    const Pids pids = pidsCookie ? collectPids(connection, *pidsCookie) : Pids{};
    std::vector<Window> windows;
    windows.reserve(ids.size());
    for (auto& query : queries) {
        auto facts = query.collect();
        if (!facts) {
            continue;
        }
        Window window;
        window.window.window = query.window();
        window.facts = std::move(*facts);
        const auto identity = context.desktopEntries.identify(window.facts.evidence);
        window.app = {.pid = ownerOf(connection, query.window(), window.facts, pids),
                      .policy = window.facts.traits.policy(),
                      .bundleID = identity ? std::optional(identity->bundleID) : std::nullopt,
                      .localizedName = identity ? std::optional(identity->name) : std::nullopt};
        windows.push_back(std::move(window));
    }
    return windows;
}

void X11DeskReading::readStack(const std::vector<xcb_window_t>& ids,
                               const std::optional<std::uint32_t>& currentDesktop) {
    const X11Connection& connection = *m_context->connection;
    const auto asked = m_context->marks.now();
    m_stacking = read(*m_context, ids);
    std::vector<xcb_window_t> fresh;
    std::vector<Window*> freshWindows;
    for (Window& window : m_stacking) {
        window.isOnScreen = isOnScreen(window.facts, currentDesktop);
        if (const auto mark = m_context->marks.find(window.window.window, window.facts.isMarked, asked)) {
            window.window.mark = *mark;
        } else {
            fresh.push_back(window.window.window);
            freshWindows.push_back(&window);
        }
    }
    const auto lasting = LastingMarks::read(connection, fresh);
    for (std::size_t i = 0; i < fresh.size(); ++i) {
        const auto [mark, mustSelect, mustWrite] =
            m_context->marks.assign(fresh[i], freshWindows[i]->facts.isMarked, asked, lasting[i]);
        freshWindows[i]->window.mark = mark;
        if (mustSelect) {
            xcb_change_window_attributes(connection.queryConnection(), fresh[i], XCB_CW_EVENT_MASK,
                                         &WindowMarks::eventMask);
        }
        if (mustWrite) {
            LastingMarks::write(connection, fresh[i], mark);
        }
    }
    xcb_flush(connection.queryConnection());
    m_context->marks.keepOnly(ids, asked);
}

void X11DeskReading::orderByAppearance(const std::vector<xcb_window_t>& appearance) {
    std::map<xcb_window_t, std::size_t> rank;
    for (std::size_t i = 0; i < appearance.size(); ++i) {
        rank.emplace(appearance[i], i);
    }
    m_appearance.resize(m_stacking.size());
    std::iota(m_appearance.begin(), m_appearance.end(), std::size_t{0});
    std::ranges::stable_sort(m_appearance, {}, [&](std::size_t i) {
        const auto found = rank.find(m_stacking[i].window.window);
        return found == rank.end() ? appearance.size() : found->second;
    });
}

std::vector<X11DeskReading::Client> X11DeskReading::clients() const {
    std::vector<Client> clients;
    clients.reserve(m_appearance.size());
    for (const auto index : m_appearance) {
        const auto& window = m_stacking[index];
        clients.push_back(
            {.window = window.window, .app = window.app, .isMinimized = window.facts.traits.isMinimized()});
    }
    return clients;
}

std::vector<RunningApp> X11DeskReading::runningApps() const {
    std::vector<RunningApp> apps;
    for (const auto index : m_appearance) {
        const auto& app = m_stacking[index].app;
        const auto known =
            std::ranges::find_if(apps, [&](const auto& other) { return isSameApp(app, other); });
        if (known == apps.end()) {
            apps.push_back(app);
        } else {
            // One ordinary window makes an ordinary application.
            known->policy = std::min(known->policy, app.policy);
        }
    }
    return apps;
}

DeskWindow X11DeskReading::describe(const Window& window) {
    const WindowTraits& traits = window.facts.traits;
    DeskWindow result;
    result.id = window.window.id();
    result.pid = window.app.pid;
    result.bundleID = Unicode::validUtf8(window.app.bundleID.value_or(""));
    result.appName = Unicode::validUtf8(window.app.localizedName.value_or(result.bundleID));
    result.title = Unicode::validUtf8(window.facts.title.value_or(""));
    result.kind = traits.kind();
    result.frame = window.facts.frame();
    result.states = traits.placeStates();
    result.states.isOnAllDesktops = window.facts.desktop == allDesktops;
    result.isOnScreen = window.isOnScreen;
    if (window.facts.desktop && !result.states.isOnAllDesktops) {
        result.desktop = *window.facts.desktop;
    }
    return result;
}

DeskSnapshot X11DeskReading::snapshot(const CaptureFilter& filter) const {
    DeskSnapshot snapshot{.apps = runningApps(), .windows = {}};
    for (const Window& window : m_stacking | std::views::reverse) {
        const auto app = std::ranges::find_if(snapshot.apps,
                                              [&](const auto& each) { return isSameApp(each, window.app); });
        if (app->policy == ActivationPolicy::regular && app->bundleID && filter.includes(*app->bundleID)) {
            snapshot.windows.push_back(describe(window));
        }
    }
    return snapshot;
}

std::vector<std::optional<DeskWindow>> X11DeskReading::look(X11Context& context,
                                                            std::span<const WindowID> windows) {
    std::vector<xcb_window_t> ids;
    ids.reserve(windows.size());
    for (const WindowID id : windows) {
        ids.push_back(X11Window::of(id).window);
    }
    std::map<xcb_window_t, Window> found;
    for (Window& window : read(context, ids)) {
        window.isOnScreen = isOnScreen(window.facts, std::nullopt);
        const xcb_window_t id = window.window.window;
        found.emplace(id, std::move(window));
    }
    std::vector<std::optional<DeskWindow>> result(windows.size());
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const X11Window asked = X11Window::of(windows[i]);
        const auto window = found.find(asked.window);
        if (window != found.end() &&
            context.marks.isSame(asked.window, window->second.facts.isMarked, asked.mark)) {
            window->second.window = asked;
            result[i] = describe(window->second);
        }
    }
    return result;
}

} // namespace vantrel
