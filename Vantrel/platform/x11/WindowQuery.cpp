#include "Vantrel/platform/x11/WindowQuery.h"

#include "Vantrel/platform/x11/PropertyText.h"
#include "Vantrel/platform/x11/PropertyValues.h"
#include "Vantrel/platform/x11/WindowMarks.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <xcb/xcbext.h>

namespace vantrel {

namespace {

// Maximum reply lengths, in 32-bit words.
constexpr std::uint32_t extentsWords = 4;
constexpr std::uint32_t listWords = 64;
constexpr std::uint32_t textWords = 1024;

// No border is wider; larger values are invalid or hostile.
constexpr std::uint32_t widestBorder = 1024;

Extents extents(std::span<const std::uint32_t> values) {
    const bool isSane = values.size() == extentsWords &&
                        std::ranges::all_of(values, [](auto v) { return v <= widestBorder; });
    if (!isSane) {
        return {};
    }
    const auto value = [&](std::size_t i) { return static_cast<std::int32_t>(values[i]); };
    return {.left = value(0), .right = value(1), .top = value(2), .bottom = value(3)};
}

FrameParts frameParts(const xcb_get_geometry_reply_t& geometry,
                      const xcb_translate_coordinates_reply_t& origin,
                      std::span<const std::uint32_t> decoration, std::span<const std::uint32_t> shadow) {
    FrameParts parts{.client = {{static_cast<double>(origin.dst_x), static_cast<double>(origin.dst_y)},
                                {static_cast<double>(geometry.width), static_cast<double>(geometry.height)}},
                     .decoration = extents(decoration),
                     .shadow = extents(shadow)};
    if (decoration.empty()) {
        // No decoration, only the X border if there is one.
        const std::int32_t border = geometry.border_width;
        parts.decoration = {.left = border, .right = border, .top = border, .bottom = border};
    }
    if (parts.shadow.left + parts.shadow.right >= geometry.width ||
        parts.shadow.top + parts.shadow.bottom >= geometry.height) {
        parts.shadow = {};
    }
    return parts;
}

void readStates(WindowTraits& traits, std::span<const std::uint32_t> states, const X11Atoms& atoms) {
    const auto has = [&](xcb_atom_t atom) { return std::ranges::find(states, atom) != states.end(); };
    traits.isSkipTaskbar = has(atoms.netWmStateSkipTaskbar);
    traits.isModal = has(atoms.netWmStateModal);
    traits.isHidden = has(atoms.netWmStateHidden);
    traits.isShaded = has(atoms.netWmStateShaded);
    traits.isFullscreen = has(atoms.netWmStateFullscreen);
    traits.isMaximizedHorizontally = has(atoms.netWmStateMaximizedHorz);
    traits.isMaximizedVertically = has(atoms.netWmStateMaximizedVert);
    traits.isAbove = has(atoms.netWmStateAbove);
}

std::optional<WindowType> windowType(std::span<const std::uint32_t> types, const X11Atoms& atoms) {
    const std::pair<xcb_atom_t, WindowType> known[] = {
        {atoms.netWmWindowTypeNormal, WindowType::normal},
        {atoms.netWmWindowTypeDialog, WindowType::dialog},
        {atoms.netWmWindowTypeUtility, WindowType::utility},
        {atoms.netWmWindowTypeToolbar, WindowType::toolbar},
        {atoms.netWmWindowTypeSplash, WindowType::splash},
        {atoms.netWmWindowTypeDesktop, WindowType::desktop},
        {atoms.netWmWindowTypeDock, WindowType::dock},
        {atoms.netWmWindowTypeMenu, WindowType::menu},
        {atoms.netWmWindowTypeDropdownMenu, WindowType::menu},
        {atoms.netWmWindowTypePopupMenu, WindowType::menu},
        {atoms.netWmWindowTypeCombo, WindowType::menu},
        {atoms.netWmWindowTypeTooltip, WindowType::notification},
        {atoms.netWmWindowTypeNotification, WindowType::notification},
        {atoms.netWmWindowTypeDnd, WindowType::dragAndDrop},
    };
    for (const auto type : types) {
        const auto* found = std::ranges::find(known, type, &std::pair<xcb_atom_t, WindowType>::first);
        if (found != std::end(known)) {
            return found->second;
        }
    }
    return std::nullopt;
}

} // namespace

WindowQuery::WindowQuery(const X11Connection& connection, xcb_window_t window, WindowScope scope)
    : m_connection(&connection), m_window(window), m_scope(scope) {
    xcb_connection_t* const xcb = connection.queryConnection();
    const X11Atoms& atoms = connection.atoms();
    const auto ask = [&](Property property, xcb_atom_t atom, std::uint32_t words) {
        m_properties[property] = xcb_get_property(xcb, 0, window, atom, XCB_GET_PROPERTY_TYPE_ANY, 0, words);
    };
    m_attributes = xcb_get_window_attributes(xcb, window);
    m_geometry = xcb_get_geometry(xcb, window);
    m_origin = xcb_translate_coordinates(xcb, window, connection.root(), 0, 0);
    ask(frameExtents, atoms.netFrameExtents, extentsWords);
    ask(gtkFrameExtents, atoms.gtkFrameExtents, extentsWords);
    if (scope == WindowScope::placement) {
        m_tree = xcb_query_tree(xcb, window);
    }
    // Request the properties last and in enum order; collect relies on it.
    if (scope >= WindowScope::placement) {
        ask(state, atoms.netWmState, listWords);
    }
    if (scope >= WindowScope::element) {
        ask(netName, atoms.netWmName, textWords);
        ask(name, XCB_ATOM_WM_NAME, textWords);
        ask(type, atoms.netWmWindowType, listWords);
        ask(transientFor, XCB_ATOM_WM_TRANSIENT_FOR, 1);
    }
    if (scope >= WindowScope::placement) {
        ask(desktop, atoms.netWmDesktop, 1);
    }
    if (scope >= WindowScope::capture) {
        ask(pid, atoms.netWmPid, 1);
        ask(wmClass, XCB_ATOM_WM_CLASS, textWords);
        ask(gtkApplicationId, atoms.gtkApplicationId, textWords);
        ask(kdeDesktopFile, atoms.kdeDesktopFile, textWords);
    }
}

WindowQuery::WindowQuery(WindowQuery&& other) noexcept
    : m_connection(other.m_connection), m_window(other.m_window), m_scope(other.m_scope),
      m_attributes(other.m_attributes), m_geometry(other.m_geometry), m_origin(other.m_origin),
      m_tree(other.m_tree), m_properties(other.m_properties),
      m_isCollected(std::exchange(other.m_isCollected, true)) {}

WindowQuery::~WindowQuery() {
    if (m_isCollected) {
        return;
    }
    xcb_connection_t* const xcb = m_connection->queryConnection();
    xcb_discard_reply(xcb, m_attributes.sequence);
    xcb_discard_reply(xcb, m_geometry.sequence);
    xcb_discard_reply(xcb, m_origin.sequence);
    if (m_tree.sequence != 0) {
        xcb_discard_reply(xcb, m_tree.sequence);
    }
    for (const auto& cookie : m_properties) {
        if (cookie.sequence != 0) {
            xcb_discard_reply(xcb, cookie.sequence);
        }
    }
}

std::optional<WindowFacts> WindowQuery::collect() {
    xcb_connection_t* const xcb = m_connection->queryConnection();
    const X11Atoms& atoms = m_connection->atoms();
    m_isCollected = true;
    // In reverse order of sending; see takeReply.
    std::array<PropertyValues::Reply, propertyCount> replies;
    for (std::size_t i = propertyCount; i-- > 0;) {
        if (m_properties[i].sequence != 0) {
            replies[i] = takeReply<xcb_get_property_reply_t>(xcb, m_properties[i].sequence);
        }
    }
    XcbReply<xcb_query_tree_reply_t> tree;
    if (m_tree.sequence != 0) {
        tree = takeReply<xcb_query_tree_reply_t>(xcb, m_tree.sequence);
    }
    const auto origin = takeReply<xcb_translate_coordinates_reply_t>(xcb, m_origin.sequence);
    const auto geometry = takeReply<xcb_get_geometry_reply_t>(xcb, m_geometry.sequence);
    const auto attributes = takeReply<xcb_get_window_attributes_reply_t>(xcb, m_attributes.sequence);
    if (!attributes || !geometry || !origin) {
        return std::nullopt;
    }
    const auto cardinals = [&](Property property) {
        return PropertyValues::numbers(replies[property], XCB_ATOM_CARDINAL);
    };
    const auto text = [&](Property property) { return PropertyValues::text(replies[property], atoms); };

    WindowFacts facts;
    facts.parts = frameParts(*geometry, *origin, cardinals(frameExtents), cardinals(gtkFrameExtents));
    facts.isMarked = (attributes->your_event_mask & WindowMarks::eventMask) != 0;
    facts.isViewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    facts.parent = tree ? tree->parent : xcb_window_t{XCB_WINDOW_NONE};
    facts.traits.isOverrideRedirect = attributes->override_redirect != 0;
    readStates(facts.traits, PropertyValues::numbers(replies[state], XCB_ATOM_ATOM), atoms);
    facts.traits.type = windowType(PropertyValues::numbers(replies[type], XCB_ATOM_ATOM), atoms);
    facts.traits.isTransient =
        PropertyValues::number(replies[transientFor], XCB_ATOM_WINDOW).value_or(XCB_WINDOW_NONE) !=
        XCB_WINDOW_NONE;
    facts.title = text(netName);
    if (!facts.title || facts.title->empty()) {
        auto older = text(name);
        facts.title = older ? std::move(older) : std::move(facts.title);
    }
    facts.desktop = PropertyValues::number(replies[desktop], XCB_ATOM_CARDINAL);
    const auto statedPid = PropertyValues::number(replies[pid], XCB_ATOM_CARDINAL).value_or(0);
    if (statedPid > 0 && std::in_range<std::int32_t>(statedPid)) {
        facts.pid = static_cast<std::int32_t>(statedPid);
    }
    std::tie(facts.evidence.wmInstance, facts.evidence.wmClass) =
        PropertyText::decodeClass(PropertyValues::bytes(replies[wmClass]));
    facts.evidence.gtkApplicationId = text(gtkApplicationId).value_or("");
    facts.evidence.kdeDesktopFile = text(kdeDesktopFile).value_or("");
    return facts;
}

} // namespace vantrel
