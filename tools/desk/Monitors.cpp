#include "tools/desk/Monitors.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <ranges>
#include <stdexcept>
#include <sys/uio.h>
#include <xcb/xcbext.h>

namespace vantrel::tools {

namespace {

// The dummy driver refuses faster pixel clocks, in Hz.
constexpr std::uint32_t fastestClock = 290'000'000;

void require(bool done, const char* what) {
    if (!done) {
        throw std::runtime_error(fmt::format("The X server refused to {}.", what));
    }
}

xcb_randr_mode_info_t modeInfo(std::uint16_t width, std::uint16_t height) {
    xcb_randr_mode_info_t info{};
    info.width = width;
    info.height = height;
    info.hsync_start = static_cast<std::uint16_t>(width + 48);
    info.hsync_end = static_cast<std::uint16_t>(width + 80);
    info.htotal = static_cast<std::uint16_t>(width + 160);
    info.vsync_start = static_cast<std::uint16_t>(height + 3);
    info.vsync_end = static_cast<std::uint16_t>(height + 8);
    info.vtotal = static_cast<std::uint16_t>(height + 30);
    info.dot_clock = std::min(fastestClock, 60U * info.htotal * info.vtotal);
    return info;
}

} // namespace

Monitors::Monitors(DeskConnection& connection) : m_connection(connection) {
    const Reply<xcb_randr_get_screen_resources_current_reply_t> resources(
        xcb_randr_get_screen_resources_current_reply(
            connection.xcb(), xcb_randr_get_screen_resources_current(connection.xcb(), connection.root()),
            nullptr));
    if (!resources) {
        throw std::runtime_error("The X server has no RandR.");
    }
    const xcb_randr_output_t* outputs = xcb_randr_get_screen_resources_current_outputs(resources.get());
    m_outputs.assign(outputs, outputs + resources->num_outputs);
    const xcb_randr_crtc_t* crtcs = xcb_randr_get_screen_resources_current_crtcs(resources.get());
    m_crtcs.assign(crtcs, crtcs + resources->num_crtcs);
    m_plugged[0] = {0, 0, connection.screen().width_in_pixels, connection.screen().height_in_pixels};
}

void Monitors::arrange(const std::vector<MonitorPlace>& places) {
    for (std::size_t output = 0; output < places.size(); ++output) {
        plug(output, places[output]);
    }
    const auto plugged = m_plugged;
    for (const std::size_t output : plugged | std::views::keys) {
        if (output >= places.size()) {
            unplug(output);
        }
    }
    setPrimary(0);
}

void Monitors::plug(std::size_t output, const MonitorPlace& place) {
    if (m_plugged.contains(output)) {
        hide(output);
    }
    m_plugged[output] = place;
    // No lit output may ever be outside the screen: the screen grows first and shrinks last.
    const auto [width, height] = extent();
    fitScreen(std::max(width, m_connection.screen().width_in_pixels),
              std::max(height, m_connection.screen().height_in_pixels));
    show(output, place);
    fitScreen(width, height);
    probe();
}

void Monitors::unplug(std::size_t output) {
    hide(output);
    m_plugged.erase(output);
    if (!m_plugged.empty()) {
        const auto [width, height] = extent();
        fitScreen(width, height);
    }
    probe();
}

void Monitors::darken() {
    for (const std::size_t output : m_plugged | std::views::keys) {
        hide(output);
    }
}

void Monitors::relight() {
    for (const auto& [output, place] : m_plugged) {
        show(output, place);
    }
    probe();
}

void Monitors::blink() {
    xcb_grab_server(m_connection.xcb());
    darken();
    relight();
    xcb_ungrab_server(m_connection.xcb());
    m_connection.finish();
}

void Monitors::probe() {
    const Reply<xcb_randr_get_screen_resources_reply_t> resources(xcb_randr_get_screen_resources_reply(
        m_connection.xcb(), xcb_randr_get_screen_resources(m_connection.xcb(), m_connection.root()),
        nullptr));
    require(resources != nullptr, "list its outputs");
}

void Monitors::setPrimary(std::size_t output) {
    xcb_randr_set_output_primary(m_connection.xcb(), m_connection.root(), m_outputs.at(output));
    m_connection.finish();
}

void Monitors::setEdid(std::size_t output, const std::vector<std::uint8_t>& block) {
    const xcb_atom_t edid = m_connection.atom("EDID");
    const Reply<xcb_generic_error_t> configured(xcb_request_check(
        m_connection.xcb(), xcb_randr_configure_output_property_checked(
                                m_connection.xcb(), m_outputs.at(output), edid, 0, 0, 0, nullptr)));
    const Reply<xcb_generic_error_t> changed(xcb_request_check(
        m_connection.xcb(),
        xcb_randr_change_output_property_checked(m_connection.xcb(), m_outputs.at(output), edid,
                                                 XCB_ATOM_INTEGER, 8, XCB_PROP_MODE_REPLACE,
                                                 static_cast<std::uint32_t>(block.size()), block.data())));
    require(!configured && !changed, "take identity data for an output");
}

void Monitors::defineMonitor(const std::string& name, const MonitorPlace& place,
                             const std::vector<std::size_t>& outputs) {
    // xcb_randr_set_monitor of libxcb 1.15 sends a length that it did not set.
    xcb_randr_set_monitor_request_t head{};
    head.window = m_connection.root();
    xcb_randr_monitor_info_t info{};
    info.name = m_connection.atom(name);
    info.nOutput = static_cast<std::uint16_t>(outputs.size());
    info.x = place.x;
    info.y = place.y;
    info.width = place.width;
    info.height = place.height;
    std::vector<xcb_randr_output_t> ids;
    for (const std::size_t output : outputs) {
        ids.push_back(m_outputs.at(output));
    }
    // The two entries before the first are libxcb's.
    std::array<iovec, 5> parts{{{},
                                {},
                                {&head, sizeof head},
                                {&info, sizeof info},
                                {ids.data(), ids.size() * sizeof(xcb_randr_output_t)}}};
    const xcb_protocol_request_t request{
        .count = 3, .ext = &xcb_randr_id, .opcode = XCB_RANDR_SET_MONITOR, .isvoid = 1};
    const unsigned sequence =
        xcb_send_request(m_connection.xcb(), XCB_REQUEST_CHECKED, parts.data() + 2, &request);
    const Reply<xcb_generic_error_t> error(xcb_request_check(m_connection.xcb(), {.sequence = sequence}));
    require(!error && xcb_connection_has_error(m_connection.xcb()) == 0, "define a monitor");
}

void Monitors::removeMonitor(const std::string& name) {
    xcb_randr_delete_monitor(m_connection.xcb(), m_connection.root(), m_connection.atom(name));
    m_connection.finish();
}

void Monitors::show(std::size_t output, const MonitorPlace& place) {
    configure(output, place.x, place.y, modeFor(output, place.width, place.height), {m_outputs.at(output)});
}

void Monitors::hide(std::size_t output) {
    configure(output, 0, 0, XCB_NONE, {});
}

std::pair<std::uint16_t, std::uint16_t> Monitors::extent() const {
    int width = 0;
    int height = 0;
    for (const MonitorPlace& place : m_plugged | std::views::values) {
        width = std::max(width, place.x + place.width);
        height = std::max(height, place.y + place.height);
    }
    return {static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height)};
}

void Monitors::fitScreen(std::uint16_t width, std::uint16_t height) {
    const Reply<xcb_get_geometry_reply_t> now(xcb_get_geometry_reply(
        m_connection.xcb(), xcb_get_geometry(m_connection.xcb(), m_connection.root()), nullptr));
    if (now && now->width == width && now->height == height) {
        return;
    }
    // About 96 dots per inch.
    const Reply<xcb_generic_error_t> error(xcb_request_check(
        m_connection.xcb(),
        xcb_randr_set_screen_size_checked(m_connection.xcb(), m_connection.root(), width, height,
                                          width * 254U / 960U, height * 254U / 960U)));
    require(!error, "resize the screen");
}

xcb_randr_mode_t Monitors::modeFor(std::size_t output, std::uint16_t width, std::uint16_t height) {
    const auto size = std::pair{width, height};
    if (!m_modes.contains(size)) {
        const std::string name = fmt::format("desk-{}x{}", width, height);
        xcb_randr_mode_info_t info = modeInfo(width, height);
        info.name_len = static_cast<std::uint16_t>(name.size());
        const Reply<xcb_randr_create_mode_reply_t> reply(xcb_randr_create_mode_reply(
            m_connection.xcb(),
            xcb_randr_create_mode(m_connection.xcb(), m_connection.root(), info,
                                  static_cast<std::uint32_t>(name.size()), name.c_str()),
            nullptr));
        require(reply != nullptr, "make a video mode");
        m_modes[size] = reply->mode;
    }
    xcb_randr_add_output_mode(m_connection.xcb(), m_outputs.at(output), m_modes[size]);
    return m_modes[size];
}

void Monitors::configure(std::size_t crtc, std::int16_t x, std::int16_t y, xcb_randr_mode_t mode,
                         const std::vector<xcb_randr_output_t>& outputs) {
    const Reply<xcb_randr_set_crtc_config_reply_t> reply(xcb_randr_set_crtc_config_reply(
        m_connection.xcb(),
        xcb_randr_set_crtc_config(m_connection.xcb(), m_crtcs.at(crtc), XCB_CURRENT_TIME, XCB_CURRENT_TIME, x,
                                  y, mode, XCB_RANDR_ROTATION_ROTATE_0,
                                  static_cast<std::uint32_t>(outputs.size()), outputs.data()),
        nullptr));
    require(reply && reply->status == XCB_RANDR_SET_CONFIG_SUCCESS, "set up an output");
}

} // namespace vantrel::tools
