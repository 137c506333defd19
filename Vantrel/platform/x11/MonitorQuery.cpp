#include "Vantrel/platform/x11/MonitorQuery.h"

#include "Vantrel/platform/x11/XcbReply.h"

#include <string_view>
#include <utility>
#include <xcb/randr.h>

namespace vantrel::MonitorQuery {

namespace {

// In 32-bit words. Eight blocks, more than any monitor has.
constexpr std::uint32_t longestEdid = 256;

struct OutputCookies {
    xcb_randr_get_output_info_cookie_t info;
    xcb_randr_get_output_property_cookie_t edid;
};

struct MonitorCookies {
    MonitorReading monitor;
    std::optional<xcb_get_atom_name_cookie_t> userName;
    std::vector<OutputCookies> outputs;
};

MonitorCookies ask(const X11Connection& connection, const xcb_randr_monitor_info_t& info) {
    xcb_connection_t* xcb = connection.xcb();
    MonitorCookies asked;
    asked.monitor.isPrimary = info.primary != 0;
    asked.monitor.area = {{static_cast<double>(info.x), static_cast<double>(info.y)},
                          {static_cast<double>(info.width), static_cast<double>(info.height)}};
    if (info.automatic == 0) {
        asked.userName = xcb_get_atom_name(xcb, info.name);
    }
    const xcb_randr_output_t* outputs = xcb_randr_monitor_info_outputs(&info);
    for (int i = 0; i < xcb_randr_monitor_info_outputs_length(&info); ++i) {
        asked.outputs.push_back(
            {.info = xcb_randr_get_output_info(xcb, outputs[i], XCB_CURRENT_TIME),
             .edid = xcb_randr_get_output_property(xcb, outputs[i], connection.atoms().edid,
                                                   XCB_GET_PROPERTY_TYPE_ANY, 0, longestEdid, 0, 0)});
    }
    return asked;
}

OutputReading answer(xcb_connection_t* xcb, const OutputCookies& cookies) {
    OutputReading output;
    if (const auto info = ownReply(xcb_randr_get_output_info_reply(xcb, cookies.info, nullptr))) {
        // The name is not null-terminated.
        const auto* name = reinterpret_cast<const char*>(xcb_randr_get_output_info_name(info.get()));
        output.connector = std::string_view(name, info->name_len);
    }
    const auto edid = ownReply(xcb_randr_get_output_property_reply(xcb, cookies.edid, nullptr));
    if (edid && edid->format == 8) {
        const std::uint8_t* bytes = xcb_randr_get_output_property_data(edid.get());
        output.edid.assign(bytes, bytes + edid->num_items);
    }
    return output;
}

MonitorReading answer(xcb_connection_t* xcb, MonitorCookies asked) {
    MonitorReading monitor = std::move(asked.monitor);
    if (asked.userName) {
        monitor.userName = "";
        if (const auto name = ownReply(xcb_get_atom_name_reply(xcb, *asked.userName, nullptr))) {
            monitor.userName = std::string_view(xcb_get_atom_name_name(name.get()), name->name_len);
        }
    }
    for (const OutputCookies& output : asked.outputs) {
        monitor.outputs.push_back(answer(xcb, output));
    }
    return monitor;
}

} // namespace

std::optional<std::vector<MonitorReading>> read(const X11Connection& connection) {
    xcb_connection_t* xcb = connection.xcb();
    const bool hasRandr = connection.extensions().randrFirstEvent.has_value();
    const auto monitorsCookie =
        hasRandr ? xcb_randr_get_monitors(xcb, connection.root(), 1) : xcb_randr_get_monitors_cookie_t{};
    const auto screenCookie = xcb_get_geometry(xcb, connection.root());
    const auto monitors =
        ownReply(hasRandr ? xcb_randr_get_monitors_reply(xcb, monitorsCookie, nullptr) : nullptr);
    const auto screen = ownReply(xcb_get_geometry_reply(xcb, screenCookie, nullptr));
    if (!screen) {
        return std::nullopt;
    }
    if (!monitors) {
        return std::vector<MonitorReading>{
            {.userName = std::nullopt,
             .isPrimary = true,
             .area = {{0, 0}, {static_cast<double>(screen->width), static_cast<double>(screen->height)}},
             .outputs = {}}};
    }
    std::vector<MonitorCookies> asked;
    for (auto each = xcb_randr_get_monitors_monitors_iterator(monitors.get()); each.rem > 0;
         xcb_randr_monitor_info_next(&each)) {
        asked.push_back(ask(connection, *each.data));
    }
    std::vector<MonitorReading> result;
    for (MonitorCookies& each : asked) {
        result.push_back(answer(xcb, std::move(each)));
    }
    return connection.isConnected() ? std::optional(std::move(result)) : std::nullopt;
}

} // namespace vantrel::MonitorQuery
