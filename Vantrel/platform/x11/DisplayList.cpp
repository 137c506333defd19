#include "Vantrel/platform/x11/DisplayList.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <fmt/format.h>
#include <sodium.h>
#include <string_view>
#include <tuple>

namespace vantrel::DisplayList {

namespace {

// The same fallback names as on macOS.
constexpr const char* builtinName = "Built-in Display";
constexpr const char* externalName = "External Display";

bool isInside(const Rect& inner, const Rect& outer) {
    return inner.minX() >= outer.minX() && inner.maxX() <= outer.maxX() && inner.minY() >= outer.minY() &&
           inner.maxY() <= outer.maxY();
}

// The output that identifies a monitor.
const OutputReading* leadingOutput(const MonitorReading& monitor) {
    const auto rank = [](const OutputReading& output) {
        return std::tuple(!isBuiltinConnector(output.connector), std::string_view(output.connector));
    };
    const auto first = std::ranges::min_element(monitor.outputs, {}, rank);
    return first == monitor.outputs.end() ? nullptr : &*first;
}

bool isBuiltin(const MonitorReading& monitor) {
    const OutputReading* output = leadingOutput(monitor);
    return output != nullptr && isBuiltinConnector(output->connector);
}

// The name that the display's number is derived from.
std::string stableName(const MonitorReading& monitor) {
    const OutputReading* output = leadingOutput(monitor);
    return monitor.userName.value_or(output != nullptr ? output->connector : "");
}

// Of two mirrored monitors, the one that should identify the display comes first.
bool leadsMirror(const MonitorReading& a, const MonitorReading& b) {
    const auto rank = [](const MonitorReading& monitor) {
        return std::tuple(-monitor.area.area(), !monitor.isPrimary, !isBuiltin(monitor), stableName(monitor));
    };
    return rank(a) < rank(b);
}

// A user-defined monitor over part of another divides it; it is not a mirror.
std::vector<MonitorReading> withoutMirrors(std::vector<MonitorReading> monitors) {
    std::ranges::sort(monitors, leadsMirror);
    std::vector<MonitorReading> result;
    for (const MonitorReading& monitor : monitors) {
        const bool isMirror = std::ranges::any_of(result, [&](const MonitorReading& kept) {
            return !monitor.userName && !kept.userName && isInside(monitor.area, kept.area);
        });
        if (!isMirror && !monitor.area.isEmpty()) {
            result.push_back(monitor);
        } else if (monitor.isPrimary && !result.empty()) {
            const auto shown = std::ranges::find_if(
                result, [&](const MonitorReading& kept) { return isInside(monitor.area, kept.area); });
            if (shown != result.end()) {
                shown->isPrimary = true;
            }
        }
    }
    return result;
}

DisplayInfo describe(const MonitorReading& monitor, const std::vector<MonitorReading>& all) {
    const bool builtin = isBuiltin(monitor);
    DisplayInfo display{.uuid = fmt::format("display-{}", stableID(stableName(monitor))),
                        .name = monitor.userName.value_or(builtin ? builtinName : externalName),
                        .frame = monitor.area,
                        .isBuiltin = builtin,
                        .edidUUID = std::nullopt,
                        .visibleFrame = std::nullopt};
    const OutputReading* output = leadingOutput(monitor);
    const auto edid = output != nullptr ? EdidBlock::parse(output->edid) : std::nullopt;
    if (!edid) {
        return display;
    }
    const auto sameEdid = std::ranges::count_if(all, [&](const MonitorReading& other) {
        const OutputReading* leading = leadingOutput(other);
        return leading != nullptr && leading->edid == output->edid;
    });
    // The parts of a monitor that the user divided also share its EDID.
    display.uuid = EdidBlock::displayUUID(output->edid, sameEdid > 1 ? stableName(monitor) : "");
    display.edidUUID = EdidBlock::edidUUID(output->edid, *edid);
    // For an unnamed laptop panel, the generic name is clearer than a product number.
    if (!monitor.userName && (!builtin || !edid->name.empty())) {
        display.name = EdidBlock::displayName(*edid);
    }
    return display;
}

} // namespace

std::vector<DisplayInfo> displays(const std::vector<MonitorReading>& monitors) {
    std::vector<MonitorReading> shown = withoutMirrors(monitors);
    std::ranges::sort(shown, {}, [](const MonitorReading& monitor) {
        return std::tuple(!monitor.isPrimary, monitor.area.minX(), monitor.area.minY(), stableName(monitor));
    });
    std::vector<DisplayInfo> result;
    result.reserve(shown.size());
    for (const MonitorReading& monitor : shown) {
        result.push_back(describe(monitor, shown));
    }
    return result;
}

bool isBuiltinConnector(const std::string& connector) {
    constexpr std::array<std::string_view, 3> prefixes{"eDP", "LVDS", "DSI"};
    return std::ranges::any_of(prefixes,
                               [&](std::string_view prefix) { return connector.starts_with(prefix); });
}

std::uint32_t stableID(const std::string& name) {
    std::array<std::uint8_t, crypto_generichash_BYTES_MIN> digest{};
    // libsodium takes unsigned bytes.
    crypto_generichash(digest.data(), digest.size(), reinterpret_cast<const unsigned char*>(name.data()),
                       name.size(), nullptr, 0);
    std::uint32_t id = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        id = id << 8U | digest[i];
    }
    return std::max(id, std::uint32_t{1});
}

} // namespace vantrel::DisplayList
