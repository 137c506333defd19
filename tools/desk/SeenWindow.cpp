#include "tools/desk/SeenWindow.h"

#include <ranges>

namespace vantrel::tools {

namespace {

// A frame contains its client directly or one level deeper; further down are the programs' widgets.
constexpr int deepestClient = 2;

Reply<xcb_query_tree_reply_t> treeOf(DeskConnection& connection, xcb_window_t window) {
    return Reply<xcb_query_tree_reply_t>(
        xcb_query_tree_reply(connection.xcb(), xcb_query_tree(connection.xcb(), window), nullptr));
}

// None if the window no longer exists.
xcb_window_t parentOf(DeskConnection& connection, xcb_window_t window) {
    const auto tree = treeOf(connection, window);
    return tree ? tree->parent : xcb_window_t{XCB_WINDOW_NONE};
}

std::vector<xcb_window_t> childrenOf(DeskConnection& connection, xcb_window_t window) {
    const auto tree = treeOf(connection, window);
    if (!tree) {
        return {};
    }
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

std::optional<xcb_window_t> managedWindowIn(DeskConnection& connection, xcb_window_t window, int depth) {
    if (!connection.values(window, "WM_STATE").empty()) {
        return window;
    }
    if (depth == 0) {
        return std::nullopt;
    }
    for (const xcb_window_t child : childrenOf(connection, window)) {
        if (const auto found = managedWindowIn(connection, child, depth - 1)) {
            return found;
        }
    }
    return std::nullopt;
}

// Including the border, in root coordinates.
std::optional<Rect> outerArea(DeskConnection& connection, xcb_window_t window) {
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection.xcb(), xcb_get_geometry(connection.xcb(), window), nullptr));
    const Reply<xcb_translate_coordinates_reply_t> inner(xcb_translate_coordinates_reply(
        connection.xcb(), xcb_translate_coordinates(connection.xcb(), window, connection.root(), 0, 0),
        nullptr));
    if (!geometry || !inner) {
        return std::nullopt;
    }
    const double border = geometry->border_width;
    return Rect{{inner->dst_x - border, inner->dst_y - border},
                {geometry->width + 2 * border, geometry->height + 2 * border}};
}

std::string titleOf(DeskConnection& connection, xcb_window_t window) {
    return connection.text(window, "_NET_WM_NAME").value_or(connection.text(window, "WM_NAME").value_or(""));
}

// WM_CLASS contains the instance and the class, each null-terminated.
std::string classOf(DeskConnection& connection, xcb_window_t window) {
    const std::string both = connection.text(window, "WM_CLASS").value_or("");
    const std::size_t end = both.find('\0');
    return end == std::string::npos ? both : both.substr(end + 1, both.find('\0', end + 1) - end - 1);
}

std::optional<SeenWindow> describe(DeskConnection& connection, xcb_window_t client,
                                   xcb_window_t frameWindow) {
    const std::optional<Rect> clientArea = outerArea(connection, client);
    std::optional<Rect> frame = outerArea(connection, frameWindow);
    const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection.xcb(), xcb_get_window_attributes(connection.xcb(), client), nullptr));
    if (!clientArea || !frame || !attributes) {
        return std::nullopt;
    }
    // Left, right, top, bottom.
    const std::vector<std::uint32_t> shadow = connection.values(client, "_GTK_FRAME_EXTENTS");
    if (shadow.size() == 4) {
        frame = Rect{{frame->minX() + shadow[0], frame->minY() + shadow[2]},
                     {frame->width() - shadow[0] - shadow[1], frame->height() - shadow[2] - shadow[3]}};
    }
    const std::vector<std::uint32_t> pid = connection.values(client, "_NET_WM_PID");
    return SeenWindow{.client = client,
                      .frameWindow = frameWindow,
                      .frame = *frame,
                      .clientArea = *clientArea,
                      .title = titleOf(connection, client),
                      .className = classOf(connection, client),
                      .pid = pid.empty() ? 0 : pid.front(),
                      .isViewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE};
}

} // namespace

std::vector<SeenWindow> seenWindows(DeskConnection& connection) {
    std::vector<SeenWindow> result;
    for (const xcb_window_t top : childrenOf(connection, connection.root()) | std::views::reverse) {
        const auto client = managedWindowIn(connection, top, deepestClient);
        if (!client) {
            continue;
        }
        if (auto window = describe(connection, *client, top)) {
            result.push_back(std::move(*window));
        }
    }
    return result;
}

std::vector<SeenWindow> seenOverlays(DeskConnection& connection) {
    std::vector<SeenWindow> result;
    for (const xcb_window_t top : childrenOf(connection, connection.root()) | std::views::reverse) {
        const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            connection.xcb(), xcb_get_window_attributes(connection.xcb(), top), nullptr));
        if (!attributes || attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT ||
            attributes->override_redirect == 0 || attributes->map_state != XCB_MAP_STATE_VIEWABLE) {
            continue;
        }
        if (auto window = describe(connection, top, top)) {
            result.push_back(std::move(*window));
        }
    }
    return result;
}

std::optional<SeenWindow> seenWindow(DeskConnection& connection, xcb_window_t client) {
    if (connection.values(client, "WM_STATE").empty()) {
        return std::nullopt;
    }
    xcb_window_t frameWindow = client;
    for (auto parent = parentOf(connection, client); parent != connection.root();
         parent = parentOf(connection, frameWindow)) {
        if (parent == XCB_WINDOW_NONE) {
            return std::nullopt;
        }
        frameWindow = parent;
    }
    return describe(connection, client, frameWindow);
}

Size sizeIncrement(DeskConnection& connection, xcb_window_t client) {
    constexpr std::uint32_t hasIncrement = 1U << 6U;
    const std::vector<std::uint32_t> hints = connection.values(client, "WM_NORMAL_HINTS");
    if (hints.size() < 11 || (hints[0] & hasIncrement) == 0) {
        return {1, 1};
    }
    return {static_cast<double>(hints[9]), static_cast<double>(hints[10])};
}

} // namespace vantrel::tools
